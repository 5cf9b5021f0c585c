#pragma once

#include <span>
#include <string_view>

#include "apps/protcsv/sample/sample_item_desk.h"

namespace prot::sample {

/// One change of the story of the open items.
struct ItemStep {
    Day due;  ///< the first change by day on or after this date
    LogRow (*change)(ItemDesk& desk, const Occasion& occasion, std::string_view text);
    std::string_view text;  ///< its meaning is the change's own
};

/// What happens in every log however the dice fall, in the order of the days: each kind of change and of
/// value.
std::span<const ItemStep> item_story();

}  // namespace prot::sample
