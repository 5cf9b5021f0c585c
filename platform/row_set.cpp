#include "platform/row_set.h"

#include <algorithm>
#include <cstring>

namespace prot {

namespace {
constexpr std::size_t arena_block = std::size_t{1} << 20;
constexpr std::size_t large_text = arena_block / 16;  // from here on a text has a block of its own
}  // namespace

Value Cell::value() const {
    switch (type_) {
        case Type::integer:
            return integer();
        case Type::real:
            return real();
        case Type::date:
            return date();
        case Type::text:
            return std::string(text());
        case Type::null:
            break;
    }
    return {};
}

void RowSet::add_row() {
    if (rows_ == 0)
        add_cells(first_rows);
    else if (rows_ == first_rows)
        widen_first_block();
    else if (rows_ % rows_per_block == 0)
        add_cells(rows_per_block);
    last_row_ = blocks_.back().get() + (rows_ % rows_per_block) * columns_;
    ++rows_;
}

void RowSet::add_cells(std::size_t rows) {
    blocks_.push_back(std::make_unique<Cell[]>(rows * columns_));
    memory_ += rows * columns_ * sizeof(Cell);
}

void RowSet::widen_first_block() {
    const auto narrow = std::move(blocks_.front());
    blocks_.clear();
    memory_ -= first_rows * columns_ * sizeof(Cell);
    add_cells(rows_per_block);
    std::copy_n(narrow.get(), first_rows * columns_, blocks_.front().get());
}

void RowSet::set(std::size_t column, std::string_view text) {
    if (text != previous_[column]) previous_[column] = std::string_view(store(text), text.size());
    cell(column) = Cell(previous_[column]);
}

void RowSet::set(std::size_t column, const Value& value) {
    struct Setter {
        RowSet& rows;
        std::size_t column;
        void operator()(std::monostate) const { rows.cell(column) = Cell(); }
        void operator()(bool truth) const { rows.set(column, std::int64_t{truth ? -1 : 0}); }
        void operator()(std::int64_t integer) const { rows.set(column, integer); }
        void operator()(double real) const { rows.set(column, real); }
        void operator()(Date date) const { rows.set(column, date); }
        void operator()(const std::string& text) const { rows.set(column, std::string_view(text)); }
    };
    std::visit(Setter{*this, column}, value);
}

const char* RowSet::store(std::string_view text) {
    if (text.empty()) return "";
    char* place = nullptr;
    if (text.size() > large_text) {
        place = add_block(text.size());
    } else {
        if (text.size() > free_size_) {
            free_ = add_block(arena_block);
            free_size_ = arena_block;
        }
        place = free_;
        free_ += text.size();
        free_size_ -= text.size();
    }
    std::memcpy(place, text.data(), text.size());
    return place;
}

char* RowSet::add_block(std::size_t size) {
    arena_.push_back(std::make_unique_for_overwrite<char[]>(size));
    memory_ += size;
    return arena_.back().get();
}

}  // namespace prot
