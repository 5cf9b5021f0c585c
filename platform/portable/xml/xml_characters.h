#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <string_view>

#include "platform/automation/ascii.h"

/// The character classes of XML 1.0, fifth edition.
namespace prot::xml {

/// What a single ASCII byte may be. Bytes from 0x80 have no class: their characters are decoded.
enum ByteClass : std::uint8_t {
    plain_text = 1,   // stands for itself in character data, wherever it stands
    plain_value = 2,  // stands for itself in an attribute value of either quote
    plain_body = 4,   // ends no comment, CDATA section or processing instruction
    white_space = 8,
    name_start = 16,
    name_part = 32,
    name_end = 64,  // may follow the name in a tag
};

constexpr std::uint8_t classes_of(char byte) {
    const bool space = byte == ' ' || byte == '\t' || byte == '\n' || byte == '\r';
    if (!is_ascii(byte) || (byte < 0x20 && !space)) return 0;
    const std::string_view not_in_text = "<&]\r";
    const std::string_view not_in_value = "<&\"'\t\n\r";
    const std::string_view not_in_body = "-]?";
    const auto among = [byte](std::string_view set) { return set.find(byte) != std::string_view::npos; };
    const bool starts_name = is_ascii_letter(byte) || byte == '_' || byte == ':';
    const bool continues_name = starts_name || is_ascii_digit(byte) || byte == '-' || byte == '.';
    return static_cast<std::uint8_t>(
        (among(not_in_text) ? 0 : plain_text) | (among(not_in_value) ? 0 : plain_value) |
        (among(not_in_body) ? 0 : plain_body) | (space ? white_space : 0) | (starts_name ? name_start : 0) |
        (continues_name ? name_part : 0) | (space || byte == '/' || byte == '>' ? name_end : 0));
}

inline constexpr std::array<std::uint8_t, 256> byte_classes = [] {
    std::array<std::uint8_t, 256> classes{};
    for (std::size_t byte = 0; byte < classes.size(); ++byte)
        classes[byte] = classes_of(static_cast<char>(byte));
    return classes;
}();

constexpr bool is(char byte, ByteClass wanted) {
    return (byte_classes[static_cast<unsigned char>(byte)] & wanted) != 0;
}

struct NameRange {
    char32_t first, last;
    bool may_start;  // the character may also begin a name
};

// clang-format off
inline constexpr NameRange name_ranges[] = {
    {0xB7,    0xB7,    false}, {0xC0,   0xD6,   true},  {0xD8,   0xF6,   true}, {0xF8,   0x2FF,  true},
    {0x300,   0x36F,   false}, {0x370,  0x37D,  true},  {0x37F,  0x1FFF, true}, {0x200C, 0x200D, true},
    {0x203F,  0x2040,  false}, {0x2070, 0x218F, true},  {0x2C00, 0x2FEF, true}, {0x3001, 0xD7FF, true},
    {0xF900,  0xFDCF,  true},  {0xFDF0, 0xFFFD, true},  {0x10000, 0xEFFFF, true},
};
// clang-format on

/// Whether a character beyond ASCII may stand in a name, or begin one.
inline bool is_name_character(char32_t code_point, bool at_start) {
    return std::any_of(std::begin(name_ranges), std::end(name_ranges), [&](const NameRange& range) {
        return code_point >= range.first && code_point <= range.last && (range.may_start || !at_start);
    });
}

/// Whether the character may stand in a document at all (production Char).
inline bool is_character(char32_t code_point) {
    if (code_point < 0x20) return code_point == '\t' || code_point == '\n' || code_point == '\r';
    return code_point < 0xD800 || (code_point > 0xDFFF && code_point < 0xFFFE) ||
           (code_point > 0xFFFF && code_point <= 0x10FFFF);
}

}  // namespace prot::xml
