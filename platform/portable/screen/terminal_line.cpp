#include "platform/portable/screen/terminal_line.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <initializer_list>
#include <string_view>
#include <system_error>

#include <fcntl.h>
#include <poll.h>
#include <slang.h>
#include <sys/ioctl.h>
#include <sys/signalfd.h>
#include <unistd.h>

namespace prot {

namespace {

constexpr const char* terminal_path = "/dev/tty";
constexpr int first_spare_descriptor = 10;
constexpr int stopping_signals[] = {SIGINT, SIGTERM, SIGHUP, SIGQUIT};

int open_terminal() { return open(terminal_path, O_RDWR | O_CLOEXEC | O_NOCTTY); }

int spare_copy(int descriptor) { return fcntl(descriptor, F_DUPFD_CLOEXEC, first_spare_descriptor); }

void put_back(int copy, int descriptor) {
    if (copy < 0) {
        close(descriptor);
        return;
    }
    dup2(copy, descriptor);
    close(copy);
}

bool is_ignored(int signal) {
    struct sigaction action {};
    sigaction(signal, nullptr, &action);
    return action.sa_handler == SIG_IGN;
}

sigset_t set_of(std::initializer_list<int> signals) {
    sigset_t set;
    sigemptyset(&set);
    for (const int signal : signals) sigaddset(&set, signal);
    return set;
}

/// A signal that is blocked while it is ignored would still count as one that has come.
sigset_t stopping_set() {
    sigset_t set = set_of({});
    for (const int signal : stopping_signals)
        if (!is_ignored(signal)) sigaddset(&set, signal);
    return set;
}

}  // namespace

std::optional<Size> controlling_terminal() {
    const char* const type = std::getenv("TERM");
    if (type == nullptr || *type == '\0' || std::string_view(type) == "dumb") return std::nullopt;
    const int terminal = open_terminal();
    if (terminal < 0) return std::nullopt;
    winsize size{};
    const bool known = ioctl(terminal, TIOCGWINSZ, &size) == 0;
    close(terminal);
    // The screen library ends the program over a type that it does not know.
    if (!known || SLtt_initialize(nullptr) != 0) return std::nullopt;
    return Size{size.ws_col, size.ws_row};
}

TerminalAsStandardStreams::TerminalAsStandardStreams() {
    const int terminal = open_terminal();
    if (terminal < 0) throw std::system_error(errno, std::generic_category(), terminal_path);
    std::fflush(stdout);
    input_ = spare_copy(STDIN_FILENO);
    output_ = spare_copy(STDOUT_FILENO);
    dup2(terminal, STDIN_FILENO);
    dup2(terminal, STDOUT_FILENO);
    if (terminal > STDERR_FILENO) close(terminal);
}

TerminalAsStandardStreams::~TerminalAsStandardStreams() {
    std::fflush(stdout);
    put_back(input_, STDIN_FILENO);
    put_back(output_, STDOUT_FILENO);
}

WaitingSignals::WaitingSignals() {
    const sigset_t stopping = stopping_set(), resizing = set_of({SIGWINCH});
    sigset_t all = stopping;
    sigaddset(&all, SIGWINCH);
    sigprocmask(SIG_BLOCK, &all, &earlier_);
    stopping_ = signalfd(-1, &stopping, SFD_CLOEXEC | SFD_NONBLOCK);
    resizing_ = signalfd(-1, &resizing, SFD_CLOEXEC | SFD_NONBLOCK);
}

WaitingSignals::~WaitingSignals() {
    close(stopping_);
    close(resizing_);
    sigprocmask(SIG_SETMASK, &earlier_, nullptr);
}

WaitingSignals::Event WaitingSignals::wait(int milliseconds) const {
    pollfd lines[] = {{stopping_, POLLIN, 0}, {resizing_, POLLIN, 0}, {STDIN_FILENO, POLLIN, 0}};
    int ready = 0;
    do {
        ready = poll(lines, std::size(lines), milliseconds);
    } while (ready < 0 && errno == EINTR);
    if (ready < 0) return Event::lost;
    if (ready == 0) return Event::silence;
    // Not read: the signal stays, and is delivered when it no longer waits.
    if (lines[0].revents != 0) return Event::stop;
    if (lines[1].revents == 0) return Event::input;
    signalfd_siginfo ignored;
    return read(resizing_, &ignored, sizeof ignored) > 0 ? Event::resized : Event::silence;
}

}  // namespace prot
