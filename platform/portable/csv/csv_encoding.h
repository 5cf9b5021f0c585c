#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace prot {

enum class CsvEncoding { utf8_bom, utf8, windows_1252 };

/// Characters that an encoding cannot hold, so that they became question marks: all counted, the first
/// listed.
struct ReplacedCharacters {
    static constexpr std::size_t most_places = 1000;

    struct Place {
        std::int64_t line = 0;   ///< of the file, from 1; as a spreadsheet counts them
        std::size_t column = 0;  ///< from 1
        std::string character;   ///< as UTF-8; what was no character is U+FFFD
        bool operator==(const Place&) const = default;
    };

    std::int64_t count = 0;
    std::vector<Place> first;
};

/// The bytes of CSV lines. Cells come as UTF-8. A line ends in CR LF; a cell is quoted only when it holds the
/// separator, a double quote, CR or LF, quotes inside doubled (RFC 4180).
class CsvLineEncoder {
public:
    /// separator: one character as UTF-8, which the encoding holds; not a quote, CR or LF. raw_cells: formula
    /// guards are left out.
    CsvLineEncoder(std::string_view separator, CsvEncoding encoding, bool raw_cells);

    /// Appends one line to `out`.
    void append_line(std::span<const std::string> cells, std::string& out);

    /// What windows-1252 could not hold of the lines so far.
    const ReplacedCharacters& replaced_characters() const { return replaced_characters_; }

private:
    /// A cell of the last line, and its bytes where they are others. Most cells of a line are those of the
    /// line above.
    struct CellAbove {
        std::string cell, bytes;
        bool is_plain = true;
    };

    void append_cell(const std::string& cell, CellAbove& above, std::string& out);
    void note_replaced(std::string_view cell);
    void append_with_care(std::string_view cell, std::uint8_t cares, std::string& out);
    std::uint8_t cares_of(std::string_view cell) const;
    bool encode(std::string_view& cell);
    bool holds_separator(std::string_view cell) const;

    std::array<std::uint8_t, 256> cares_{};  // what the writing has to care for when a cell holds the byte
    std::string separator_;                  // in the file's encoding
    bool windows_1252_;
    bool guards_;
    ReplacedCharacters replaced_characters_;
    std::int64_t line_ = 0;
    std::size_t column_ = 0;  // of the cell at hand, from 1
    std::string encoded_;

    std::vector<CellAbove> above_;
};

/// What a file of this encoding begins with; empty for most.
std::string_view byte_order_mark(CsvEncoding encoding);

/// Appends `text`, which is UTF-8, in windows-1252. What that cannot hold, invalid bytes included, becomes
/// "?"; then the result is true.
bool append_windows_1252(std::string_view text, std::string& out);

}  // namespace prot
