#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace prot::fuzz {

struct CsvCell {
    std::string text;
    bool quoted = false;
};

using CsvLine = std::vector<CsvCell>;

/// Reads CSV lines strictly as RFC 4180 writes them, with a separator of one's own: every line ends in CR LF;
/// quotes, CR and LF stand in quoted cells only, quotes doubled there.
class Rfc4180Reader {
public:
    Rfc4180Reader(std::string_view bytes, std::string_view separator) : rest_(bytes), separator_(separator) {}

    /// Nothing when the bytes are no such lines.
    std::optional<std::vector<CsvLine>> read() {
        std::vector<CsvLine> lines;
        while (!rest_.empty()) {
            CsvLine line;
            do {
                std::optional<CsvCell> cell = take('"') ? quoted_cell() : plain_cell();
                if (!cell) return std::nullopt;
                line.push_back(std::move(*cell));
            } while (take(separator_));
            if (!take('\r') || !take('\n')) return std::nullopt;
            lines.push_back(std::move(line));
        }
        return lines;
    }

private:
    bool take(char byte) { return take(std::string_view(&byte, 1)); }

    bool take(std::string_view bytes) {
        if (!rest_.starts_with(bytes)) return false;
        rest_.remove_prefix(bytes.size());
        return true;
    }

    std::optional<CsvCell> plain_cell() {
        const std::size_t end = std::min(rest_.find(separator_), rest_.find_first_of("\"\r\n"));
        if (end == std::string_view::npos) return std::nullopt;
        CsvCell cell{std::string(rest_.substr(0, end)), false};
        rest_.remove_prefix(end);
        return cell;
    }

    std::optional<CsvCell> quoted_cell() {
        CsvCell cell{{}, true};
        while (!rest_.empty()) {
            const char byte = rest_.front();
            rest_.remove_prefix(1);
            if (byte == '"' && !take('"')) return cell;
            cell.text += byte;
        }
        return std::nullopt;
    }

    std::string_view rest_;
    const std::string_view separator_;
};

}  // namespace prot::fuzz
