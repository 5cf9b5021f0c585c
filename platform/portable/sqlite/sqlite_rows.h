#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/portable/sqlite/sqlite_cells.h"
#include "platform/portable/sqlite/sqlite_connection.h"
#include "platform/portable/sqlite/sqlite_statements.h"
#include "platform/portable/tsql/tsql_dialect.h"

namespace prot {

/// Walks over the rows of one query, some at a time. Its statement is its own, so that others may be sent in
/// between.
class SqliteRows {
public:
    /// connection and query outlive it.
    SqliteRows(SqliteConnection& connection, const TsqlStatement& query)
        : connection_(connection), query_(query), statement_(prepare(connection, query.text, query.source)) {}

    /// Appends up to `rows` rows to `batch`; fewer behind the last.
    void read(RowSet& batch, std::size_t rows);

    /// Whether there are no more.
    bool at_end() const { return at_end_; }

    /// Holds nothing in the database any more; the next row is the first again.
    void restart();

    sqlite3_stmt* statement() const { return statement_.get(); }

private:
    SqliteConnection& connection_;
    const TsqlStatement& query_;
    PreparedStatement statement_;
    std::optional<SqliteRun> run_;
    std::optional<SqliteCells> cells_;
    bool at_end_ = false;
};

}  // namespace prot
