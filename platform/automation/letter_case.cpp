#include "platform/automation/letter_case.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "platform/automation/utf8.h"

namespace prot {

namespace {

/// Capitals first, first + step, … last; each one's small letter stands `distance` above it.
struct CaseRange {
    char32_t first, last;
    int step, distance;
};

// clang-format off
constexpr CaseRange case_ranges[] = {
    {0x0041, 0x005A, 1,   32},   // Basic Latin
    {0x00C0, 0x00D6, 1,   32},   // Latin-1
    {0x00D8, 0x00DE, 1,   32},
    {0x0100, 0x012E, 2,    1},   // Latin Extended-A
    {0x0132, 0x0136, 2,    1},
    {0x0139, 0x0147, 2,    1},
    {0x014A, 0x0176, 2,    1},
    {0x0178, 0x0178, 1, -121},
    {0x0179, 0x017D, 2,    1},
    {0x01CD, 0x01DB, 2,    1},   // Latin Extended-B
    {0x01DE, 0x01EE, 2,    1},
    {0x01F8, 0x021E, 2,    1},
    {0x0222, 0x0232, 2,    1},
    {0x0386, 0x0386, 1,   38},   // Greek
    {0x0388, 0x038A, 1,   37},
    {0x038C, 0x038C, 1,   64},
    {0x038E, 0x038F, 1,   63},
    {0x0391, 0x03A1, 1,   32},
    {0x03A3, 0x03AB, 1,   32},
    {0x0400, 0x040F, 1,   80},   // Cyrillic
    {0x0410, 0x042F, 1,   32},
    {0x0460, 0x0480, 2,    1},
    {0x048A, 0x04BE, 2,    1},
    {0x04C1, 0x04CD, 2,    1},
    {0x04D0, 0x052E, 2,    1},
    {0x0531, 0x0556, 1,   48},   // Armenian
    {0x1E00, 0x1E94, 2,    1},   // Latin Extended Additional
    {0x1EA0, 0x1EFE, 2,    1},
};
// clang-format on

constexpr bool holds(const CaseRange& range, char32_t c) {
    return c >= range.first && c <= range.last && (c - range.first) % static_cast<char32_t>(range.step) == 0;
}

constexpr char32_t moved(char32_t c, int distance) {
    return static_cast<char32_t>(static_cast<int>(c) + distance);
}

constexpr char32_t lower_by_range(char32_t c) {
    const auto range = std::ranges::find_if(case_ranges, [c](const CaseRange& r) { return holds(r, c); });
    return range == std::end(case_ranges) ? c : moved(c, range->distance);
}

constexpr char32_t upper_by_range(char32_t c) {
    const auto range = std::ranges::find_if(
        case_ranges, [c](const CaseRange& r) { return holds(r, moved(c, -r.distance)); });
    return range == std::end(case_ranges) ? c : moved(c, -range->distance);
}

/// What nearly all text consists of, Basic Latin and Latin-1, looked up beforehand.
using FirstBlocks = std::array<char32_t, 0x100>;

constexpr FirstBlocks folded_by(char32_t (*fold_by_range)(char32_t)) {
    FirstBlocks table{};
    for (char32_t c = 0; c < table.size(); ++c) table[c] = fold_by_range(c);
    return table;
}

constexpr FirstBlocks lower_of = folded_by(lower_by_range);
constexpr FirstBlocks upper_of = folded_by(upper_by_range);

constexpr std::ptrdiff_t utf8_length(char32_t c) {
    char bytes[4] = {};
    return put_utf8(bytes, c) - bytes;
}

/// In place: letters keep their length in either case.
template <char32_t (*Fold)(char32_t)>
std::string fold(std::string_view text) {
    static_assert(std::ranges::all_of(case_ranges, [](const CaseRange& range) {
        return utf8_length(range.first) == utf8_length(moved(range.last, range.distance)) &&
               utf8_length(range.last) == utf8_length(moved(range.first, range.distance));
    }));
    std::string folded(text);
    const char* const end = folded.data() + folded.size();
    for (char* at = folded.data(); at != end;) {
        const auto [code_point, length] = utf8_sequence(at, end);
        at = length > 0 ? put_utf8(at, Fold(code_point)) : at + 1;
    }
    return folded;
}

}  // namespace

char32_t to_lower(char32_t c) { return c < lower_of.size() ? lower_of[c] : lower_by_range(c); }

char32_t to_upper(char32_t c) { return c < upper_of.size() ? upper_of[c] : upper_by_range(c); }

std::string to_lower(std::string_view text) { return fold<to_lower>(text); }

std::string to_upper(std::string_view text) { return fold<to_upper>(text); }

bool upper_equals(std::string_view text, std::string_view other) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if (byte >= 0x80) return to_upper(text) == other;
        const bool small = byte >= 'a' && byte <= 'z';
        if (i >= other.size() || static_cast<char>(small ? byte - 'a' + 'A' : byte) != other[i]) return false;
    }
    return text.size() == other.size();
}

}  // namespace prot
