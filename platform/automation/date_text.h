#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/automation/date.h"

/// Dates as texts write them, every form in one place.
namespace prot {

/// CStr for German: dd.mm.yyyy, followed by a blank and hh:mm:ss when the time is not midnight; a time of day
/// without a date, the null date included, is hh:mm:ss.
std::string to_text(Date date);

/// Appends to_text(date) to `text`.
void append_text(std::string& text, Date date);

/// CDate for German: reads to_text(Date) back; one-digit days, months and hours and a time without seconds
/// are accepted. Anything else: automation error 13 (type mismatch).
Date to_date(std::string_view text);

/// yyyy-mm-dd hh:mm:ss
std::string iso_text(const CivilTime& civil);

/// yyyy-mm-dd hh:mm:ss, and .mmm behind it where `date`, rounded to a millisecond, has a part of a second.
std::string iso_text(Date date);

/// The date that `text` writes in the form yyyy-mm-dd, yyyy-mm-dd hh:mm:ss or yyyy-mm-dd hh:mm:ss.fraction
/// (also with T between date and time); nothing for any other text. The fraction counts, as it does in the
/// server's dates.
std::optional<Date> read_iso_date(std::string_view text);

/// The day that `text` writes in the form yyyy-mm-dd; nothing for any other text.
std::optional<Date> read_iso_day(std::string_view text);

/// The day that `text` writes in the form dd.mm.yyyy, day and month with one digit or two; nothing for any
/// other text.
std::optional<Date> read_german_day(std::string_view text);

}  // namespace prot
