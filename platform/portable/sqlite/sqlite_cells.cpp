#include "platform/portable/sqlite/sqlite_cells.h"

#include <algorithm>
#include <new>

#include "platform/automation/date_text.h"
#include "platform/automation/letter_case.h"
#include "platform/automation/text_parts.h"

namespace prot {

namespace {

constexpr std::string_view date_types[] = {"DATETIME", "DATE", "TIMESTAMP"};

std::string_view bytes(const void* data, int size) {
    return {static_cast<const char*>(data), static_cast<std::size_t>(size)};
}

// SQLite answers with no place at all when it had no memory to convert or expand a value. That must not pass
// for an empty one: a log table without a name would lose its records and keep their memo rows.
std::string_view text_of(sqlite3_value* value) {
    const void* const data = sqlite3_value_text(value);
    if (data == nullptr) throw std::bad_alloc();
    return bytes(data, sqlite3_value_bytes(value));
}

}  // namespace

bool is_date_type(const char* declared_type) {
    if (declared_type == nullptr) return false;
    const std::string_view declared = declared_type;
    const std::string_view type = trim_blanks(declared.substr(0, declared.find('(')));
    return std::ranges::any_of(date_types,
                               [type](std::string_view date_type) { return upper_equals(type, date_type); });
}

SqliteCells::SqliteCells(sqlite3_stmt* statement, Dates dates)
    : statement_(statement), is_date_(static_cast<std::size_t>(sqlite3_column_count(statement))) {
    if (dates == Dates::as_stored) return;
    for (std::size_t column = 0; column < is_date_.size(); ++column)
        is_date_[column] = is_date_type(sqlite3_column_decltype(statement, static_cast<int>(column))) ? 1 : 0;
}

Cell SqliteCells::read(std::size_t column) const {
    // The value is asked once for the column, not once for each property. Reading it so is sound because one
    // thread alone uses the connection.
    sqlite3_value* const value = sqlite3_column_value(statement_, static_cast<int>(column));
    switch (sqlite3_value_type(value)) {
        case SQLITE_INTEGER:
            return Cell(std::int64_t{sqlite3_value_int64(value)});
        case SQLITE_FLOAT:
            return Cell(sqlite3_value_double(value));
        case SQLITE_TEXT:
            break;
        case SQLITE_BLOB: {
            // The size is asked first: a value that could not be expanded is Null afterwards, without one.
            const int size = sqlite3_value_bytes(value);
            const void* const data = sqlite3_value_blob(value);
            if (data == nullptr && size > 0) throw std::bad_alloc();  // as in text_of
            return Cell(bytes(data, size));
        }
        default:
            return {};
    }
    const std::string_view text = text_of(value);
    if (is_date_[column] != 0)
        if (const auto date = read_iso_date(text)) return Cell(*date);
    return Cell(text);
}

std::string_view SqliteCells::text(std::size_t column) const {
    sqlite3_value* const value = sqlite3_column_value(statement_, static_cast<int>(column));
    return sqlite3_value_type(value) == SQLITE_TEXT ? text_of(value) : std::string_view();
}

}  // namespace prot
