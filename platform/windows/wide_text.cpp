#include "platform/windows/wide_text.h"

#include "platform/automation/utf8.h"

namespace prot {

namespace {

constexpr char32_t replacement = 0xFFFD;

bool is_surrogate(char32_t code_point) { return code_point >= 0xD800 && code_point <= 0xDFFF; }
bool is_high(wchar_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool is_low(wchar_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

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

std::string to_utf8(std::wstring_view utf16) {
    std::u32string code_points;
    code_points.reserve(utf16.size());
    for (std::size_t i = 0; i < utf16.size(); ++i) {
        const wchar_t unit = utf16[i];
        if (is_high(unit) && i + 1 < utf16.size() && is_low(utf16[i + 1])) {
            code_points.push_back(0x10000 + ((static_cast<char32_t>(unit) - 0xD800) << 10) +
                                  (static_cast<char32_t>(utf16[++i]) - 0xDC00));
        } else {
            code_points.push_back(is_high(unit) || is_low(unit) ? replacement : static_cast<char32_t>(unit));
        }
    }
    return encode_utf8(code_points);
}

}  // namespace prot
