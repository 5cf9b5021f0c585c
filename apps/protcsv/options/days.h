#pragma once

#include <string_view>

#include "platform/automation/date.h"

/// Days as a person writes them. Each function raises UsageError with the text and what is accepted.
namespace prot {

/// The day, both times the same, or the month that a text names.
struct Days {
    Date first;
    Date last;
};

/// A day as D.M.YYYY (zeros before day and month do not matter) or YYYY-MM-DD, as the word heute or gestern,
/// or a month as YYYY-MM. `today`: any time of the present day.
Days parse_days(std::string_view text, Date today);

/// The last of parse_days, but not the null day, 30 December 1899: it means "no bound", so that a deletion up
/// to it would be a deletion of everything.
Date parse_last_day_of_deletion(std::string_view text, Date today);

}  // namespace prot
