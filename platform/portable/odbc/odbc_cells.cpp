#include "platform/portable/odbc/odbc_cells.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <optional>

#include "platform/automation/ascii.h"
#include "platform/automation/date_text.h"
#include "platform/automation/text_forms.h"
#include "platform/automation/text_parts.h"

namespace prot {

namespace {

/// What a column of an SQL type becomes, and in which type of C it is fetched. Sources: ODBC, appendix D; the
/// types below -149 are SQL Server's own (sqlncli.h's documentation): variant, XML, time and time with
/// offset.
struct TypeRow {
    SQLSMALLINT type;
    OdbcColumnKind kind;
    SQLSMALLINT c_type;
    std::size_t width;  ///< bytes of a value; 0: as long as the column is
};
using enum OdbcColumnKind;
constexpr std::size_t decimal_width =
    48 * sizeof(SQLWCHAR);  // 38 digits, sign, point and what else a driver writes
// clang-format off
constexpr TypeRow type_rows[] = {
    {SQL_BIT,            boolean, SQL_C_BIT,            sizeof(SQLCHAR)},
    {SQL_TINYINT,        integer, SQL_C_SBIGINT,        sizeof(SQLBIGINT)},
    {SQL_SMALLINT,       integer, SQL_C_SBIGINT,        sizeof(SQLBIGINT)},
    {SQL_INTEGER,        integer, SQL_C_SBIGINT,        sizeof(SQLBIGINT)},
    {SQL_BIGINT,         integer, SQL_C_SBIGINT,        sizeof(SQLBIGINT)},
    {SQL_REAL,           single,  SQL_C_FLOAT,          sizeof(SQLREAL)},
    {SQL_FLOAT,          real,    SQL_C_DOUBLE,         sizeof(SQLDOUBLE)},
    {SQL_DOUBLE,         real,    SQL_C_DOUBLE,         sizeof(SQLDOUBLE)},
    {SQL_DECIMAL,        decimal, SQL_C_WCHAR,          decimal_width},
    {SQL_NUMERIC,        decimal, SQL_C_WCHAR,          decimal_width},
    {SQL_TYPE_TIMESTAMP, date,    SQL_C_TYPE_TIMESTAMP, sizeof(SQL_TIMESTAMP_STRUCT)},
    {SQL_TYPE_DATE,      date,    SQL_C_TYPE_TIMESTAMP, sizeof(SQL_TIMESTAMP_STRUCT)},
    {SQL_BINARY,         bytes,   SQL_C_BINARY,         0},
    {SQL_VARBINARY,      bytes,   SQL_C_BINARY,         0},
    {SQL_LONGVARBINARY,  bytes,   SQL_C_BINARY,         0},
};
// clang-format on
constexpr TypeRow text_row = {SQL_WVARCHAR, text, SQL_C_WCHAR, 0};

const TypeRow& row_of(SQLSMALLINT type) {
    const auto* const found =
        std::ranges::find_if(type_rows, [type](const TypeRow& row) { return row.type == type; });
    return found == std::end(type_rows) ? text_row : *found;
}

constexpr SQLULEN longest_bound = 8000;  // characters or bytes
std::size_t bound_width(const TypeRow& row, SQLULEN size) {
    if (row.width != 0) return row.width;
    return row.c_type == SQL_C_WCHAR ? (size + 1) * sizeof(SQLWCHAR) : size;
}

template <class Number>
std::optional<Number> number_in(std::string_view text) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || text.empty()) return std::nullopt;
    return number;
}

template <class T>
T as(const char* value) {
    T result;
    std::memcpy(&result, value, sizeof result);
    return result;
}

/// The fraction counts, as it does in the server's dates.
std::optional<Date> date_of(const SQL_TIMESTAMP_STRUCT& time) {
    const CivilTime civil{time.year, time.month, time.day, time.hour, time.minute, time.second};
    if (!is_valid(civil)) return std::nullopt;
    constexpr double nanoseconds_of_day = 86400e9;
    const double part = time.fraction / nanoseconds_of_day;
    const Date whole = to_date(civil);
    return Date{whole.serial + (whole.serial < 0 ? -part : part)};
}

/// What has no date of ours (years before 100) stays readable.
std::string text_of(const SQL_TIMESTAMP_STRUCT& time) {
    return iso_text({time.year, time.month, time.day, time.hour, time.minute, time.second});
}

