#include "platform/portable/sqlite/sqlite_row_count.h"

#include <chrono>
#include <optional>
#include <string>

#include "platform/automation/text_parts.h"
#include "platform/portable/tsql/tsql_order.h"

namespace prot {

namespace {

using Steady = std::chrono::steady_clock;

constexpr std::chrono::milliseconds longest_counting{500};
constexpr int many_steps = 200000;          // 256 rows that are found at once take some thousands
constexpr int steps_between_looks = 10000;  // of SQLite's machine, at the clock

/// Ends the statement that runs when its time is over.
class TimeLimit {
public:
    explicit TimeLimit(sqlite3* handle) : handle_(handle) {
        sqlite3_progress_handler(handle_, steps_between_looks, is_over, &end_);
    }
    ~TimeLimit() { sqlite3_progress_handler(handle_, 0, nullptr, nullptr); }
    TimeLimit(const TimeLimit&) = delete;
    TimeLimit& operator=(const TimeLimit&) = delete;

private:
    static int is_over(void* end) { return Steady::now() > *static_cast<Steady::time_point*>(end) ? 1 : 0; }

    sqlite3* handle_;
    Steady::time_point end_ = Steady::now() + longest_counting;
};

std::optional<std::int64_t> number(SqliteConnection& connection, const std::string& text,
                                   const std::vector<TsqlParameter>& parameters) {
    try {
        const PreparedStatement statement = prepare(connection, text, text);
        SqliteRun run(connection, statement.get(), parameters, text);
        if (run.next_row()) return sqlite3_column_int64(statement.get(), 0);
    } catch (const AutomationError&) {
        // What is wrong with the query shows when its rows are read.
    }
    return std::nullopt;
}

std::string table_of(sqlite3_stmt* prepared) {
    std::string table;
    for (const char* const name :
         {sqlite3_column_database_name(prepared, 0), sqlite3_column_table_name(prepared, 0)}) {
        if (name == nullptr) return {};
        if (!table.empty()) table += '.';
        append_quoted(table, name, '"');
    }
    return table;
}

}  // namespace

std::int64_t expected_rows_of(SqliteConnection& connection, const TsqlStatement& query,
                              sqlite3_stmt* prepared, int steps_of_first_rows) {
    if (steps_of_first_rows < many_steps) {
        const TimeLimit limit(connection.handle());
        const std::string count = "SELECT count(*) FROM (" + std::string(without_order(query.text)) + ")";
        if (const auto counted = number(connection, count, query.parameters)) return *counted;
    }
    const std::string table = table_of(prepared);
    if (table.empty()) return 0;
    const std::string rows =
        "SELECT (SELECT max(rowid) FROM " + table + ") - (SELECT min(rowid) FROM " + table + ") + 1";
    return number(connection, rows, {}).value_or(0);
}

}  // namespace prot
