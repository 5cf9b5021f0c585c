#pragma once

#include <csignal>
#include <cstddef>

namespace prot::faults {

enum class Failing {
    once,
    from_then_on,
    by_a_kill  ///< the process ends at once, as by kill -9
};

/// Decides which of the calls that pass it fail: call number `nth` (from 1), and with from_then_on all later
/// ones. Allocates nothing.
class FaultPlan {
public:
    FaultPlan() = default;  ///< no call fails
    FaultPlan(std::size_t nth, Failing failing) : nth_(nth), failing_(failing) {}

    /// Counts a call; true when it has to fail.
    bool fails() {
        ++calls_;
        if (failing_ == Failing::by_a_kill && calls_ == nth_) std::raise(SIGKILL);
        return nth_ != 0 && (calls_ == nth_ || (failing_ == Failing::from_then_on && calls_ > nth_));
    }

    /// Whether a call has failed.
    bool reached() const { return nth_ != 0 && calls_ >= nth_; }

private:
    std::size_t nth_ = 0;
    std::size_t calls_ = 0;
    Failing failing_ = Failing::once;
};

}  // namespace prot::faults
