#include "platform/automation/utf8.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace prot {

namespace {

constexpr char32_t escape_base = 0xDC00;

/// One decoded code point and its length in bytes; length 0 when the bytes at the start of `text` are not
/// UTF-8.
struct Decoded {
    char32_t code_point;
    std::size_t length;
};

unsigned char byte_at(std::string_view text, std::size_t index) {
    return static_cast<unsigned char>(text[index]);
}

Decoded decode_one(std::string_view text) {
    const unsigned char first = byte_at(text, 0);
    if (first < 0x80) return {first, 1};
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4 || text.size() < length) return {0, 0};
    char32_t code_point = static_cast<char32_t>(first & (0xFF >> (length + 1)));
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte_at(text, i) & 0xC0) != 0x80) return {0, 0};
        code_point = code_point << 6 | (byte_at(text, i) & 0x3FU);
    }
    constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = code_point >= 0xD800 && code_point <= 0xDFFF;
    if (code_point < smallest[length] || surrogate || code_point > 0x10FFFF) return {0, 0};
    return {code_point, length};
}

void append(std::string& text, char32_t c) {
    const auto put = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
    if (c >= escape_base + 0x80 && c <= escape_base + 0xFF) {
        put(c - escape_base);
    } else if (c < 0x80) {
        put(c);
    } else if (c < 0x800) {
        put(0xC0 | c >> 6);
        put(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        put(0xE0 | c >> 12);
        put(0x80 | (c >> 6 & 0x3F));
        put(0x80 | (c & 0x3F));
    } else {
        put(0xF0 | c >> 18);
        put(0x80 | (c >> 12 & 0x3F));
        put(0x80 | (c >> 6 & 0x3F));
        put(0x80 | (c & 0x3F));
    }
}

}  // namespace

std::u32string decode_utf8(std::string_view text) {
    std::u32string code_points;
    code_points.reserve(text.size());
    while (!text.empty()) {
        const Decoded one = decode_one(text);
        code_points.push_back(one.length > 0 ? one.code_point : escape_base + byte_at(text, 0));
        text.remove_prefix(one.length > 0 ? one.length : 1);
    }
    return code_points;
}

std::string encode_utf8(std::u32string_view code_points) {
    std::string text;
    text.reserve(code_points.size());
    for (const char32_t c : code_points) append(text, c);
    return text;
}

bool is_valid_utf8(std::string_view text) {
    constexpr std::uint64_t high_bits = 0x8080808080808080;
    while (!text.empty()) {
        // Most text is ASCII: eight bytes at a time.
        for (std::uint64_t eight; text.size() >= sizeof eight; text.remove_prefix(sizeof eight)) {
            std::memcpy(&eight, text.data(), sizeof eight);
            if (eight & high_bits) break;
        }
        if (text.empty()) return true;
        const Decoded one = decode_one(text);
        if (one.length == 0) return false;
        text.remove_prefix(one.length);
    }
    return true;
}

}  // namespace prot
