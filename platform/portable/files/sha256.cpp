#include "platform/portable/files/sha256.h"

namespace prot {

std::string hexadecimal(const unsigned char* bytes, std::size_t count) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        text += digits[bytes[i] >> 4];
        text += digits[bytes[i] & 0xF];
    }
    return text;
}

}  // namespace prot
