#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/portable/odbc/odbc_statement.h"
#include "platform/row_set.h"

namespace prot {

/// What a column's values become.
enum class OdbcColumnKind : std::uint8_t {
    integer,
    boolean,  ///< -1 or 0, as the host's arrays have it
    real,
    single,   ///< a real of 32 bits
    decimal,  ///< as the host's object delivers it: an integer, a real where 15 digits tell all of it, else a
              ///< text
    date,
    text,
    bytes,
};

/// Whether dates become dates or the text that the server writes for them.
enum class OdbcDates : std::uint8_t { as_dates, as_stored };

/// A column of a result, and its room for values where it is bound.
struct OdbcColumn {
    std::string name;
    OdbcColumnKind kind = OdbcColumnKind::text;
    SQLSMALLINT type = SQL_C_WCHAR;  ///< in which it is fetched
    std::size_t width = 0;           ///< of a bound value, bytes
    bool is_long = false;            ///< without a bound that a buffer could have; only SQLGetData reads it
    std::vector<char> values;        ///< `width` bytes for each row of a block
    std::vector<SQLLEN> sizes;       ///< what ODBC says of each: its length in bytes, or SQL_NULL_DATA
};

/// The columns of an open result, in their order.
std::vector<OdbcColumn> columns_of(OdbcStatement& statement, OdbcDates dates);

/// Puts values into a row set.
class OdbcCells {
public:
    explicit OdbcCells(OdbcServer server) : server_(server) {}

    /// A value of `column`: `size` bytes that it was fetched into. The row set's last row gets it.
    void put(RowSet& rows, std::size_t number, const OdbcColumn& column, const char* value, std::size_t size);

private:
    std::string_view utf8(const char* value, std::size_t size);

    const OdbcServer server_;
    std::string text_;
};

}  // namespace prot
