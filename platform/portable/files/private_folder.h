#pragma once

#include <filesystem>

/// Folders and files that hold what not everybody may read. Each function fails with an AutomationError (see
/// file_error, folder_error).
namespace prot {

/// Makes a folder that its owner alone can use, whatever the umask, or the folder above it, allows. Where
/// `place` is taken, its name is the first free one of place-2, place-3 ...; returns where it is. The folder
/// above exists.
std::filesystem::path make_private_folder(const std::filesystem::path& place);

/// Lets the owner alone read and write a file. Windows: nothing to do in a folder made by
/// make_private_folder, which hands its rights down.
void make_private(const std::filesystem::path& file);

/// Whether nobody but its owner (and the system's administrator) can read a file. Windows: always, the rights
/// there are those of the folder.
bool is_private(const std::filesystem::path& file);

/// Waits until a file that is written and closed, or the names in a folder, are safe from a loss of power.
/// Windows flushes names with their files.
void flush_file(const std::filesystem::path& file);
void flush_folder(const std::filesystem::path& folder);

}  // namespace prot
