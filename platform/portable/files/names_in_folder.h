#pragma once

#include <filesystem>
#include <vector>

namespace prot {

/// The names of what is in a folder; none when it cannot be read. Unlike the library's own iterator it
/// survives a lack of memory, by std::bad_alloc.
std::vector<std::filesystem::path> names_in_folder(const std::filesystem::path& folder);

}  // namespace prot
