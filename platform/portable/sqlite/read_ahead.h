#pragma once

#include <array>
#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>

#include "platform/row_set.h"

namespace prot {

/// Batches of rows that a thread of its own fetches, a few ahead of the one in use. The thread takes no
/// signals.
class ReadAhead {
public:
    /// Fills an empty batch, which stays empty behind the last row. Asked to stop, it may return early.
    /// Called on the thread.
    using Fill = std::function<void(RowSet&, const std::atomic<bool>& stop)>;

    /// Fails with std::system_error when there can be no further thread.
    explicit ReadAhead(Fill fill);

    /// Waits until the call of fill that runs has returned.
    ~ReadAhead();

    /// The next batch, valid until the following call; none behind the last. What fill fails with is raised
    /// behind the batches that it had filled.
    const RowSet& next();

private:
    void run();
    RowSet* free_batch();
    void fetched(std::size_t batches, std::exception_ptr failure);

    const Fill fill_;
    std::mutex mutex_;  // of all below
    std::condition_variable changed_;
    std::array<RowSet, 4> batches_;  // a ring
    std::size_t fetched_ = 0;        // how many there were
    std::size_t handed_over_ = 0;    // of these; the last one is in use
    std::size_t given_back_ = 0;     // of these
    bool at_end_ = false;
    std::exception_ptr failure_;
    const RowSet none_;
    std::atomic<bool> stop_ = false;
    std::thread thread_;
};

}  // namespace prot
