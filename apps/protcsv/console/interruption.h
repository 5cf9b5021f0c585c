#pragma once

#include <cstddef>
#include <span>
#include <string>

/// What happens when the program is stopped from outside: the unfinished file is removed, and standard error
/// gets the line "abgebrochen", on a terminal below what stands there. The exit status is
/// 130 for Ctrl-C; on POSIX 128 plus the signal's number (143 for SIGTERM, 129 for a terminal that went
/// away), on Windows 130 whatever stopped it (Ctrl-Break, a closed window, the end of the session).
namespace prot {

/// Installs the handlers of the process. POSIX: a hang-up that the caller ignores (nohup) stays ignored; a
/// closed pipe becomes a write error instead of a signal.
void handle_interruptions();

/// The file to be removed when the program is stopped, as UTF-8; empty: there is none.
void set_unfinished_file(const std::string& path);

/// The folder to be removed behind that, with these files of it, as UTF-8; empty: there is none. At most
/// `most_unfinished_files`. Windows: a file that is still open stays, and the folder with it.
void set_unfinished_folder(const std::string& folder, std::span<const std::string> files);
inline constexpr std::size_t most_unfinished_files = 4;

/// While it lives, the program is not stopped, but when the last one ends. On one thread only.
class InterruptionsWait {
public:
    InterruptionsWait();
    ~InterruptionsWait();
    InterruptionsWait(const InterruptionsWait&) = delete;
    InterruptionsWait& operator=(const InterruptionsWait&) = delete;
};

}  // namespace prot
