#pragma once

#include <filesystem>
#include <string>
#include <string_view>

/// Paths of the system that the program runs on. On Windows a path that begins with two separators names a
/// server or a device; std::filesystem takes them for one there, so the functions below stand in for it.
namespace prot {

/// The path as UTF-8, and back. Windows, whose paths are UTF-16, cannot keep what is not UTF-8: it becomes
/// U+FFFD.
std::string path_text(const std::filesystem::path& path);
std::filesystem::path text_path(std::string_view text);

/// Whether the path means the same from every folder.
bool is_absolute_path(const std::filesystem::path& path);

/// `name` as seen from `folder`; `name` itself when it is absolute.
std::filesystem::path joined_path(const std::filesystem::path& folder, const std::filesystem::path& name);

/// The path without "." and "..", as far as that goes without asking the file system.
std::filesystem::path shortest_path(const std::filesystem::path& path);

/// The path as seen from the current folder.
std::filesystem::path absolute_path(const std::filesystem::path& path);

}  // namespace prot
