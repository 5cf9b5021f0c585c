#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// UTF-8 as RFC 3629 defines it: shortest forms, no surrogates, nothing above U+10FFFF. What is inline here
/// is called for each character of a file.
namespace prot {

inline constexpr std::string_view utf8_byte_order_mark = "\xEF\xBB\xBF";

/// What stands for something that is no character.
inline constexpr char32_t replacement_character = 0xFFFD;

/// Whether the byte belongs to a character that a byte before it has begun.
constexpr bool continues_character(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

/// One character as UTF-8 writes it.
struct Utf8Sequence {
    char32_t code_point;
    std::size_t length;  ///< in bytes, 1 to 4; 0: what stands there is not valid UTF-8
};

/// The character that begins at `text`, which is before `end`.
constexpr Utf8Sequence utf8_sequence(const char* text, const char* end) {
    const auto available = static_cast<std::size_t>(end - text);
    const auto continues = [&](std::size_t i) { return i < available && continues_character(text[i]); };
    const auto six_bits = [&](std::size_t i) {
        return static_cast<char32_t>(static_cast<unsigned char>(text[i]) & 0x3FU);
    };

    const auto lead = static_cast<unsigned char>(*text);
    if (lead < 0x80) return {lead, 1};
    if (lead < 0xC2 || lead > 0xF4 || !continues(1)) return {0, 0};
    if (lead < 0xE0) return {(lead & 0x1FU) << 6 | six_bits(1), 2};
    if (!continues(2)) return {0, 0};
    if (lead < 0xF0) {
        const char32_t code_point = (lead & 0x0FU) << 12 | six_bits(1) << 6 | six_bits(2);
        const bool valid = code_point >= 0x800 && (code_point < 0xD800 || code_point > 0xDFFF);
        return {code_point, valid ? 3U : 0U};
    }
    if (!continues(3)) return {0, 0};
    const char32_t code_point = (lead & 0x07U) << 18 | six_bits(1) << 12 | six_bits(2) << 6 | six_bits(3);
    const bool valid = code_point >= 0x10000 && code_point <= 0x10FFFF;
    return {code_point, valid ? 4U : 0U};
}

/// Writes a code point, one to four bytes, and returns where they end.
constexpr char* put_utf8(char* at, char32_t code_point) {
    const auto put = [&at](char32_t byte) { *at++ = static_cast<char>(byte); };
    const auto put_six_bits = [&](int shift) { put(0x80 | (code_point >> shift & 0x3F)); };

    if (code_point < 0x80) {
        put(code_point);
        return at;
    }
    if (code_point < 0x800) {
        put(0xC0 | code_point >> 6);
    } else if (code_point < 0x10000) {
        put(0xE0 | code_point >> 12);
        put_six_bits(6);
    } else {
        put(0xF0 | code_point >> 18);
        put_six_bits(12);
        put_six_bits(6);
    }
    put_six_bits(0);
    return at;
}

/// The code points of `text`. A byte that is not part of valid UTF-8 becomes 0xDC00 + byte, so that nothing
/// is lost.
std::u32string decode_utf8(std::string_view text);

/// Whether a code point that decode_utf8 gave stands for a byte that is not part of valid UTF-8.
constexpr bool is_stray_byte(char32_t code_point) { return code_point >= 0xDC80 && code_point <= 0xDCFF; }

/// The reverse of decode_utf8, stray bytes included.
std::string encode_utf8(std::u32string_view code_points);

bool is_valid_utf8(std::string_view text);

/// How many characters `text` has, which is valid.
std::size_t count_characters(std::string_view text);

/// The beginning of `text`, at most `most_bytes` long, no character of it cut through.
std::string_view whole_characters(std::string_view text, std::size_t most_bytes);

/// Whether `bytes` may be the beginning of a character whose other bytes are still to come.
bool begins_character(std::string_view bytes);

}  // namespace prot
