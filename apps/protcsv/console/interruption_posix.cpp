#include "apps/protcsv/console/interruption.h"

#include <climits>
#include <csignal>
#include <cstring>

#include <unistd.h>

namespace prot {

namespace {

constexpr int stopping_signals[] = {SIGINT, SIGTERM, SIGHUP};

/// A path that the handler may read; empty: none. It changes while the signals are blocked.
struct HandlersPath {
    char text[PATH_MAX] = "";

    // A path of that length cannot be opened, so nothing is left to be removed.
    void set(const std::string& path) {
        const std::size_t size = path.size() < sizeof text ? path.size() : 0;
        std::memcpy(text, path.data(), size);
        text[size] = '\0';
    }
    bool is_set() const { return text[0] != '\0'; }
};
HandlersPath unfinished_file, unfinished_folder;
HandlersPath files_of_folder[most_unfinished_files];

constexpr char last_words[] = "\nabgebrochen\n";
bool last_words_begin_a_line = false;  // nothing stands before them that they must leave first

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
    if (unfinished_file.is_set()) unlink(unfinished_file.text);
    for (const HandlersPath& file : files_of_folder)
        if (file.is_set()) unlink(file.text);
    if (unfinished_folder.is_set()) rmdir(unfinished_folder.text);
    const std::size_t skipped = last_words_begin_a_line ? 1 : 0;
    // Nobody is left to be told when it fails.
    [[maybe_unused]] const ssize_t written =
        write(STDERR_FILENO, last_words + skipped, sizeof last_words - 1 - skipped);
    _exit(128 + signal);
}

bool is_ignored(int signal) {
    struct sigaction current {};
    sigaction(signal, nullptr, &current);
    return current.sa_handler == SIG_IGN;
}

}  // namespace

void handle_interruptions() {
    last_words_begin_a_line = isatty(STDERR_FILENO) == 0;
    struct sigaction action {};
    action.sa_handler = stop;
    action.sa_mask = stopping_set();
    for (const int signal : stopping_signals)
        if (signal != SIGHUP || !is_ignored(signal)) sigaction(signal, &action, nullptr);
    std::signal(SIGPIPE, SIG_IGN);
}

void set_unfinished_file(const std::string& path) {
    const InterruptionsWait wait;
    unfinished_file.set(path);
}

void set_unfinished_folder(const std::string& folder, std::span<const std::string> files) {
    const InterruptionsWait wait;
    unfinished_folder.set(folder);
    for (std::size_t i = 0; i < most_unfinished_files; ++i)
        files_of_folder[i].set(i < files.size() ? folder + '/' + files[i] : std::string());
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
