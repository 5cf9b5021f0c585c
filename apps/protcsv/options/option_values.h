#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "apps/protcsv/options/options.h"
#include "core/section_table.h"
#include "platform/portable/csv/csv_file_writer.h"

/// The values of options as a person writes them. Each function raises UsageError with the value and what is
/// accepted.
namespace prot {

/// created, changed and deleted as bits of an event mask.
inline constexpr std::int32_t all_events = 7;

/// The event mask: a comma list of created, changed, deleted or of angelegt (neu), geändert, gelöscht,
/// umlauts also as two letters; all, none, alle, keine; or the mask as a decimal number, 0 or one with any
/// bit of all_events, which is returned with its other bits. Blanks and letter case do not matter.
std::int32_t parse_events(std::string_view text);

/// The section of that number, name or title; letter case, blanks and dashes do not matter ("Offene Posten",
/// offene-posten).
const Section& find_section(std::string_view text, SectionTable sections);

/// The numbers of sections, by commas, each as find_section takes it and none twice; all or alle: each there
/// is.
std::vector<std::int32_t> parse_sections(std::string_view text, SectionTable sections);

/// One character, or the word tab. Not a quote, CR, LF or NUL.
std::string parse_separator(std::string_view text);

/// utf-8-bom, utf-8 or windows-1252.
CsvEncoding parse_encoding(std::string_view text);

/// bash, zsh or fish.
Shell parse_shell(std::string_view text);

/// The words that these functions take, for completion.
std::vector<std::string_view> words_of_events();
std::vector<std::string_view> words_of_encodings();
std::vector<std::string_view> words_of_shells();

/// A decimal number from `least` to `most`.
std::uint64_t parse_number(std::string_view text, std::uint64_t least, std::uint64_t most);

}  // namespace prot
