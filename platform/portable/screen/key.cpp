#include "platform/portable/screen/key.h"

#include <algorithm>
#include <cstdlib>

#include "platform/automation/letter_case.h"
#include "platform/automation/utf8.h"

namespace prot {

namespace {

using Kind = Key::Kind;

constexpr char escape = '\x1B';

/// A key and how many bytes it took; none: more bytes are needed to tell.
struct Parsed {
    Key key;
    std::size_t length = 0;
};

struct FinalRow {
    char final;
    Kind kind;
    char32_t number = 0;
};
struct NumberRow {
    int parameter;
    Kind kind;
    char32_t number = 0;
};
struct CodeRow {
    Kind kind;
    int code;
};

// clang-format off
/// ESC [ … letter and ESC O letter.
constexpr FinalRow final_rows[] = {
    {'A', Kind::up}, {'B', Kind::down}, {'C', Kind::right}, {'D', Kind::left}, {'H', Kind::home}, {'F', Kind::end},
    {'M', Kind::enter}, {'P', Kind::function, 1}, {'Q', Kind::function, 2}, {'R', Kind::function, 3},
    {'S', Kind::function, 4}, {'Z', Kind::tab},
};
/// ESC [ number ~.
constexpr NumberRow number_rows[] = {
    {1, Kind::home}, {2, Kind::insert}, {3, Kind::remove}, {4, Kind::end}, {5, Kind::page_up}, {6, Kind::page_down},
    {7, Kind::home}, {8, Kind::end}, {11, Kind::function, 1}, {12, Kind::function, 2}, {13, Kind::function, 3},
    {14, Kind::function, 4}, {15, Kind::function, 5}, {17, Kind::function, 6}, {18, Kind::function, 7},
    {19, Kind::function, 8}, {20, Kind::function, 9}, {21, Kind::function, 10}, {23, Kind::function, 11},
    {24, Kind::function, 12},
};
constexpr CodeRow code_rows[] = {
    {Kind::backspace, 8}, {Kind::tab, 9}, {Kind::enter, 13}, {Kind::escape, 27}, {Kind::page_up, 33},
    {Kind::page_down, 34}, {Kind::end, 35}, {Kind::home, 36}, {Kind::left, 37}, {Kind::up, 38}, {Kind::right, 39},
    {Kind::down, 40}, {Kind::insert, 45}, {Kind::remove, 46},
};
// clang-format on

/// The modifiers as xterm numbers them: one more than the sum of 1 shift, 2 alt and 4 control.
void add_modifiers(Key& key, int parameter) {
    const int bits = parameter - 1;
    if (parameter < 2 || parameter > 16) return;
    key.shift = (bits & 1) != 0;
    key.alt = (bits & 2) != 0;
    key.control = (bits & 4) != 0;
}

Key key_of_sequence(int first, int second, char final) {
    Key key;
    if (final == '~') {
        const auto* row = std::ranges::find(number_rows, first, &NumberRow::parameter);
        if (row != std::end(number_rows)) key = {row->kind, row->number};
    } else {
        const auto* row = std::ranges::find(final_rows, final, &FinalRow::final);
        if (row != std::end(final_rows)) key = {row->kind, row->number};
    }
    add_modifiers(key, second);
    if (final == 'Z') key.shift = true;
    return key;
}

/// ESC [ parameters final.
std::optional<Parsed> control_sequence(const std::string& bytes) {
    constexpr std::size_t start = 2;
    if (bytes.size() > start && bytes[start] == '[') {  // the Linux console's F1 to F5
        if (bytes.size() == start + 1) return std::nullopt;
        const int number = bytes[start + 1] - 'A' + 1;
        const bool known = number >= 1 && number <= 5;
        return Parsed{known ? Key{Kind::function, static_cast<char32_t>(number)} : Key{}, start + 2};
    }
    std::size_t end = start;
    while (end < bytes.size() && bytes[end] >= '0' && bytes[end] <= '?') ++end;
    if (end == bytes.size()) return std::nullopt;
    const std::string parameters = bytes.substr(start, end - start);
    const std::size_t semicolon = parameters.find(';');
    const int second = semicolon == std::string::npos ? 0 : std::atoi(parameters.c_str() + semicolon + 1);
    return Parsed{key_of_sequence(std::atoi(parameters.c_str()), second, bytes[end]), end + 1};
}

Key key_of_control(char byte) {
    if (byte == '\r' || byte == '\n') return {Kind::enter};
    if (byte == '\t') return {Kind::tab};
    if (byte == '\b' || byte == '\x7F') return {Kind::backspace};
    if (byte >= 1 && byte <= 26)
        return {
            .kind = Kind::character, .character = U'a' + static_cast<char32_t>(byte - 1), .control = true};
    return {};
}

std::optional<Parsed> without_escape(const std::string& bytes, std::size_t start, bool more_may_come) {
    const char* const at = bytes.data() + start;
    const auto lead = static_cast<unsigned char>(*at);
    if (lead < 0x20 || lead == 0x7F) return Parsed{key_of_control(*at), start + 1};
    const Utf8Sequence sequence = utf8_sequence(at, bytes.data() + bytes.size());
    if (sequence.length > 0) return Parsed{{Kind::character, sequence.code_point}, start + sequence.length};
    if (more_may_come && begins_character(std::string_view(bytes).substr(start))) return std::nullopt;
    return Parsed{{}, start + 1};
}

std::optional<Parsed> parse(const std::string& bytes, bool more_may_come) {
    if (bytes[0] != escape) return without_escape(bytes, 0, more_may_come);
    const Parsed lone{{Kind::escape}, 1};
    if (bytes.size() == 1) return more_may_come ? std::nullopt : std::optional(lone);
    if (bytes[1] == escape) return lone;
    std::optional<Parsed> sequence;
    if (bytes[1] == '[') {
        sequence = control_sequence(bytes);
    } else if (bytes[1] == 'O') {
        if (bytes.size() > 2) sequence = Parsed{key_of_sequence(0, 0, bytes[2]), 3};
    } else {
        sequence = without_escape(bytes, 1, more_may_come);
        if (sequence) sequence->key.alt = true;
        return sequence;
    }
    if (sequence || more_may_come) return sequence;
    return Parsed{{.kind = Kind::character, .character = static_cast<char32_t>(bytes[1]), .alt = true}, 2};
}

}  // namespace

KeyStroke key_stroke(const Key& key) {
    KeyStroke stroke{.shift = key.shift, .control = key.control, .alt = key.alt};
    if (key.kind == Kind::function) {
        stroke.code = key_f1 - 1 + static_cast<int>(key.character);
    } else if (key.kind == Kind::character) {
        const char32_t upper = to_upper(key.character);
        const bool has_code =
            upper == U' ' || (upper >= U'0' && upper <= U'9') || (upper >= U'A' && upper <= U'Z');
        stroke.code = has_code ? static_cast<int>(upper) : 0;
    } else if (const auto* row = std::ranges::find(code_rows, key.kind, &CodeRow::kind);
               row != std::end(code_rows)) {
        stroke.code = row->code;
    }
    return stroke;
}

std::optional<Key> KeyDecoder::next(bool more_may_come) {
    if (bytes_.empty()) return std::nullopt;
    const std::optional<Parsed> parsed = parse(bytes_, more_may_come);
    if (!parsed) return std::nullopt;
    bytes_.erase(0, parsed->length);
    return parsed->key;
}

}  // namespace prot
