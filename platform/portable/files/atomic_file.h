#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/automation/error.h"
#include "platform/portable/files/paths.h"

namespace prot {

/// What becomes of a file that is in the target's place already.
enum class Existing : std::uint8_t {
    replaced,
    kept  ///< the new one gets another name, see FileLayer::prepare
};

/// A file on its way to its place: create, then write as often as needed, then complete. Until complete the
/// earlier file at that place is whole. Each step fails with an AutomationError (see file_error); after that,
/// only discard makes sense. Destroyed before complete, it discards.
class PendingFile {
public:
    virtual ~PendingFile() = default;

    /// Where the bytes go until complete; empty when the target itself is written.
    virtual const std::filesystem::path& temporary_path() const = 0;

    /// Makes the file. Its folder has to exist.
    virtual void create() = 0;

    /// Appends all of `bytes`.
    virtual void write(std::string_view bytes) = 0;

    /// Puts the file in its place, safe from a loss of power.
    virtual void complete() = 0;

    /// Where the file is once it is complete: the target, or the name that it got instead.
    virtual const std::filesystem::path& place() const = 0;

    /// Removes what was made. Harmless at any time, also when there is nothing to remove.
    virtual void discard() noexcept = 0;
};

/// The system's files.
class FileLayer {
public:
    virtual ~FileLayer() = default;

    /// Makes `folder` with its parents; nothing happens when it exists.
    virtual void make_folder(const std::filesystem::path& folder) = 0;

    /// A file to be written to `target`; nothing is made yet. Fails when `target` is a folder or names no
    /// file.
    ///
    /// The file is made in the target's folder under a name of its own and renamed over the target when
    /// complete. A target that is not a regular file (a device, a pipe) is written directly.
    ///
    /// POSIX: until complete only its owner can read it, then it has the permissions of the user's umask.
    /// Where `target` is a symbolic link, the link stays and the file that it leads to is replaced. What is
    /// reached through the system's own links (/dev/stdout) is written directly.
    ///
    /// Windows: it has the permissions that its folder hands down; a symbolic link itself is replaced. A
    /// target that another program has open for more than a second is an error at complete.
    ///
    /// With Existing::kept no file is replaced, and no link followed: complete gives the file the
    /// first of the names target, target-2, target-3 ... (the number before the extension) that is free. That
    /// is decided by the renaming itself, so that of two programs that complete a file at once each gets a
    /// name of its own.
    virtual std::unique_ptr<PendingFile> prepare(const std::filesystem::path& target,
                                                 Existing existing = Existing::replaced) = 0;
};

/// The files of the system that the program runs on.
FileLayer& system_files();

/// The error of a file that cannot be written: number ErrorNumber::file, no source; the description is one
/// German line with the path (lexically normal, control characters as "?") and the reason.
AutomationError file_error(const std::filesystem::path& path, std::string_view reason);
AutomationError file_error(const std::filesystem::path& path, std::error_code reason);

/// Likewise of a folder that cannot be made.
AutomationError folder_error(const std::filesystem::path& path, std::error_code reason);

/// The same of a folder that there is, or may be: nothing can be written into it.
AutomationError closed_folder_error(const std::filesystem::path& path, std::error_code reason);

}  // namespace prot
