#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <utility>

namespace prot {

/// Says which steps of a run's progress are worth showing: at most one in an interval. The clock is read once
/// in 16 records, so that a million records cost nothing.
class ProgressPace {
public:
    using Now = std::function<std::chrono::steady_clock::time_point()>;

    explicit ProgressPace(std::chrono::milliseconds interval, Now now = std::chrono::steady_clock::now)
        : interval_(interval), now_(std::move(now)) {}

    /// The next run's first step is shown, however soon it comes.
    void restart() { next_ = {}; }

    /// Whether to show that `done` records of `total` are done; never for numbers that are no progress.
    bool is_due(std::int32_t done, std::int32_t total);

private:
    std::chrono::milliseconds interval_;
    Now now_;
    std::chrono::steady_clock::time_point next_{};
};

}  // namespace prot
