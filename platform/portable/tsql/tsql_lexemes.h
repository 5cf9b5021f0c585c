#pragma once

#include <cstddef>
#include <string_view>

#include "platform/automation/ascii.h"

namespace prot {

/// The characters of T-SQL's lexemes.
constexpr bool is_tsql_blank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
constexpr bool starts_tsql_name(char c) { return is_ascii_letter(c) || c == '_' || c == '#' || !is_ascii(c); }
constexpr bool continues_tsql_name(char c) {
    return starts_tsql_name(c) || is_ascii_digit(c) || c == '@' || c == '$';
}

/// The bytes of the name that `text` begins with.
std::size_t tsql_name_size(std::string_view text);

/// The bytes of the number that `text` begins with: digits, decimal point, exponent. 0 when it begins with
/// none.
std::size_t tsql_number_size(std::string_view text);

/// The bytes of a text or quoted name that `text` begins with: from its first character to the next
/// `delimiter` that is not doubled. npos when there is none.
std::size_t tsql_quoted_size(std::string_view text, char delimiter);

}  // namespace prot
