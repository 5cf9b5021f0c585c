#pragma once

#include <filesystem>

namespace prot {

/// Removes a file of this user that no running program is writing as a PendingFile; else it stays.
void remove_if_free(const std::filesystem::path& file);

}  // namespace prot
