#pragma once

#include <string>
#include <string_view>

/// Text is UTF-8 inside and UTF-16 at the border of the system; it is converted here only.
namespace prot {

/// UTF-16 of `utf8`. What is not valid UTF-8 becomes U+FFFD.
std::wstring to_wide(std::string_view utf8);

/// UTF-8 of `utf16`. Half a surrogate pair becomes U+FFFD.
std::string to_utf8(std::wstring_view utf16);

/// to_utf8 for many texts one after another, into memory of its own that is used again.
class Utf8Converter {
public:
    /// Valid until the next call.
    std::string_view convert(std::wstring_view utf16);

private:
    std::string buffer_;
};

}  // namespace prot
