#include "platform/portable/csv/csv_encoding.h"

#include <algorithm>
#include <iterator>

#include "platform/automation/ascii.h"
#include "platform/automation/text_parts.h"
#include "platform/automation/utf8.h"

namespace prot {

namespace {

constexpr char guard = '\'';

// Longer cells are values, which do not come again in the next line.
constexpr std::size_t longest_kept = 100;

enum Care : std::uint8_t {
    needs_quotes = 1,
    needs_doubling = 2,
    beyond_ascii = 4,
};

// The characters of the bytes 0x80 to 0x9F; 0 where windows-1252 has none. All other bytes are those of ISO
// 8859-1.
constexpr char32_t windows_1252_block[] = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178,
};
static_assert(std::size(windows_1252_block) == 32);

// -1 when windows-1252 has no byte for the character.
int windows_1252_byte(char32_t code_point) {
    if (code_point < 0x80 || (code_point >= 0xA0 && code_point <= 0xFF)) return static_cast<int>(code_point);
    const auto* const found =
        std::find(std::begin(windows_1252_block), std::end(windows_1252_block), code_point);
    if (found == std::end(windows_1252_block)) return -1;
    return static_cast<int>(0x80 + (found - std::begin(windows_1252_block)));
}

/// Calls `use` with each character of `text`, or byte that is none, and its windows-1252 byte; -1 without
/// one.
template <typename Use>
void for_each_character(std::string_view text, Use use) {
    const char* const end = text.data() + text.size();
    for (const char* at = text.data(); at != end;) {
        const Utf8Sequence character = utf8_sequence(at, end);
        const std::size_t length = std::max<std::size_t>(character.length, 1);
        use(std::string_view(at, character.length),
            character.length == 0 ? -1 : windows_1252_byte(character.code_point));
        at += length;
    }
}

bool begins_like_formula(std::string_view cell) {
    if (cell.empty()) return false;
    const char first = cell.front();
    return first == '=' || first == '+' || first == '-' || first == '@' || first == '\t' || first == '\r';
}

bool is_number(std::string_view cell) {
    if (!cell.empty() && (cell.front() == '+' || cell.front() == '-')) cell.remove_prefix(1);
    std::size_t digits = 0;
    std::size_t marks = 0;
    for (const char c : cell) {
        if (is_ascii_digit(c)) {
            ++digits;
        } else if (c == '.' || c == ',') {
            ++marks;
        } else {
            return false;
        }
    }
    return digits > 0 && marks <= 1;
}

/// Whether a spreadsheet may take `cell` for a formula and run it: it begins with = + - @ TAB or CR and is
/// not a number (optional sign, digits, at most one point or comma, at least one digit).
bool looks_like_formula(std::string_view cell) { return begins_like_formula(cell) && !is_number(cell); }

/// Each byte that is not part of a valid character becomes U+FFFD.
void append_valid_utf8(std::string_view text, std::string& out) {
    const char* const end = text.data() + text.size();
    for (const char* at = text.data(); at != end;) {
        const std::size_t length = utf8_sequence(at, end).length;
        if (length == 0) {
            char replacement[4];
            out.append(replacement, put_utf8(replacement, replacement_character));
            ++at;
        } else {
            out.append(at, length);
            at += length;
        }
    }
}

}  // namespace

std::string_view byte_order_mark(CsvEncoding encoding) {
    return encoding == CsvEncoding::utf8_bom ? utf8_byte_order_mark : "";
}

bool append_windows_1252(std::string_view text, std::string& out) {
    bool replaced = false;
    for_each_character(text, [&](std::string_view, int byte) {
        replaced |= byte < 0;
        out += byte < 0 ? '?' : static_cast<char>(byte);
    });
    return replaced;
}

CsvLineEncoder::CsvLineEncoder(std::string_view separator, CsvEncoding encoding, bool raw_cells)
    : separator_(separator), windows_1252_(encoding == CsvEncoding::windows_1252), guards_(!raw_cells) {
    if (windows_1252_) {
        separator_.clear();
        append_windows_1252(separator, separator_);
    }
    for (std::size_t byte = 0x80; byte < 0x100; ++byte) cares_[byte] = beyond_ascii;
    const auto care = [this](char byte) -> std::uint8_t& { return cares_[static_cast<unsigned char>(byte)]; };
    for (const char byte : {'\r', '\n'}) care(byte) |= needs_quotes;
    if (separator_.size() == 1) care(separator_[0]) |= needs_quotes;
    care('"') = needs_quotes | needs_doubling;
}

