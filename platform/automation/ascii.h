#pragma once

/// What a byte of text is as ASCII, in any locale.
namespace prot {

constexpr bool is_ascii(char byte) { return static_cast<unsigned char>(byte) < 0x80; }
constexpr bool is_ascii_digit(char byte) { return byte >= '0' && byte <= '9'; }
constexpr bool is_ascii_letter(char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

}  // namespace prot
