#include "apps/protcsv/sample/sample_story.h"

#include <algorithm>
#include <charconv>

namespace prot::sample {

std::int32_t number_of(std::string_view text) {
    std::int32_t number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

LogRow DeskOfLongChanges::next_row() {
    LogRow row = std::move(rows_left_.front());
    rows_left_.pop_front();
    return row;
}

/// The log's moments lie evenly, but for the nights and the last week-end.
bool DeskOfLongChanges::is_too_late(const Occasion& occasion, std::int64_t rows_of_change) const {
    const std::int64_t rest = std::min(rows_of_change, rows_);
    const auto span = std::chrono::seconds(log_end - log_begin);
    const Moment closing = log_end - std::chrono::days(3) - (rows_ == 0 ? span : span * rest / rows_);
    return occasion.moment >= closing;
}

}  // namespace prot::sample
