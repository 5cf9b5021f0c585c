#pragma once

#include <cstddef>

namespace prot {

/// One character as UTF-8 writes it.
struct Utf8Sequence {
    char32_t code_point;
    std::size_t length;  ///< in bytes, 1 to 4; 0: what stands there is not valid UTF-8
};

/// The character that begins at `text`, which is before `end`. Valid is what RFC 3629 defines: shortest
/// forms, no surrogates, nothing above U+10FFFF.
inline Utf8Sequence utf8_sequence(const char* text, const char* end) {
    const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const auto available = static_cast<std::size_t>(end - text);
    const auto continues = [&](std::size_t i) { return i < available && (byte(i) & 0xC0U) == 0x80U; };
    const auto six_bits = [&](std::size_t i) { return static_cast<char32_t>(byte(i) & 0x3FU); };

    const unsigned char lead = byte(0);
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

}  // namespace prot
