#include <utility>

#include "platform/portable/sqlite/quiet_thread.h"

namespace prot {

// The system runs its handlers in a thread of their own.
std::jthread quiet_thread(std::function<void(const std::stop_token&)> work) {
    return std::jthread(std::move(work));
}

}  // namespace prot
