#include "platform/windows/text/wide_text.h"

#include "platform/automation/utf8.h"

namespace prot {

namespace {

constexpr char32_t replacement = 0xFFFD;

bool is_surrogate(char32_t code_point) { return code_point >= 0xD800 && code_point <= 0xDFFF; }
bool is_high(wchar_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool is_low(wchar_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

char32_t code_point_of(wchar_t high, wchar_t low) {
    return 0x10000 + ((static_cast<char32_t>(high) - 0xD800) << 10) + (static_cast<char32_t>(low) - 0xDC00);
}

/// Writes `c`, which is not ASCII, and returns the end.
char* put(char* end, char32_t c) {
    const auto follow = [&](int shift) { *end++ = static_cast<char>(0x80 | (c >> shift & 0x3F)); };
    if (c < 0x800) {
        *end++ = static_cast<char>(0xC0 | c >> 6);
    } else if (c < 0x10000) {
        *end++ = static_cast<char>(0xE0 | c >> 12);
        follow(6);
    } else {
        *end++ = static_cast<char>(0xF0 | c >> 18);
        follow(12);
        follow(6);
    }
    follow(0);
    return end;
}

}  // namespace

std::wstring to_wide(std::string_view utf8) {
    std::wstring wide;
    wide.reserve(utf8.size());
    for (char32_t code_point : decode_utf8(utf8)) {
        if (is_surrogate(code_point)) code_point = replacement;
        if (code_point < 0x10000) {
            wide.push_back(static_cast<wchar_t>(code_point));
        } else {
            wide.push_back(static_cast<wchar_t>(0xD800 + ((code_point - 0x10000) >> 10)));
            wide.push_back(static_cast<wchar_t>(0xDC00 + ((code_point - 0x10000) & 0x3FF)));
        }
    }
    return wide;
}

std::string to_utf8(std::wstring_view utf16) { return std::string(Utf8Converter().convert(utf16)); }

std::string_view Utf8Converter::convert(std::wstring_view utf16) {
    // Three bytes hold any unit; a pair of units needs four.
    if (buffer_.size() / 3 < utf16.size()) buffer_.resize(utf16.size() * 3);
    char* end = buffer_.data();
    for (std::size_t i = 0; i < utf16.size(); ++i) {
        const wchar_t unit = utf16[i];
        if (unit < 0x80)
            *end++ = static_cast<char>(unit);
        else if (is_high(unit) && i + 1 < utf16.size() && is_low(utf16[i + 1]))
            end = put(end, code_point_of(unit, utf16[++i]));
        else
            end = put(end, is_high(unit) || is_low(unit) ? replacement : static_cast<char32_t>(unit));
    }
    return {buffer_.data(), static_cast<std::size_t>(end - buffer_.data())};
}

}  // namespace prot
