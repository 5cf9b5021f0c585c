#include "apps/protcsv/console/interruption.h"

#include <climits>
#include <csignal>
#include <cstring>

#include <unistd.h>

namespace prot {

namespace {

constexpr int stopping_signals[] = {SIGINT, SIGTERM, SIGHUP};

// The handler reads it; set_unfinished_file writes it while the signals are blocked.
char unfinished_path[PATH_MAX] = "";

int waits = 0;  // one within the other
sigset_t mask_before_waits;

sigset_t stopping_set() {
    sigset_t set;
    sigemptyset(&set);
    for (const int signal : stopping_signals) sigaddset(&set, signal);
    return set;
}

/// Only calls that POSIX allows in a signal handler.
void stop(int signal) {
    if (unfinished_path[0] != '\0') unlink(unfinished_path);
    _exit(128 + signal);
}

bool is_ignored(int signal) {
    struct sigaction current {};
    sigaction(signal, nullptr, &current);
    return current.sa_handler == SIG_IGN;
}

}  // namespace

void handle_interruptions() {
    struct sigaction action {};
    action.sa_handler = stop;
    action.sa_mask = stopping_set();
    for (const int signal : stopping_signals)
        if (signal != SIGHUP || !is_ignored(signal)) sigaction(signal, &action, nullptr);
    std::signal(SIGPIPE, SIG_IGN);
}

void set_unfinished_file(const std::string& path) {
    const InterruptionsWait wait;
    // A path of this length cannot be opened, so nothing is left to be removed.
    const std::size_t size = path.size() < sizeof unfinished_path ? path.size() : 0;
    std::memcpy(unfinished_path, path.data(), size);
    unfinished_path[size] = '\0';
}

InterruptionsWait::InterruptionsWait() {
    if (waits++ > 0) return;
    const sigset_t stopping = stopping_set();
    pthread_sigmask(SIG_BLOCK, &stopping, &mask_before_waits);
}

InterruptionsWait::~InterruptionsWait() {
    if (--waits == 0) pthread_sigmask(SIG_SETMASK, &mask_before_waits, nullptr);
}

}  // namespace prot
