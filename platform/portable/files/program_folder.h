#pragma once

#include <filesystem>

namespace prot {

/// The folder of the running program; within a Windows library, that library's own folder. Empty when the
/// system does not tell.
std::filesystem::path program_folder();

}  // namespace prot
