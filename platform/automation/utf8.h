#pragma once

#include <string>
#include <string_view>

namespace prot {

/// The code points of `text`. A byte that is not part of valid UTF-8 becomes 0xDC00 + byte, so that nothing
/// is lost.
std::u32string decode_utf8(std::string_view text);

/// The reverse of decode_utf8, escaped bytes included.
std::string encode_utf8(std::u32string_view code_points);

/// Whether all of `text` is UTF-8 as RFC 3629 defines it: shortest forms, no surrogates, nothing above
/// U+10FFFF.
bool is_valid_utf8(std::string_view text);

}  // namespace prot
