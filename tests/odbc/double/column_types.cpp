#include "tests/odbc/double/column_types.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>
#include <utility>

#include "platform/automation/letter_case.h"
#include "platform/automation/text_parts.h"

namespace prot::odbc_double {

namespace {

/// Types of SQL Server's own. Source: sqlncli.h's documentation.
constexpr SQLSMALLINT sql_time_of_day = -154;
constexpr SQLSMALLINT sql_xml = -152;

/// What stands in the parentheses of a type.
enum class Parentheses : std::uint8_t { nothing, length, precision };

struct TypeRow {
    std::string_view name;
    SQLSMALLINT type;
    SQLULEN size;  ///< where the parentheses name none
    SQLSMALLINT digits;
    Parentheses parentheses;
    SQLSMALLINT long_type;  ///< of (max); 0: there is none
};
using enum Parentheses;
// clang-format off
constexpr TypeRow type_rows[] = {
    {"BIT",              SQL_BIT,            1,          0, nothing,   0},
    {"TINYINT",          SQL_TINYINT,        3,          0, nothing,   0},
    {"SMALLINT",         SQL_SMALLINT,       5,          0, nothing,   0},
    {"INT",              SQL_INTEGER,        10,         0, nothing,   0},
    {"BIGINT",           SQL_BIGINT,         19,         0, nothing,   0},
    {"REAL",             SQL_REAL,           7,          0, nothing,   0},
    {"FLOAT",            SQL_DOUBLE,         15,         0, nothing,   0},
    {"DECIMAL",          SQL_DECIMAL,        18,         0, precision, 0},
    {"NUMERIC",          SQL_NUMERIC,        18,         0, precision, 0},
    {"MONEY",            SQL_DECIMAL,        19,         4, nothing,   0},
    {"DATETIME",         SQL_TYPE_TIMESTAMP, 23,         3, nothing,   0},
    {"DATETIME2",        SQL_TYPE_TIMESTAMP, 27,         7, nothing,   0},
    {"SMALLDATETIME",    SQL_TYPE_TIMESTAMP, 16,         0, nothing,   0},
    {"DATE",             SQL_TYPE_DATE,      10,         0, nothing,   0},
    {"TIME",             sql_time_of_day,    16,         7, nothing,   0},
    {"CHAR",             SQL_CHAR,           1,          0, length,    0},
    {"NCHAR",            SQL_WCHAR,          1,          0, length,    0},
    {"VARCHAR",          SQL_VARCHAR,        1,          0, length,    SQL_LONGVARCHAR},
    {"NVARCHAR",         SQL_WVARCHAR,       1,          0, length,    SQL_WLONGVARCHAR},
    {"VARBINARY",        SQL_VARBINARY,      1,          0, length,    SQL_LONGVARBINARY},
    {"TEXT",             SQL_LONGVARCHAR,    2147483647, 0, nothing,   SQL_LONGVARCHAR},
    {"NTEXT",            SQL_WLONGVARCHAR,   1073741823, 0, nothing,   SQL_WLONGVARCHAR},
    {"XML",              sql_xml,            0,          0, nothing,   sql_xml},
    {"UNIQUEIDENTIFIER", SQL_GUID,           36,         0, nothing,   0},
};
// clang-format on

/// A number and what stands behind it.
std::size_t take_number(std::string_view& text) {
    std::size_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc()) throw std::invalid_argument("no number in a type's parentheses");
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return number;
}

void heed_parentheses(Column& column, const TypeRow& row, std::string_view inside) {
    if (row.parentheses == nothing || inside.empty()) return;
    if (upper_equals(inside, "MAX")) {
        column.size = 0;
        column.type = row.long_type;
        return;
    }
    column.size = take_number(inside);
    if (row.parentheses == precision && inside.starts_with(',')) {
        inside.remove_prefix(1);
        column.digits = static_cast<SQLSMALLINT>(take_number(inside));
    }
}

}  // namespace

Column column_of(std::string name, std::string_view declared) {
    const std::size_t opening = std::min(declared.find('('), declared.size());
    const std::string word = to_upper(trim_blanks(declared.substr(0, opening)));
    const auto* const row =
        std::ranges::find_if(type_rows, [&](const TypeRow& candidate) { return candidate.name == word; });
    if (row == std::end(type_rows)) throw std::invalid_argument("no type of SQL Server: " + word);
    Column column{std::move(name), row->type, row->size, row->digits};
    const std::size_t closing = std::min(declared.find(')', opening), declared.size());
    if (opening < closing)
        heed_parentheses(column, *row, declared.substr(opening + 1, closing - opening - 1));
    column.is_long = row->long_type != 0 && column.type == row->long_type;
    return column;
}

}  // namespace prot::odbc_double
