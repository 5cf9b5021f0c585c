#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "platform/forms/form.h"

namespace prot {

/// Finds entries of a list by what is typed: the letters typed without a pause are the beginning of an entry,
/// without regard to letter case; one letter again and again goes from one entry that begins with it to the
/// next.
class TypeAhead {
public:
    using Moment = std::chrono::steady_clock::time_point;

    /// Whether `letter` goes on with what was typed before; a blank alone is no beginning.
    bool takes(char32_t letter, Moment now) const;

    /// The entry that `letter`, typed at `now`, leads to from the one selected; nothing when there is none.
    std::optional<std::size_t> typed(char32_t letter, Moment now, const std::vector<Entry>& entries,
                                     std::optional<std::size_t> selected);

    /// The person is at another list.
    void forget() { letters_.clear(); }

private:
    bool paused(Moment now) const;

    std::u32string letters_;
    Moment last_{};
};

}  // namespace prot
