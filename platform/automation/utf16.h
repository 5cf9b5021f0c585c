#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/automation/utf8.h"

/// UTF-16 as RFC 2781 defines it, in units of whichever 16-bit type a system's interface has.
namespace prot {

template <class Unit>
constexpr bool is_surrogate(Unit unit) {
    return unit >= 0xD800 && unit <= 0xDFFF;
}

/// Whether the unit is the first half of a character that takes two.
template <class Unit>
constexpr bool is_high_surrogate(Unit unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

template <class Unit>
constexpr bool is_low_surrogate(Unit unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// UTF-16 of `utf8`. What is not valid UTF-8 becomes U+FFFD.
template <class Unit>
std::basic_string<Unit> to_utf16(std::string_view utf8) {
    std::basic_string<Unit> result;
    result.reserve(utf8.size());
    for (char32_t code_point : decode_utf8(utf8)) {
        if (is_stray_byte(code_point)) code_point = replacement_character;
        if (code_point < 0x10000) {
            result.push_back(static_cast<Unit>(code_point));
        } else {
            result.push_back(static_cast<Unit>(0xD800 + ((code_point - 0x10000) >> 10)));
            result.push_back(static_cast<Unit>(0xDC00 + ((code_point - 0x10000) & 0x3FF)));
        }
    }
    return result;
}

/// No unit takes more bytes than this in UTF-8.
inline constexpr std::size_t utf8_bytes_of_unit = 3;

/// Writes the UTF-8 of `size` units, at most utf8_bytes_of_unit bytes for each, and returns where they end.
/// Half a surrogate pair becomes U+FFFD.
template <class Unit>
constexpr char* put_utf8(char* at, const Unit* units, std::size_t size) {
    for (std::size_t i = 0; i < size; ++i) {
        const auto unit = static_cast<char32_t>(units[i]);
        if (!is_surrogate(unit)) {
            at = put_utf8(at, unit);
        } else if (is_high_surrogate(unit) && i + 1 < size && is_low_surrogate(units[i + 1])) {
            const auto low = static_cast<char32_t>(units[++i]);
            at = put_utf8(at, 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00));
        } else {
            at = put_utf8(at, replacement_character);
        }
    }
    return at;
}

}  // namespace prot