// Without an early end, so that no branch can be guessed wrong; in pairs, for speed.
inline std::uint8_t CsvLineEncoder::cares_of(std::string_view cell) const {
    const auto care = [this](char byte) { return cares_[static_cast<unsigned char>(byte)]; };
    const char* at = cell.data();
    const char* const end = at + cell.size();
    std::uint8_t cares = 0;
    std::uint8_t more = 0;
    for (; end - at >= 4; at += 4) {
        cares |= static_cast<std::uint8_t>(care(at[0]) | care(at[1]));
        more |= static_cast<std::uint8_t>(care(at[2]) | care(at[3]));
    }
    for (; at != end; ++at) cares |= care(*at);
    return cares | more;
}

// Puts `cell` into the encoding, where it is not yet. Valid until the next call.
bool CsvLineEncoder::encode(std::string_view& cell) {
    encoded_.clear();
    if (windows_1252_) {
        if (append_windows_1252(cell, encoded_)) note_replaced(cell);
    } else if (is_valid_utf8(cell)) {
        return false;
    } else {
        append_valid_utf8(cell, encoded_);
    }
    cell = encoded_;
    return true;
}

void CsvLineEncoder::note_replaced(std::string_view cell) {
    for_each_character(cell, [this](std::string_view character, int byte) {
        if (byte >= 0) return;
        ++replaced_characters_.count;
        std::vector<ReplacedCharacters::Place>& places = replaced_characters_.first;
        if (places.size() < ReplacedCharacters::most_places)
            places.push_back({line_, column_, std::string(character.empty() ? "\uFFFD" : character)});
    });
}

/// Of several bytes, which no single byte of a cell gives away.
bool CsvLineEncoder::holds_separator(std::string_view cell) const {
    return separator_.size() > 1 && cell.find(separator_) != std::string_view::npos;
}

void CsvLineEncoder::append_with_care(std::string_view cell, std::uint8_t cares, std::string& out) {
    if ((cares & beyond_ascii) != 0 && encode(cell)) cares = cares_of(cell);
    const bool guarded = guards_ && looks_like_formula(cell);
    const bool quoted =
        (cares & needs_quotes) != 0 || holds_separator(cell) || (guarded && separator_.front() == guard);
    if (quoted) out += '"';
    if (guarded) out += guard;
    if ((cares & needs_doubling) != 0) {
        append_doubled(out, cell, '"');
    } else {
        out += cell;
    }
    if (quoted) out += '"';
}

void CsvLineEncoder::append_line(std::span<const std::string> cells, std::string& out) {
    ++line_;
    if (above_.size() < cells.size()) above_.resize(cells.size());
    for (std::size_t index = 0; index < cells.size(); ++index) {
        if (index > 0) out += separator_;
        const std::string& cell = cells[index];
        CellAbove& above = above_[index];
        if (above.cell != cell) {
            column_ = index + 1;
            append_cell(cell, above, out);
        } else {
            out += above.is_plain ? cell : above.bytes;
        }
    }
    out += "\r\n";
}

void CsvLineEncoder::append_cell(const std::string& cell, CellAbove& above, std::string& out) {
    const std::uint8_t cares = cares_of(cell);
    const bool is_plain = cares == 0 && !begins_like_formula(cell);  // as most cells are
    const std::size_t start = out.size();
    const std::int64_t replaced = replaced_characters_.count;
    if (is_plain)
        out += cell;
    else
        append_with_care(cell, cares, out);
    // What was replaced is counted in every line.
    const bool kept = cell.size() <= longest_kept && replaced_characters_.count == replaced;
    above.is_plain = is_plain || !kept;
    above.cell.assign(cell, 0, kept ? cell.size() : 0);
    above.bytes.assign(out, start, above.is_plain ? 0 : std::string::npos);
}

}  // namespace prot
