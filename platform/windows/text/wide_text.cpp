#include "platform/windows/text/wide_text.h"

#include "platform/automation/utf8.h"

namespace prot {

namespace {

bool is_surrogate(wchar_t unit) { return unit >= 0xD800 && unit <= 0xDFFF; }
bool is_low_surrogate(wchar_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

char32_t code_point_of(wchar_t high, wchar_t low) {
    return 0x10000 + ((static_cast<char32_t>(high) - 0xD800) << 10) + (static_cast<char32_t>(low) - 0xDC00);
}

}  // namespace

std::wstring to_wide(std::string_view utf8) {
    std::wstring wide;
    wide.reserve(utf8.size());
    for (char32_t code_point : decode_utf8(utf8)) {
        if (is_stray_byte(code_point)) code_point = replacement_character;
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
        if (!is_surrogate(unit))
            end = put_utf8(end, unit);
        else if (is_high_surrogate(unit) && i + 1 < utf16.size() && is_low_surrogate(utf16[i + 1]))
            end = put_utf8(end, code_point_of(unit, utf16[++i]));
        else
            end = put_utf8(end, replacement_character);
    }
    return {buffer_.data(), static_cast<std::size_t>(end - buffer_.data())};
}

}  // namespace prot
