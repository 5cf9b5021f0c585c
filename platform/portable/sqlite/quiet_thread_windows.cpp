#include <utility>

#include "platform/portable/sqlite/quiet_thread.h"

namespace prot {

// The system runs its handlers in a thread of their own.
std::thread quiet_thread(std::function<void()> work) { return std::thread(std::move(work)); }

}  // namespace prot
