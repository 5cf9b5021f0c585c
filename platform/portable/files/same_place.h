#pragma once

#include <filesystem>

namespace prot {

/// Whether both paths lead to one file, or to the place where one is yet to be made. An empty path leads
/// nowhere.
bool is_same_place(const std::filesystem::path& one, const std::filesystem::path& other);

}  // namespace prot
