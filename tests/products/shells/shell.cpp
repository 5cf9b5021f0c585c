#include "tests/products/shells/shell.h"

#include <poll.h>
#include <pty.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <stdexcept>

namespace prot::test {

namespace {

constexpr int first_word_ms = 3000;
constexpr int silence_ms = 300;

[[noreturn]] void become(const std::vector<std::string>& command, const std::string& folder) {
    std::vector<char*> arguments;
    for (const std::string& word : command) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    setenv("TERM", "vt100", 1);
    setenv("LC_ALL", "C.UTF-8", 1);
    setenv("HOME", folder.c_str(), 1);
    if (chdir(folder.c_str()) == 0) execvp(arguments.front(), arguments.data());
    _exit(127);
}

}  // namespace

TypedShell::TypedShell(const std::vector<std::string>& command, const std::string& folder) {
    const winsize size{50, 200, 0, 0};
    process_ = forkpty(&terminal_, nullptr, nullptr, &size);
    if (process_ < 0) throw std::runtime_error("no terminal");
    if (process_ == 0) become(command, folder);
    said();
}

TypedShell::~TypedShell() {
    close(terminal_);
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
}

std::string TypedShell::type(std::string_view text) {
    if (write(terminal_, text.data(), text.size()) < 0) throw std::runtime_error("the shell has ended");
    return said();
}

std::string TypedShell::said() {
    std::string text;
    for (pollfd ready{terminal_, POLLIN, 0};
         poll(&ready, 1, text.empty() ? first_word_ms : silence_ms) > 0;) {
        char bytes[4096];
        const ssize_t count = read(terminal_, bytes, sizeof bytes);
        if (count <= 0) break;
        text.append(bytes, static_cast<std::size_t>(count));
    }
    return text;
}

}  // namespace prot::test
