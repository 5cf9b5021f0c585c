#pragma once

#include <functional>
#include <thread>

namespace prot {

/// Starts a thread that takes no signals, so that those that stop the program reach the thread that waits for
/// them. Fails with std::system_error when there can be no further thread.
std::thread quiet_thread(std::function<void()> work);

}  // namespace prot
