#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/automation/value.h"

namespace prot {

/// One fetched value. Text points into the row set's arena and lives as long as the row set.
class Cell {
public:
    enum class Type : std::uint8_t { null, integer, real, date, text };

    Cell() = default;
    explicit Cell(std::int64_t integer) : type_(Type::integer) { payload_.integer = integer; }
    explicit Cell(double real) : type_(Type::real) { payload_.real = real; }
    explicit Cell(Date date) : type_(Type::date) { payload_.real = date.serial; }
    explicit Cell(std::string_view text) : size_(static_cast<std::uint32_t>(text.size())), type_(Type::text) {
        payload_.text = text.data();
    }

    Type type() const { return type_; }
    bool is_null() const { return type_ == Type::null; }
    std::int64_t integer() const { return payload_.integer; }         ///< Type::integer only
    double real() const { return payload_.real; }                     ///< Type::real only
    Date date() const { return Date{payload_.real}; }                 ///< Type::date only
    std::string_view text() const { return {payload_.text, size_}; }  ///< Type::text only

    /// A copy that owns its text.
    Value value() const;

private:
    union {
        std::int64_t integer;
        double real;
        const char* text;
    } payload_ = {0};
    std::uint32_t size_ = 0;
    Type type_ = Type::null;
};

/// The result of a query: indexed (column, row), both from 0, in the server's order. Compact: 16 bytes a cell
/// in blocks of rows, all texts in one arena, short texts that recur in a column mostly stored once, until
/// rows are first taken away. A result of a row or two, as lookups have, takes little. Move-only.
class RowSet {
public:
    RowSet() = default;
    explicit RowSet(std::size_t columns) : columns_(columns) {}

    bool empty() const { return rows_ == 0; }
    std::size_t columns() const { return columns_; }
    std::size_t rows() const { return rows_; }

    /// The number that the host's own array gave its first row; only what is told to the host counts from it.
    void set_first_row(std::int32_t number) { first_row_ = number; }
    std::int32_t first_row() const { return first_row_; }

    /// Whoever reads columns by index asks for them first. Rows with fewer than `count` columns: automation
    /// error 9 (index out of range). Without a row there is nothing to read, and all is well.
    void require_columns(std::size_t count) const;

    /// A column and a row that exist.
    const Cell& at(std::size_t column, std::size_t row) const {
        return blocks_[row / rows_per_block][(row % rows_per_block) * columns_ + column];
    }

    /// Takes all rows away and keeps most of their room for the next ones. Their cells are gone.
    void clear();

    /// The size of all texts, in bytes.
    std::size_t text_bytes() const { return text_bytes_; }

    /// Appends a row of Null; the calls below fill it.
    void add_row();
    void set(std::size_t column, std::int64_t integer) { cell(column) = Cell(integer); }
    void set(std::size_t column, double real) { cell(column) = Cell(real); }
    void set(std::size_t column, Date date) { cell(column) = Cell(date); }
    /// Copies `text` (less than 4 GiB) into the arena.
    void set(std::size_t column, std::string_view text);
    void set(std::size_t column, const Cell& value);
    void set(std::size_t column, const Value& value);

private:
    static constexpr std::size_t rows_per_block = 256;
    static constexpr std::size_t first_rows = 2;  // the first block starts with so many
    static constexpr std::size_t recent_slots = 64;
    std::string_view stored(std::size_t column, std::string_view text);
    void make_room();
    void add_cells(std::size_t rows);
    void widen_first_block();
    Cell& cell(std::size_t column) { return last_row_[column]; }
    const char* store(std::string_view text);
    char* add_block(std::size_t size);
    void keep_one_arena_block();

    struct ArenaBlock {
        std::unique_ptr<char[]> bytes;
        std::size_t size;
    };

    std::size_t columns_ = 0;
    std::size_t rows_ = 0;
    std::size_t room_ = 0;  // for so many rows there are blocks
    std::int32_t first_row_ = 0;
    std::vector<std::unique_ptr<Cell[]>> blocks_;
    Cell* last_row_ = nullptr;
    std::vector<std::string_view> recent_;  // recent_slots short texts for each column, by a hash
    std::vector<ArenaBlock> arena_;
    char* free_ = nullptr;
    std::size_t free_size_ = 0;
    std::size_t next_block_ = 1024;  // arena blocks grow up to a bound
    std::size_t text_bytes_ = 0;
};

}  // namespace prot
