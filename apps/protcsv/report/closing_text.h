#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "apps/protcsv/notices_report.h"
#include "platform/portable/csv/csv_encoding.h"

/// What is said at the end of an export; each text is a line, or empty when there is nothing to say.
namespace prot {

/// A number with a blank between groups of three digits.
std::string grouped(std::int64_t number);

/// How many records were read, how many lines written, which records have no line and why, and how long it
/// took.
std::string closing_line(const NoticesReport& notices, std::chrono::milliseconds duration);

/// "3 Protokollsätze und 1 Memotext".
std::string amount_text(std::int64_t records, std::int64_t memos);

/// How many characters of the file the encoding could not hold, and where the first of them stand.
std::string replaced_text(const ReplacedCharacters& replaced, const std::string& file);

/// That a spreadsheet takes only the beginning of a file with so many lines, the head's included.
std::string too_long_text(std::int64_t lines);

}  // namespace prot
