#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/portable/odbc/odbc_cells.h"
#include "platform/portable/odbc/odbc_statement.h"

namespace prot {

/// The rows of an open result. Without a long column they come in blocks, bound. With one, they come one by
/// one: the columns before it are bound, it and all behind it are read by SQLGetData in ascending order,
/// which is what every driver can do.
class OdbcRows {
public:
    /// The statement has run, and outlives it.
    explicit OdbcRows(OdbcStatement& statement, OdbcDates dates = OdbcDates::as_dates);
    ~OdbcRows();
    OdbcRows(const OdbcRows&) = delete;
    OdbcRows& operator=(const OdbcRows&) = delete;

    const std::vector<OdbcColumn>& columns() const { return columns_; }

    /// Appends the next row; false behind the last.
    bool read(RowSet& rows);

private:
    void bind();
    bool fetch();
    void put_bound(RowSet& rows, std::size_t column);
    void put_unbound(RowSet& rows, std::size_t column);
    SQLLEN get(std::size_t column);
    [[noreturn]] void raise();
    [[noreturn]] void refuse_shortened(const OdbcColumn& column) const;

    OdbcStatement& statement_;
    std::vector<OdbcColumn> columns_;
    std::size_t bound_ = 0;  // so many columns from the first
    std::size_t block_ = 1;  // rows
    std::size_t row_ = 0;    // of the block at hand
    SQLULEN fetched_ = 0;    // rows of it
    std::vector<SQLUSMALLINT> states_;
    std::vector<char> piece_;
    std::vector<char> long_value_;
    OdbcCells cells_;
    bool at_end_ = false;
};

}  // namespace prot
