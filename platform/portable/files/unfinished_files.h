#pragma once

#include <filesystem>

namespace prot {

/// Removes from `folder` what programs left unfinished there that were killed: regular files with a name as
/// temporary_name makes them, of this user, not written to for a day, which no running program holds open as
/// its own. Where the system cannot tell that (a network without locks), they stay. Failures are nobody's
/// concern.
void remove_unfinished_files(const std::filesystem::path& folder) noexcept;

/// Whether `name` is one that temporary_name makes.
bool is_temporary_name(const std::filesystem::path& name);

}  // namespace prot
