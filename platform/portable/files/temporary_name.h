#pragma once

#include <filesystem>

namespace prot {

/// A name for the unfinished form of `target`, in its folder: the target's own name, 16 random hexadecimal
/// digits and ".tmp". A long name is cut, at the start of a character, so that the result is not longer than
/// file systems allow.
std::filesystem::path temporary_name(const std::filesystem::path& target);

}  // namespace prot
