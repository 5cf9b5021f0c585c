#include "platform/portable/sqlite/read_ahead.h"

#include <utility>

#include "platform/portable/sqlite/quiet_thread.h"

namespace prot {

ReadAhead::ReadAhead(Fill fill)
    : fill_(std::move(fill)), thread_(quiet_thread([this](const std::stop_token& stop) { run(stop); })) {}

ReadAhead::~ReadAhead() {
    thread_.request_stop();
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

void ReadAhead::run(const std::stop_token& stop) {
    try {
        while (RowSet* const batch = free_batch(stop)) {
            batch->clear();
            fill_(*batch, stop);
            fetched(batch->empty() ? 0 : 1, nullptr);
            if (batch->empty()) return;
        }
    } catch (...) {
        fetched(0, std::current_exception());
    }
}

/// A batch that nobody uses; null when the thread is to end.
RowSet* ReadAhead::free_batch(const std::stop_token& stop) {
    std::unique_lock lock(mutex_);
    const auto is_free = [this] { return fetched_ - given_back_ < batches_.size(); };
    return changed_.wait(lock, stop, is_free) && !stop.stop_requested()
               ? &batches_[fetched_ % batches_.size()]
               : nullptr;
}

void ReadAhead::fetched(std::size_t batches, std::exception_ptr failure) {
    const std::lock_guard lock(mutex_);
    fetched_ += batches;
    at_end_ = batches == 0;
    failure_ = std::move(failure);
    changed_.notify_all();
}

}  // namespace prot
