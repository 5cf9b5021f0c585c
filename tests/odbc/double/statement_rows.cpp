#include <algorithm>
#include <cstring>

#include "tests/odbc/double/statement.h"
#include "tests/odbc/double/transfer.h"

namespace prot::odbc_double {

namespace {

Record shortened() { return {"01004", 0, "String data, right truncation"}; }

/// The room that a value takes: numbers and dates have that of their type, whatever was said of it.
bool is_of_fixed_size(SQLSMALLINT c_type) { return c_type != SQL_C_WCHAR && c_type != SQL_C_BINARY; }

/// Copies what there is room for, and the zero behind it.
void copy(char* target, std::string_view bytes, std::size_t ending) {
    std::memcpy(target, bytes.data(), bytes.size());
    std::memset(target + bytes.size(), 0, ending);
}

}  // namespace

SQLRETURN Statement::fetch() {
    connection_.require();
    if (columns() == 0) throw Failure("24000", 0, "Invalid cursor state");
    if (failed_) throw Failure(*failed_);
    require_bindable();
    piece_ = {};
    SQLULEN count = 0;
    bool has_delivered = false;
    std::fill_n(states_, states_ != nullptr ? block_ : 0, SQLUSMALLINT{SQL_ROW_NOROW});
    for (std::optional<Row> row; count < block_ && (row = next_row(count)); ++count) {
        row_ = std::move(*row);
        const SQLUSMALLINT state = deliver(count);
        has_delivered = has_delivered || state != SQL_ROW_ERROR;
        if (states_ != nullptr) states_[count] = state;
    }
    if (fetched_ != nullptr) *fetched_ = count;
    if (count == 0) return SQL_NO_DATA;
    return has_delivered ? SQL_SUCCESS : SQL_ERROR;
}

void Statement::require_bindable() const {
    for (const auto& [number, target] : bound_)
        if (column(number).is_long) throw Failure("07009", 0, "Invalid descriptor index");
}

/// An error behind rows that this block has delivered comes with the next call.
std::optional<Row> Statement::next_row(SQLULEN number) {
    try {
        return result_->next_row();
    } catch (const Failure& failure) {
        if (number == 0) throw;
        failed_ = failure;
        return std::nullopt;
    }
}

/// The row into the number-th place of the bound columns; its state.
SQLUSMALLINT Statement::deliver(SQLULEN number) {
    bool is_whole = true;
    try {
        for (const auto& [column, target] : bound_)
            is_whole = deliver(target, row_[column - 1U], number) && is_whole;
    } catch (const Failure& failure) {
        add(failure.records());
        return SQL_ROW_ERROR;
    }
    if (is_whole) return SQL_ROW_SUCCESS;
    add(shortened());
    return SQL_ROW_SUCCESS_WITH_INFO;
}

bool Statement::deliver(const Target& target, const Cell& cell, SQLULEN number) {
    if (!cell) {
        target.sizes[number] = SQL_NULL_DATA;
        return true;
    }
    const std::string bytes = bytes_of(*cell, target.c_type);
    const std::size_t ending = ending_of(target.c_type);
    const std::size_t width = is_of_fixed_size(target.c_type) ? bytes.size() : target.room;
    const std::size_t size = std::min(bytes.size(), width - ending);
    copy(target.values + width * number, std::string_view(bytes).substr(0, size), ending);
    target.sizes[number] = static_cast<SQLLEN>(bytes.size());
    return size == bytes.size();
}

SQLRETURN Statement::get(SQLUSMALLINT number, SQLSMALLINT c_type, void* target, SQLLEN room, SQLLEN* size) {
    connection_.require();
    require_readable(number);
    if (piece_.column != number) {
        const Cell& cell = row_[number - 1U];
        piece_ = {number, cell ? bytes_of(*cell, c_type) : std::string(), 0, !cell};
        if (!cell) {
            *size = SQL_NULL_DATA;
            return SQL_SUCCESS;
        }
    }
    if (piece_.is_over) return SQL_NO_DATA;
    return deliver_piece(static_cast<char*>(target),
                         is_of_fixed_size(c_type) ? piece_.bytes.size() : static_cast<std::size_t>(room),
                         ending_of(c_type), size);
}

/// Only behind the bound columns, in ascending order, and not in a block.
void Statement::require_readable(SQLUSMALLINT number) const {
    if (block_ > 1) throw Failure("HY109", 0, "Invalid cursor position");
    if (row_.empty()) throw Failure("24000", 0, "Invalid cursor state");
    column(number);
    const bool is_behind_bound = bound_.empty() || number > bound_.rbegin()->first;
    if (!is_behind_bound || number < piece_.column) throw Failure("07009", 0, "Invalid descriptor index");
}

SQLRETURN Statement::deliver_piece(char* target, std::size_t room, std::size_t ending, SQLLEN* size) {
    const std::string_view left = std::string_view(piece_.bytes).substr(piece_.at);
    const std::string_view taken = left.substr(0, room - ending);
    copy(target, taken, ending);
    piece_.at += taken.size();
    piece_.is_over = taken.size() == left.size();
    *size =
        piece_.is_over || !column(piece_.column).is_long ? static_cast<SQLLEN>(left.size()) : SQL_NO_TOTAL;
    if (!piece_.is_over) add(shortened());
    return SQL_SUCCESS;
}

}  // namespace prot::odbc_double
