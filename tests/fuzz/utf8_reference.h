#pragma once

#include <cstddef>
#include <string_view>

namespace prot::fuzz {

/// The well-formed byte sequences of UTF-8, a row per range of first bytes and second bytes; all later bytes
/// are 80 to BF. Source: The Unicode Standard, table 3-7.
struct Utf8Row {
    unsigned char first_low, first_high;
    std::size_t length;
    unsigned char second_low, second_high;
};

// clang-format off
inline constexpr Utf8Row utf8_rows[] = {
    {0x00, 0x7F, 1, 0x00, 0x00},
    {0xC2, 0xDF, 2, 0x80, 0xBF},
    {0xE0, 0xE0, 3, 0xA0, 0xBF},
    {0xE1, 0xEC, 3, 0x80, 0xBF},
    {0xED, 0xED, 3, 0x80, 0x9F},
    {0xEE, 0xEF, 3, 0x80, 0xBF},
    {0xF0, 0xF0, 4, 0x90, 0xBF},
    {0xF1, 0xF3, 4, 0x80, 0xBF},
    {0xF4, 0xF4, 4, 0x80, 0x8F},
};
// clang-format on

/// The length of the character that `text`, which is not empty, begins with; 0 when it begins with none.
inline std::size_t utf8_length(std::string_view text) {
    const auto in_range = [&](std::size_t index, unsigned char low, unsigned char high) {
        const auto byte = static_cast<unsigned char>(text[index]);
        return byte >= low && byte <= high;
    };
    for (const Utf8Row& row : utf8_rows) {
        if (!in_range(0, row.first_low, row.first_high)) continue;
        if (text.size() < row.length) return 0;
        if (row.length > 1 && !in_range(1, row.second_low, row.second_high)) return 0;
        for (std::size_t i = 2; i < row.length; ++i)
            if (!in_range(i, 0x80, 0xBF)) return 0;
        return row.length;
    }
    return 0;
}

/// Calls `visit(part, is_character)` for each character of `text` and each byte that belongs to none.
template <class Visit>
void for_each_utf8_part(std::string_view text, Visit visit) {
    while (!text.empty()) {
        const std::size_t length = utf8_length(text);
        const std::size_t size = length == 0 ? 1 : length;
        visit(text.substr(0, size), length != 0);
        text.remove_prefix(size);
    }
}

}  // namespace prot::fuzz
