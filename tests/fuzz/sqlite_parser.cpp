#include "tests/fuzz/sqlite_parser.h"

#include <sqlite3.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <string_view>

namespace prot::fuzz {

namespace {

constexpr std::size_t most_tables = 200;
constexpr int most_attempts = 5;  // one more missing table each

// What SQLite says of a statement that it has read to its end without a fault in its grammar. All other
// errors, "syntax error" first of all, are findings.
constexpr std::string_view errors_of_meaning[] = {
    "no such table: ",
    "no such column: ",
    "ambiguous column name: ",
    "no tables specified",
    "misuse of aggregate",
    "aggregate functions are not allowed in the GROUP BY clause",
    "row value misused",
    "sub-select returns ",
    "do not have the same number of result columns",
    "ORDER BY term out of range",
    "ORDER BY term does not match any column in the result set",
    "table sqlite_master may not be modified",
};

// What it says when it stops reading: limits of one build or another, of which the translation knows nothing.
// clang-format off
constexpr std::string_view limits[] = {
    "parser stack overflow",
    "Expression tree is too large",
    "too many terms in ",
    "too many FROM clause terms",
    "too many columns in result set",
    "at most 64 tables in a join",
};
// clang-format on

template <std::size_t size>
bool is_among(const std::string_view (&known)[size], std::string_view error) {
    return std::any_of(std::begin(known), std::end(known),
                       [error](std::string_view text) { return error.find(text) != std::string_view::npos; });
}

std::string quoted(std::string_view name) {
    std::string result = "\"";
    for (const char byte : name) result.append(byte == '"' ? 2 : 1, byte);
    return result + "\"";
}

}  // namespace

SqliteParser::SqliteParser() { open(); }

SqliteParser::~SqliteParser() { sqlite3_close(handle_); }

void SqliteParser::open() {
    sqlite3_close(handle_);
    tables_ = 0;
    if (sqlite3_open(":memory:", &handle_) != SQLITE_OK) std::abort();
    sqlite3_db_config(handle_, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(handle_, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
}

Preparation SqliteParser::prepare(const std::string& statement) {
    if (tables_ >= most_tables) open();
    Preparation preparation = prepare_once(statement);
    for (int attempt = 1; attempt < most_attempts && make_missing_table(preparation.error); ++attempt)
        preparation = prepare_once(statement);
    return preparation;
}

Preparation SqliteParser::prepare_once(const std::string& statement) {
    Preparation preparation;
    sqlite3_stmt* prepared = nullptr;
    const char* tail = statement.c_str();
    const int code = sqlite3_prepare_v2(handle_, statement.c_str(), static_cast<int>(statement.size() + 1),
                                        &prepared, &tail);
    if (code != SQLITE_OK) preparation.error = sqlite3_errmsg(handle_);
    preparation.stopped = is_among(limits, preparation.error);
    preparation.accepted = (code == SQLITE_OK && prepared != nullptr) || preparation.stopped ||
                           is_among(errors_of_meaning, preparation.error);
    preparation.tail = std::string_view(tail).size();
    preparation.parameters = static_cast<std::size_t>(sqlite3_bind_parameter_count(prepared));
    sqlite3_finalize(prepared);
    return preparation;
}

bool SqliteParser::make_missing_table(const std::string& error) {
    constexpr std::string_view missing = "no such table: ";
    constexpr std::string_view schema = "temp.";
    if (!error.starts_with(missing)) return false;
    std::string_view name = std::string_view(error).substr(missing.size());
    const bool temporary = name.starts_with(schema);
    if (temporary) name.remove_prefix(schema.size());
    const std::string create = (temporary ? "CREATE TEMP TABLE " : "CREATE TABLE ") + quoted(name) +
                               " (a INTEGER, b TEXT, c REAL, d NUMERIC, x)";
    if (sqlite3_exec(handle_, create.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) return false;
    ++tables_;
    return true;
}

}  // namespace prot::fuzz
