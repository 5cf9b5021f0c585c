#include "platform/row_set.h"

#include <algorithm>
#include <cstring>

#include "platform/automation/error.h"

namespace prot {

namespace {
constexpr std::size_t largest_block = std::size_t{1} << 20;
constexpr std::size_t large_text = largest_block / 16;  // from here on a text has a block of its own
constexpr std::size_t longest_recent = 64;

/// A slot by length and both ends: cheap, and different for most names.
std::size_t slot_of(std::string_view text, std::size_t slots) {
    if (text.empty()) return 0;
    const auto byte = [text](std::size_t index) -> std::size_t {
        return static_cast<unsigned char>(text[index]);
    };
    return (text.size() * 7 + byte(0) + byte(text.size() / 2) * 3 + byte(text.size() - 1) * 5) % slots;
}

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

void RowSet::require_columns(std::size_t count) const {
    if (empty() || columns_ >= count) return;
    const char* const noun = columns_ == 1 ? " Spalte statt " : " Spalten statt ";
    throw AutomationError(
        ErrorNumber::index_out_of_range,
        "Das Abfrageergebnis hat " + std::to_string(columns_) + noun + std::to_string(count) + ".");
}

void RowSet::add_row() {
    if (rows_ == room_) make_room();
    last_row_ = blocks_[rows_ / rows_per_block].get() + (rows_ % rows_per_block) * columns_;
    std::fill_n(last_row_, columns_, Cell());
    ++rows_;
}

void RowSet::clear() {
    rows_ = 0;
    text_bytes_ = 0;
    blocks_.resize(std::min<std::size_t>(blocks_.size(), 1));
    room_ = std::min(room_, rows_per_block);
    recent_.clear();
    keep_one_arena_block();
}

void RowSet::make_room() {
    if (room_ == first_rows)
        widen_first_block();
    else
        add_cells(room_ == 0 ? first_rows : rows_per_block);
}

void RowSet::add_cells(std::size_t rows) {
    blocks_.push_back(std::make_unique<Cell[]>(rows * columns_));
    room_ += rows;
}

void RowSet::widen_first_block() {
    auto wide = std::make_unique<Cell[]>(rows_per_block * columns_);
    std::copy_n(blocks_.front().get(), first_rows * columns_, wide.get());
    blocks_.front() = std::move(wide);
    room_ = rows_per_block;
    recent_.resize(columns_ * recent_slots);
}

void RowSet::set(std::size_t column, std::string_view text) { cell(column) = Cell(stored(column, text)); }

std::string_view RowSet::stored(std::size_t column, std::string_view text) {
    // Names of tables, users and workstations recur; documents do not.
    if (text.size() > longest_recent || recent_.empty()) return {store(text), text.size()};
    std::string_view& recent = recent_[column * recent_slots + slot_of(text, recent_slots)];
    if (recent != text) recent = {store(text), text.size()};
    return recent;
}

void RowSet::set(std::size_t column, const Cell& value) {
    if (value.type() == Cell::Type::text)
        set(column, value.text());
    else
        cell(column) = value;
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
            free_size_ = std::max(text.size(), next_block_);
            free_ = add_block(free_size_);
            next_block_ = std::min(next_block_ * 2, largest_block);
        }
        place = free_;
        free_ += text.size();
        free_size_ -= text.size();
    }
    std::memcpy(place, text.data(), text.size());
    text_bytes_ += text.size();
    return place;
}

char* RowSet::add_block(std::size_t size) {
    arena_.push_back({std::make_unique_for_overwrite<char[]>(size), size});
    return arena_.back().bytes.get();
}

void RowSet::keep_one_arena_block() {
    const auto kept = std::ranges::max_element(
        arena_, {}, [](const ArenaBlock& block) { return block.size > largest_block ? 0 : block.size; });
    free_ = nullptr;
    free_size_ = 0;
    if (kept == arena_.end()) return;
    std::swap(*kept, arena_.front());
    arena_.erase(arena_.begin() + (arena_.front().size > largest_block ? 0 : 1), arena_.end());
    if (arena_.empty()) return;
    free_ = arena_.front().bytes.get();
    free_size_ = arena_.front().size;
}

}  // namespace prot
