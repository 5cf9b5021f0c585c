#include "tests/support/default_signals.h"

#include <csignal>

namespace prot::test {

void restore_default_signals() {
    for (int signal = 1; signal < NSIG; ++signal) {
        struct sigaction current {};
        if (sigaction(signal, nullptr, &current) == 0 && current.sa_handler == SIG_IGN)
            std::signal(signal, SIG_DFL);
    }
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
}

}  // namespace prot::test
