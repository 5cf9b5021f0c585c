#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace prot {

/// The line buffer of a section: always all of its cells, handed whole to the CSV writer.
class CsvLine {
public:
    explicit CsvLine(std::size_t cells) : cells_(cells) {}

    std::string& operator[](std::size_t cell) { return cells_[cell]; }
    std::span<const std::string> cells() const { return cells_; }

    /// Empties every cell.
    void clear() {
        for (std::string& cell : cells_) cell.clear();
    }

private:
    std::vector<std::string> cells_;
};

}  // namespace prot
