#pragma once

#include <functional>
#include <stop_token>
#include <thread>

namespace prot {

/// Starts a thread that takes no signals, so that those that stop the program reach the thread that waits for
/// them. Fails with std::system_error when there can be no further thread.
std::jthread quiet_thread(std::function<void(const std::stop_token&)> work);

}  // namespace prot
