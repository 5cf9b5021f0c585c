#include "platform/portable/odbc/odbc_rows.h"

#include <algorithm>

namespace prot {

namespace {

constexpr std::size_t largest_block = 256;  // rows
constexpr std::size_t bytes_of_block = std::size_t{1} << 20;
constexpr std::size_t bytes_of_piece = std::size_t{1} << 15;  // of a long value

/// The zero that ends a piece of text, which ODBC counts into the room and not into the length.
std::size_t ending_of(SQLSMALLINT c_type) { return c_type == SQL_C_WCHAR ? sizeof(SQLWCHAR) : 0; }

}  // namespace

OdbcRows::OdbcRows(OdbcStatement& statement, OdbcDates dates)
    : statement_(statement), columns_(columns_of(statement, dates)), cells_(statement.connection().server()) {
    bind();
}

OdbcRows::~OdbcRows() {
    // What is bound goes with this object; the statement may outlive it.
    SQLFreeStmt(statement_.handle(), SQL_CLOSE);
    SQLFreeStmt(statement_.handle(), SQL_UNBIND);
}

void OdbcRows::bind() {
    const auto first_long = std::ranges::find_if(columns_, &OdbcColumn::is_long);
    bound_ = static_cast<std::size_t>(first_long - columns_.begin());
    if (bound_ == columns_.size() && bound_ > 0) {
        std::size_t bytes = 0;
        for (const OdbcColumn& column : columns_) bytes += column.width + sizeof(SQLLEN);
        block_ = std::clamp<std::size_t>(bytes_of_block / bytes, 1, largest_block);
    }
    states_.resize(block_);
    SQLSetStmtAttrW(statement_.handle(), SQL_ATTR_ROW_ARRAY_SIZE, as_attribute(block_), 0);
    SQLSetStmtAttrW(statement_.handle(), SQL_ATTR_ROW_STATUS_PTR, states_.data(), 0);
    SQLSetStmtAttrW(statement_.handle(), SQL_ATTR_ROWS_FETCHED_PTR, &fetched_, 0);
    for (std::size_t number = 0; number < bound_; ++number) {
        OdbcColumn& column = columns_[number];
        column.values.resize(column.width * block_);
        column.sizes.resize(block_);
        const SQLRETURN answer =
            SQLBindCol(statement_.handle(), static_cast<SQLUSMALLINT>(number + 1), column.type,
                       column.values.data(), static_cast<SQLLEN>(column.width), column.sizes.data());
        if (!SQL_SUCCEEDED(answer)) raise();
    }
}

bool OdbcRows::read(RowSet& rows) {
    if (at_end_ || (row_ >= fetched_ && !fetch())) return false;
    rows.add_row();
    for (std::size_t number = 0; number < columns_.size(); ++number) {
        if (number < bound_)
            put_bound(rows, number);
        else
            put_unbound(rows, number);
    }
    ++row_;
    return true;
}

/// Gets the next block. A row that the driver could not deliver whole ends the run: nothing may be missing in
/// silence.
bool OdbcRows::fetch() {
    row_ = 0;
    fetched_ = 0;
    const SQLRETURN answer = SQLFetch(statement_.handle());
    if (answer == SQL_NO_DATA) {
        at_end_ = true;
        return false;
    }
    if (!SQL_SUCCEEDED(answer)) raise();
    if (fetched_ == 0 && block_ == 1) fetched_ = 1;  // a driver that does not count
    const auto end = states_.begin() + static_cast<std::ptrdiff_t>(std::min<SQLULEN>(fetched_, block_));
    if (answer == SQL_SUCCESS_WITH_INFO && std::find(states_.begin(), end, SQL_ROW_ERROR) != end) raise();
    return true;
}

void OdbcRows::put_bound(RowSet& rows, std::size_t number) {
    const OdbcColumn& column = columns_[number];
    const SQLLEN size = column.sizes[row_];
    if (size == SQL_NULL_DATA) return;
    const std::size_t room = column.width - ending_of(column.type);
    if (size == SQL_NO_TOTAL || size < 0 || static_cast<std::size_t>(size) > room) refuse_shortened(column);
    cells_.put(rows, number, column, column.values.data() + column.width * row_,
               static_cast<std::size_t>(size));
}

void OdbcRows::put_unbound(RowSet& rows, std::size_t number) {
    const SQLLEN size = get(number);
    if (size == SQL_NULL_DATA) return;
    cells_.put(rows, number, columns_[number], long_value_.data(), static_cast<std::size_t>(size));
}

/// Reads a value whole into long_value_; its size in bytes, or SQL_NULL_DATA. A driver says either how much
/// is left or that it does not know; what it has delivered counts, not what it announces.
SQLLEN OdbcRows::get(std::size_t number) {
    const OdbcColumn& column = columns_[number];
    const std::size_t ending = ending_of(column.type);
    const std::size_t room = column.is_long ? bytes_of_piece : column.width;
    long_value_.resize(std::max(long_value_.size(), room));
    std::size_t size = 0;
    for (;;) {
        if (long_value_.size() - size < room)
            long_value_.resize(std::max(size + room, long_value_.size() * 2));
        SQLLEN left = 0;
        const SQLRETURN answer =
            SQLGetData(statement_.handle(), static_cast<SQLUSMALLINT>(number + 1), column.type,
                       long_value_.data() + size, static_cast<SQLLEN>(room), &left);
        if (answer == SQL_NO_DATA) break;
        if (!SQL_SUCCEEDED(answer)) raise();
        if (left == SQL_NULL_DATA) return SQL_NULL_DATA;
        const bool is_whole = left != SQL_NO_TOTAL && static_cast<std::size_t>(left) <= room - ending;
        size += is_whole ? static_cast<std::size_t>(left) : room - ending;
        if (is_whole) break;
        if (!column.is_long && answer == SQL_SUCCESS_WITH_INFO && ending == 0) refuse_shortened(column);
    }
    return static_cast<SQLLEN>(size);
}

void OdbcRows::raise() { statement_.raise(); }

void OdbcRows::refuse_shortened(const OdbcColumn& column) const {
    throw odbc_error({}, "Der Treiber liefert einen Wert der Spalte „" + column.name +
                             "“ nicht ganz. Anweisung: " + std::string(statement_.source()));
}

}  // namespace prot
