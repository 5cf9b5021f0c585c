#include "platform/automation/utf8.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace prot {

namespace {

constexpr char32_t stray_base = 0xDC00;

std::size_t length_by_lead(char byte) {
    const auto lead = static_cast<unsigned char>(byte);
    return lead < 0xC2 || lead > 0xF4 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

}  // namespace

std::u32string decode_utf8(std::string_view text) {
    std::u32string code_points;
    code_points.reserve(text.size());
    const char* const end = text.data() + text.size();
    for (const char* at = text.data(); at != end;) {
        const auto [code_point, length] = utf8_sequence(at, end);
        code_points.push_back(length > 0 ? code_point : stray_base + static_cast<unsigned char>(*at));
        at += std::max<std::size_t>(length, 1);
    }
    return code_points;
}

std::string encode_utf8(std::u32string_view code_points) {
    std::string text;
    text.reserve(code_points.size());
    for (const char32_t c : code_points) {
        char bytes[4];
        if (is_stray_byte(c))
            text += static_cast<char>(c - stray_base);
        else
            text.append(bytes, put_utf8(bytes, c));
    }
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
        const std::size_t length = utf8_sequence(text.data(), text.data() + text.size()).length;
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

std::size_t count_characters(std::string_view text) {
    return text.size() - static_cast<std::size_t>(std::ranges::count_if(text, continues_character));
}

std::string_view whole_characters(std::string_view text, std::size_t most_bytes) {
    if (text.size() <= most_bytes) return text;
    while (most_bytes > 0 && continues_character(text[most_bytes])) --most_bytes;
    return text.substr(0, most_bytes);
}

bool begins_character(std::string_view bytes) {
    return !bytes.empty() && bytes.size() < length_by_lead(bytes.front()) &&
           std::ranges::all_of(bytes.substr(1), continues_character);
}

}  // namespace prot
