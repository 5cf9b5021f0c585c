#include "platform/portable/sqlite/sqlite_temporary_table.h"

#include <algorithm>
#include <new>
#include <string>

#include "platform/automation/ascii.h"
#include "platform/automation/text_parts.h"
#include "platform/portable/sqlite/sqlite_statements.h"

namespace prot {

namespace {

std::string quoted(std::string_view name) {
    std::string result;
    append_quoted(result, name, '"');
    return result;
}

// A declared type that can be written as it is: words, and sizes in parentheses.
bool is_plain_type(std::string_view type) {
    return std::all_of(type.begin(), type.end(), [](char c) {
        return is_ascii_letter(c) || is_ascii_digit(c) || c == '_' || c == ' ' || c == '(' || c == ')' ||
               c == ',' || !is_ascii(c);
    });
}

// The collation of the table column that result column `index` comes from; empty for an expression.
std::string collation_of(SqliteConnection& connection, sqlite3_stmt* select, int index) {
    const char* const column = sqlite3_column_origin_name(select, index);
    if (column == nullptr) return {};
    const char* collation = nullptr;
    const int code = sqlite3_table_column_metadata(
        connection.handle(), sqlite3_column_database_name(select, index),
        sqlite3_column_table_name(select, index), column, nullptr, &collation, nullptr, nullptr, nullptr);
    return code == SQLITE_OK && collation != nullptr ? collation : std::string();
}

std::string column_definition(SqliteConnection& connection, sqlite3_stmt* select, int index) {
    const char* const name = sqlite3_column_name(select, index);
    if (name == nullptr) throw std::bad_alloc();
    std::string definition = quoted(name);
    const char* const type = sqlite3_column_decltype(select, index);
    if (type != nullptr && is_plain_type(type)) definition += " " + std::string(type);
    const std::string collation = collation_of(connection, select, index);
    if (!collation.empty()) definition += " COLLATE " + quoted(collation);
    return definition;
}

std::string table_definition(SqliteConnection& connection, const TsqlStatement& statement) {
    const PreparedStatement select = prepare(connection, statement.text, statement.source);
    std::string definition = "CREATE TABLE temp." + quoted(statement.temporary_table) + " (";
    for (int index = 0; index < sqlite3_column_count(select.get()); ++index) {
        if (index > 0) definition += ", ";
        definition += column_definition(connection, select.get(), index);
    }
    return definition + ")";
}

void run(SqliteConnection& connection, const std::string& text, const std::vector<TsqlParameter>& parameters,
         std::string_view source) {
    const PreparedStatement prepared = prepare(connection, text, source);
    SqliteRun(connection, prepared.get(), parameters, source).finish();
}

}  // namespace

void fill_temporary_table(SqliteConnection& connection, const TsqlStatement& statement) {
    const std::string table = "temp." + quoted(statement.temporary_table);
    run(connection, table_definition(connection, statement), {}, statement.source);
    try {
        run(connection, "INSERT INTO " + table + " " + statement.text, statement.parameters,
            statement.source);
    } catch (...) {
        sqlite3_exec(connection.handle(), ("DROP TABLE " + table).c_str(), nullptr, nullptr, nullptr);
        throw;
    }
}

}  // namespace prot
