#pragma once

#include <string>

/// What happens when the program is stopped from outside: the unfinished file is removed. The exit status is
/// 130 for Ctrl-C; on POSIX 128 plus the signal's number (143 for SIGTERM, 129 for a terminal that went
/// away), on Windows 130 whatever stopped it (Ctrl-Break, a closed window, the end of the session).
namespace prot {

/// Installs the handlers of the process. POSIX: a hang-up that the caller ignores (nohup) stays ignored; a
/// closed pipe becomes a write error instead of a signal.
void handle_interruptions();

/// The file to be removed when the program is stopped, as UTF-8; empty: there is none.
void set_unfinished_file(const std::string& path);

/// While it lives, the program is not stopped, but when the last one ends. On one thread only.
class InterruptionsWait {
public:
    InterruptionsWait();
    ~InterruptionsWait();
    InterruptionsWait(const InterruptionsWait&) = delete;
    InterruptionsWait& operator=(const InterruptionsWait&) = delete;
};

}  // namespace prot
