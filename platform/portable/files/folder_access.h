#pragma once

#include <filesystem>
#include <system_error>

namespace prot {

/// Why the program may not make files in `folder`; no error when it may. The empty path is the current
/// folder.
std::error_code folder_refusal(const std::filesystem::path& folder);

}  // namespace prot
