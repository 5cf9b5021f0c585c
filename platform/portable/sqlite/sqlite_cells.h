#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <vector>

#include "platform/row_set.h"

namespace prot {

/// Whether a column of this declared type holds dates: DATETIME, DATE or TIMESTAMP, letter case ignored, also
/// with a size in parentheses. Null: the column has no declared type.
bool is_date_type(const char* declared_type);

/// Reads the current row of a statement.
class SqliteCells {
public:
    enum class Dates : std::uint8_t { as_dates, as_stored };

    /// To be made when the first row is there: only then SQLite has settled what the columns are.
    explicit SqliteCells(sqlite3_stmt* statement, Dates dates = Dates::as_dates);

    std::size_t columns() const { return is_date_.size(); }

    /// By storage class: integer, real, text, a blob's bytes as text; a text in a date column as its date
    /// when it is one. The text is valid until the next row.
    Cell read(std::size_t column) const;

    /// A text as it is stored, valid until the next row; empty for any other value.
    std::string_view text(std::size_t column) const;

    /// Appends the row.
    void append_row(RowSet& rows) const {
        rows.add_row();
        for (std::size_t column = 0; column < columns(); ++column) rows.set(column, read(column));
    }

private:
    sqlite3_stmt* statement_;
    std::vector<char> is_date_;  // per column
};

}  // namespace prot
