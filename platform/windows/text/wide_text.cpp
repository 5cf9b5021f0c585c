#include "platform/windows/text/wide_text.h"

#include "platform/automation/utf16.h"

namespace prot {

std::wstring to_wide(std::string_view utf8) { return to_utf16<wchar_t>(utf8); }

std::string to_utf8(std::wstring_view utf16) { return std::string(Utf8Converter().convert(utf16)); }

std::string_view Utf8Converter::convert(std::wstring_view utf16) {
    if (buffer_.size() / utf8_bytes_of_unit < utf16.size()) buffer_.resize(utf16.size() * utf8_bytes_of_unit);
    const char* const end = put_utf8(buffer_.data(), utf16.data(), utf16.size());
    return {buffer_.data(), static_cast<std::size_t>(end - buffer_.data())};
}

}  // namespace prot
