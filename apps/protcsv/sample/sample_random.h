#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <random>

namespace prot::sample {

/// Chance that is the same on every system: the engine is fixed by the C++ standard, and the mapping to a
/// range is our own because the standard's distributions differ between libraries.
class Random {
public:
    /// stream: streams of one seed are independent, so that one section's rows do not depend on another's.
    Random(std::uint64_t seed, std::uint64_t stream) : engine_(seed * 0x9E3779B97F4A7C15U + stream) {}

    /// 0 to bound - 1; bound is at least 1. The remainder's bias is far below anything a log could show.
    std::int64_t below(std::int64_t bound) {
        return static_cast<std::int64_t>(engine_() % static_cast<std::uint64_t>(bound));
    }

    /// low to high, both included.
    std::int64_t between(std::int64_t low, std::int64_t high) { return low + below(high - low + 1); }

    /// True in `percent` of a hundred cases.
    bool percent(int percent) { return below(100) < percent; }

    /// One element of an array, vector or span that is not empty.
    template <class Range>
    auto& pick(Range&& range) {
        return range[static_cast<std::size_t>(below(std::ssize(range)))];
    }

private:
    std::mt19937_64 engine_;
};

}  // namespace prot::sample