/// A decimal number as SQL writes it, "-.5000".
void put_decimal(RowSet& rows, std::size_t number, std::string_view value) {
    std::string_view text = value;
    if (text.find('.') != std::string_view::npos) {
        text = text.substr(0, text.find_last_not_of('0') + 1);
        if (text.ends_with('.')) text.remove_suffix(1);
    }
    if (const auto whole = number_in<std::int64_t>(text)) return rows.set(number, *whole);
    constexpr std::ptrdiff_t told_by_a_real = 15;
    const auto digits = std::ranges::count_if(text, is_ascii_digit);
    const auto real_number = number_in<double>(text);
    if (real_number && digits <= told_by_a_real) return rows.set(number, *real_number);
    rows.set(number, std::string_view(replaced(std::string(text), ".", ",")));
}

/// SQLite's columns hold values of any type, which its driver hands over as texts.
void put_of_sqlite(RowSet& rows, std::size_t number, OdbcColumnKind kind, std::string_view value) {
    if (kind == integer) {
        if (const auto whole = number_in<std::int64_t>(value)) return rows.set(number, *whole);
    }
    if (kind == integer || kind == real || kind == single || kind == decimal) {
        if (const auto any = number_in<double>(value)) return rows.set(number, *any);
    }
    if (kind == date) {
        if (const auto day = read_iso_date(value)) return rows.set(number, *day);
    }
    rows.set(number, value);
}

}  // namespace

std::vector<OdbcColumn> columns_of(OdbcStatement& statement, OdbcDates dates) {
    SQLSMALLINT count = 0;
    if (!SQL_SUCCEEDED(SQLNumResultCols(statement.handle(), &count))) statement.raise();
    std::vector<OdbcColumn> columns(static_cast<std::size_t>(count));
    for (SQLSMALLINT number = 0; number < count; ++number) {
        SQLWCHAR name[256] = {};
        SQLSMALLINT name_size = 0;
        SQLSMALLINT type = 0;
        SQLULEN size = 0;
        SQLSMALLINT digits = 0;
        SQLSMALLINT nullable = 0;
        const SQLRETURN answer = SQLDescribeColW(statement.handle(), static_cast<SQLUSMALLINT>(number + 1),
                                                 name, static_cast<SQLSMALLINT>(std::size(name)), &name_size,
                                                 &type, &size, &digits, &nullable);
        if (!SQL_SUCCEEDED(answer)) statement.raise();
        OdbcColumn& column = columns[static_cast<std::size_t>(number)];
        const auto read =
            std::clamp<std::size_t>(static_cast<std::size_t>(name_size), 0, std::size(name) - 1);
        column.name = from_odbc(name, read);
        TypeRow row = row_of(type);
        const bool stays_text = row.kind == date && dates == OdbcDates::as_stored;
        const bool is_sqlite = statement.connection().server() == OdbcServer::sqlite && row.kind != bytes;
        column.kind = stays_text ? text : row.kind;
        if (stays_text) size = 40;  // more than any date takes
        if (stays_text || is_sqlite) row = text_row;
        column.type = row.c_type;
        column.is_long = row.width == 0 && (size == 0 || size > longest_bound || is_sqlite);
        if (!column.is_long) column.width = bound_width(row, size);
    }
    return columns;
}

std::string_view OdbcCells::utf8(const char* value, std::size_t size) {
    const std::size_t units = size / sizeof(SQLWCHAR);
    if (text_.size() / utf8_bytes_of_unit < units) text_.resize(units * utf8_bytes_of_unit);
    const auto* const first = reinterpret_cast<const SQLWCHAR*>(value);
    const char* const end = put_utf8(text_.data(), first, units);
    return {text_.data(), static_cast<std::size_t>(end - text_.data())};
}

void OdbcCells::put(RowSet& rows, std::size_t number, const OdbcColumn& column, const char* value,
                    std::size_t size) {
    switch (column.type) {
        case SQL_C_SBIGINT:
            return rows.set(number, std::int64_t{as<SQLBIGINT>(value)});
        case SQL_C_BIT:
            return rows.set(number, std::int64_t{*value != 0 ? -1 : 0});
        case SQL_C_DOUBLE:
            return rows.set(number, as<SQLDOUBLE>(value));
        case SQL_C_FLOAT:
            return rows.set(number, widened(as<SQLREAL>(value)));
        case SQL_C_TYPE_TIMESTAMP: {
            const auto time = as<SQL_TIMESTAMP_STRUCT>(value);
            if (const auto date = date_of(time)) return rows.set(number, *date);
            return rows.set(number, std::string_view(text_of(time)));
        }
        case SQL_C_BINARY:
            return rows.set(number, std::string_view(value, size));
        default:
            break;
    }
    if (server_ == OdbcServer::sqlite) return put_of_sqlite(rows, number, column.kind, utf8(value, size));
    if (column.kind == decimal) return put_decimal(rows, number, utf8(value, size));
    rows.set(number, utf8(value, size));
}

}  // namespace prot
