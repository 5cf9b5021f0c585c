#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/automation/date_text.h"
#include "platform/automation/value.h"

/// OLE Automation's conversions between values and text, for German, each in one place.
namespace prot {

/// CStr. A date as date_text.h says. A number has a decimal comma, at most 15 significant digits and no
/// grouping. True is Wahr, False is Falsch. Null is the empty text.
std::string to_text(const Value& value);
std::string to_text(double number);
std::string to_text(std::int64_t number);

/// CDbl of a Single: the number that its seven digits say.
double widened(float number);

/// Val: the number at the start of `text`, with a decimal point and an optional exponent (E or D), blanks,
/// tabs and line feeds ignored wherever they stand; 0 when there is none. Never fails; too large a number is
/// infinite.
double val(std::string_view text);

/// CLng: rounded to the nearest whole number, half to even. Outside 32 bits: automation error 6 (overflow).
std::int32_t to_long(double number);

}  // namespace prot
