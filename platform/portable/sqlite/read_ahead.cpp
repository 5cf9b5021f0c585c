#include "platform/portable/sqlite/read_ahead.h"

#include <utility>

#include "platform/portable/sqlite/quiet_thread.h"

namespace prot {

ReadAhead::ReadAhead(Fill fill) : fill_(std::move(fill)), thread_(quiet_thread([this] { run(); })) {}

ReadAhead::~ReadAhead() {
    {
        const std::lock_guard lock(mutex_);
        stop_ = true;
        changed_.notify_all();
    }
    thread_.join();
}

const RowSet& ReadAhead::next() {
    std::unique_lock lock(mutex_);
    given_back_ = handed_over_;
    changed_.notify_all();
    changed_.wait(lock, [this] { return fetched_ > handed_over_ || at_end_; });
    if (fetched_ > handed_over_) return batches_[handed_over_++ % batches_.size()];
    if (failure_) std::rethrow_exception(failure_);
    return none_;
}

void ReadAhead::run() {
    try {
        while (RowSet* const batch = free_batch()) {
            batch->clear();
            fill_(*batch, stop_);
            fetched(batch->empty() ? 0 : 1, nullptr);
            if (batch->empty()) return;
        }
    } catch (...) {
        fetched(0, std::current_exception());
    }
}

/// A batch that nobody uses; null when the thread is to end.
RowSet* ReadAhead::free_batch() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return stop_ || fetched_ - given_back_ < batches_.size(); });
    return stop_ ? nullptr : &batches_[fetched_ % batches_.size()];
}

void ReadAhead::fetched(std::size_t batches, std::exception_ptr failure) {
    const std::lock_guard lock(mutex_);
    fetched_ += batches;
    at_end_ = batches == 0;
    failure_ = std::move(failure);
    changed_.notify_all();
}

}  // namespace prot
