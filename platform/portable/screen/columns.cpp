#include "platform/portable/screen/columns.h"

#include <algorithm>
#include <cwchar>

#include "platform/automation/utf8.h"

namespace prot {

namespace {

constexpr char32_t ellipsis = U'…';

bool is_control(char32_t c) { return c < 0x20 || (c >= 0x7F && c < 0xA0); }

int total_columns(std::u32string_view text) {
    int width = 0;
    for (const char32_t c : text) width += columns(c);
    return width;
}

/// How many characters of `text` fit into `width`; at least one.
std::size_t fitting(std::u32string_view text, int width) {
    std::size_t count = 0;
    for (int used = 0; count < text.size() && (used += columns(text[count])) <= width;) ++count;
    return std::max<std::size_t>(count, 1);
}

/// Where to break `line`, which is too wide: behind the last word that fits.
std::size_t break_at(std::u32string_view line, std::size_t indent, int width) {
    const std::size_t fits = fitting(line, width);
    const std::size_t blank = line.substr(0, fits + 1).rfind(U' ');
    return blank == std::u32string_view::npos || blank <= indent ? fits : blank;
}

void wrap_line(std::u32string line, int width, std::vector<std::string>& lines) {
    std::size_t indent = std::min(line.find_first_not_of(U' '), line.size());
    if (static_cast<int>(indent) * 2 > width) indent = 0;
    while (total_columns(std::u32string_view(line)) > width) {
        const std::size_t end = break_at(line, indent, width);
        lines.push_back(encode_utf8(line.substr(0, end)));
        const std::size_t next = std::min(line.find_first_not_of(U' ', end), line.size());
        line = std::u32string(indent, U' ') + line.substr(next);
    }
    lines.push_back(encode_utf8(line));
}

}  // namespace

int columns(char32_t character) {
    const int width = wcwidth(static_cast<wchar_t>(character));
    return width < 0 ? 1 : width;
}

int columns(std::string_view text) { return total_columns(std::u32string_view(decode_utf8(text))); }

std::string printable(std::string_view text) {
    std::u32string characters = decode_utf8(text);
    std::ranges::replace_if(
        characters, [](char32_t c) { return is_control(c) || is_stray_byte(c); }, U'?');
    return encode_utf8(characters);
}

std::string cut_to(std::string_view text, int width) {
    std::u32string characters = decode_utf8(text);
    if (total_columns(std::u32string_view(characters)) <= width) return std::string(text);
    if (width <= 0) return {};
    while (!characters.empty() && total_columns(std::u32string_view(characters)) >= width)
        characters.pop_back();
    return encode_utf8(characters + ellipsis);
}

std::vector<std::string> wrapped(std::string_view text, int width) {
    if (text.ends_with('\n')) text.remove_suffix(1);
    std::vector<std::string> lines;
    for (;;) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        if (line.ends_with('\r')) line.remove_suffix(1);
        wrap_line(decode_utf8(printable(line)), width, lines);
        if (end == std::string_view::npos) return lines;
        text.remove_prefix(end + 1);
    }
}

}  // namespace prot
