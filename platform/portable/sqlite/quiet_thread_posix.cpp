#include <csignal>
#include <utility>

#include "platform/portable/sqlite/quiet_thread.h"

namespace prot {

namespace {

/// Keeps all signals from this thread, and from those that it starts meanwhile.
class NoSignals {
public:
    NoSignals() {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &before_);
    }
    ~NoSignals() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
    NoSignals(const NoSignals&) = delete;
    NoSignals& operator=(const NoSignals&) = delete;

private:
    sigset_t before_{};
};

}  // namespace

std::thread quiet_thread(std::function<void()> work) {
    const NoSignals inherited;
    return std::thread(std::move(work));
}

}  // namespace prot
