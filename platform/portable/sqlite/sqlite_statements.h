#pragma once

#include <sqlite3.h>

#include <list>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/portable/sqlite/sqlite_connection.h"
#include "platform/portable/tsql/tsql_dialect.h"

namespace prot {

struct SqliteFinalizer {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using PreparedStatement = std::unique_ptr<sqlite3_stmt, SqliteFinalizer>;

/// Prepares `text`. Fails with SQLite's error; `source`: the statement as its caller wrote it.
PreparedStatement prepare(SqliteConnection& connection, std::string_view text, std::string_view source);

/// One run of a prepared statement. Its values are bound while it lives; the statement is free again
/// afterwards.
class SqliteRun {
public:
    /// parameters and source outlive the run.
    SqliteRun(SqliteConnection& connection, sqlite3_stmt* statement,
              const std::vector<TsqlParameter>& parameters, std::string_view source);
    ~SqliteRun();
    SqliteRun(const SqliteRun&) = delete;
    SqliteRun& operator=(const SqliteRun&) = delete;

    bool next_row();  ///< false behind the last row
    void finish() {
        while (next_row()) {
        }
    }
    sqlite3_stmt* statement() const { return statement_; }

private:
    SqliteConnection& connection_;
    sqlite3_stmt* statement_;
    std::string_view source_;
};

/// Prepared statements by their text. When full, the one that was not used for the longest time goes.
class SqliteStatements {
public:
    explicit SqliteStatements(SqliteConnection& connection) : connection_(connection) {}

    /// The prepared form of `text`, valid until the next call.
    sqlite3_stmt* find_or_prepare(std::string_view text, std::string_view source);

    static constexpr std::size_t capacity = 64;

private:
    struct Shape {
        std::string text;
        PreparedStatement statement;
    };

    SqliteConnection& connection_;
    std::list<Shape> shapes_;  // the last used one first
    std::unordered_map<std::string_view, std::list<Shape>::iterator> by_text_;
};

}  // namespace prot
