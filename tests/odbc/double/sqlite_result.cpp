#include "tests/odbc/double/sqlite_result.h"

#include <charconv>
#include <limits>

#include "platform/automation/letter_case.h"
#include "tests/odbc/double/sqlite_batch.h"

namespace prot::odbc_double {

namespace {

/// SQLite's own words for types, and SQL Server's.
struct TypeWord {
    std::string_view sqlite, server;
};
constexpr TypeWord type_words[] = {
    {"INTEGER", "INT"},
    {"REAL", "FLOAT"},
    {"TEXT", "NVARCHAR(MAX)"},
    {"TIMESTAMP", "DATETIME"},
};

std::string_view server_type(std::string_view declared) {
    for (const TypeWord& word : type_words)
        if (upper_equals(declared, word.sqlite)) return word.server;
    return declared;
}

constexpr int longest_short_text = 4000;  // characters of an nvarchar

std::string_view type_of_value(sqlite3_value* value) {
    switch (sqlite3_value_type(value)) {
        case SQLITE_INTEGER: {
            const sqlite3_int64 number = sqlite3_value_int64(value);
            using Long = std::numeric_limits<std::int32_t>;
            return number < Long::min() || number > Long::max() ? "BIGINT" : "INT";
        }
        case SQLITE_FLOAT:
            return "FLOAT";
        case SQLITE_TEXT:
            return sqlite3_value_bytes(value) > longest_short_text ? "NVARCHAR(MAX)" : "NVARCHAR(4000)";
        case SQLITE_BLOB:
            return "VARBINARY(MAX)";
        default:
            return "INT";
    }
}

Cell cell_of(sqlite3_value* value) {
    switch (sqlite3_value_type(value)) {
        case SQLITE_NULL:
            return std::nullopt;
        case SQLITE_FLOAT: {
            char digits[40];
            const auto [end, error] =
                std::to_chars(std::begin(digits), std::end(digits), sqlite3_value_double(value));
            return std::string(digits, end);
        }
        default: {
            const auto* const bytes = static_cast<const char*>(sqlite3_value_blob(value));
            return std::string(bytes != nullptr ? bytes : "",
                               static_cast<std::size_t>(sqlite3_value_bytes(value)));
        }
    }
}

}  // namespace

SqliteResult::SqliteResult(SqliteConnection& connection, const TsqlStatement& query)
    : connection_(connection),
      statement_(prepare(connection, query.text, query.source)),
      run_(connection, statement_.get(), query.parameters, query.source) {
    has_row_ = step();
    const int count = sqlite3_column_count(statement_.get());
    for (int number = 0; number < count; ++number) columns_.push_back(column(number));
}

Column SqliteResult::column(int number) const {
    const char* const declared = sqlite3_column_decltype(statement_.get(), number);
    return column_of(sqlite3_column_name(statement_.get(), number),
                     declared != nullptr ? server_type(declared)
                                         : type_of_value(sqlite3_column_value(statement_.get(), number)));
}

bool SqliteResult::step() {
    try {
        return run_.next_row();
    } catch (const AutomationError&) {
        raise_sqlite_failure(connection_);
    }
}

std::optional<Row> SqliteResult::next_row() {
    if (!is_first_ && has_row_) has_row_ = step();
    is_first_ = false;
    if (!has_row_) return std::nullopt;
    Row row;
    for (std::size_t number = 0; number < columns_.size(); ++number)
        row.push_back(cell_of(sqlite3_column_value(statement_.get(), static_cast<int>(number))));
    return row;
}

}  // namespace prot::odbc_double
