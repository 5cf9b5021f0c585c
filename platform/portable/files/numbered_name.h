#pragma once

#include <filesystem>

namespace prot {

/// A file name for the case that others are taken: `path` itself for number 1, then with -2, -3 and so on
/// before the extension.
std::filesystem::path numbered_name(const std::filesystem::path& path, int number);

/// As many names are tried.
inline constexpr int most_numbered_names = 9999;

}  // namespace prot
