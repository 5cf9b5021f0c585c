#pragma once

#include <csignal>
#include <string>

/// What happens when the program is stopped from outside: the unfinished file is removed, and the exit status
/// is 128 plus the signal's number (130 for Ctrl-C, 143 for SIGTERM, 129 for a terminal that went away).
namespace prot {

/// Installs the signal handlers of the process. A hang-up that the caller ignores (nohup) stays ignored; a
/// closed pipe becomes a write error instead of a signal.
void handle_interruptions();

/// The file to be removed when the program is stopped; empty: there is none.
void set_unfinished_file(const std::string& path);

/// While it lives, a signal waits: the program is stopped afterwards.
class InterruptionsWait {
public:
    InterruptionsWait();
    ~InterruptionsWait();
    InterruptionsWait(const InterruptionsWait&) = delete;
    InterruptionsWait& operator=(const InterruptionsWait&) = delete;

private:
    sigset_t earlier_;
};

}  // namespace prot
