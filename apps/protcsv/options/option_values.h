#pragma once

#include <cstdint>
#include <string_view>

#include "core/section_table.h"
#include "platform/automation/date.h"
#include "platform/portable/csv/csv_file_writer.h"

/// The values of options as a person writes them. Each function raises UsageError with the value and what is
/// accepted.
namespace prot {

/// A day, YYYY-MM-DD or DD.MM.YYYY.
Date parse_date(std::string_view text);

/// As parse_date, but not the null day, 30 December 1899: it means "no bound", so that a deletion up to it
/// would be a deletion of everything.
Date parse_last_day_of_deletion(std::string_view text);

/// The event mask: a comma list of created, changed, deleted; all; none; or the mask as a decimal number of
/// 31 bits, which is taken as it is. Blanks and letter case do not matter.
std::int32_t parse_events(std::string_view text);

/// The section of that number or name (any letter case).
const Section& find_section(std::string_view text, SectionTable sections);

/// One character, or the word tab. Not a quote, CR, LF or NUL.
std::string parse_separator(std::string_view text);

/// utf-8-bom, utf-8 or windows-1252.
CsvEncoding parse_encoding(std::string_view text);

/// A decimal number from `least` to `most`.
std::uint64_t parse_number(std::string_view text, std::uint64_t least, std::uint64_t most);

}  // namespace prot
