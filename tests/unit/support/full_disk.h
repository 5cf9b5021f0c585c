#pragma once

#include <filesystem>
#include <string>

#include "platform/portable/files/paths.h"

namespace prot::test {

/// A file at `path` that takes no byte, as on a full disk; empty when the system has none. A link: what code
/// under test might remove or replace by mistake is the link, not the device.
inline std::string full_disk(const std::string& path) {
    const std::filesystem::path device = "/dev/full";
    if (!std::filesystem::is_character_file(device)) return {};
    std::filesystem::create_symlink(device, text_path(path));
    return path;
}

}  // namespace prot::test
