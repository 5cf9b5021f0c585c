#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/automation/date.h"
#include "platform/automation/value.h"

/// OLE Automation's conversions between values and text, for German, each in one place.
namespace prot {

/// CStr. A date is dd.mm.yyyy, followed by a blank and hh:mm:ss when its time is not midnight; a time of day
/// without a date, the null date included, is hh:mm:ss. A number has a decimal comma, at most 15 significant
/// digits and no grouping. True is Wahr, False is Falsch. Null is the empty text.
std::string to_text(const Value& value);
std::string to_text(Date date);
std::string to_text(double number);
std::string to_text(std::int64_t number);

/// Appends to_text(date) to `text`.
void append_text(std::string& text, Date date);

/// Val: the number at the start of `text`, with a decimal point and an optional exponent (E or D), blanks,
/// tabs and line feeds ignored wherever they stand; 0 when there is none. Never fails; too large a number is
/// infinite.
double val(std::string_view text);

/// CLng: rounded to the nearest whole number, half to even. Outside 32 bits: automation error 6 (overflow).
std::int32_t to_long(double number);

/// CDate: reads to_text(Date) back; one-digit days, months and hours and a time without seconds are accepted.
/// Anything else: automation error 13 (type mismatch).
Date to_date(std::string_view text);

}  // namespace prot
