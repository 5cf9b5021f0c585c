#pragma once

#include <string>
#include <string_view>

/// Letter case per code point, never per byte: letters of the Latin, Greek, Cyrillic and Armenian scripts,
/// one code point to one code point (so the German sharp s has no capital). Source: Unicode Character
/// Database, simple case mappings.
namespace prot {

char32_t to_lower(char32_t code_point);
char32_t to_upper(char32_t code_point);

/// Every code point of `text` (UTF-8) in lower or upper case; bytes that are not UTF-8 stay as they are.
std::string to_lower(std::string_view text);
std::string to_upper(std::string_view text);

/// Whether to_upper(text) is `other`; ends at the first difference and copies nothing while the texts are
/// ASCII.
bool upper_equals(std::string_view text, std::string_view other);

}  // namespace prot
