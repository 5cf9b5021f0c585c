#pragma once

#include <string>
#include <vector>

#include "platform/portable/sqlite/sqlite_connection.h"
#include "platform/portable/tsql/tsql_dialect.h"
#include "tests/odbc/double/result.h"

namespace prot::odbc_double {

/// Raises what SQL Server would say of the error that `connection` has just met.
[[noreturn]] void raise_sqlite_failure(SqliteConnection& connection);

/// A batch of T-SQL, run by SQLite: what translate_tsql understands, SET DEADLOCK_PRIORITY LOW, SET
/// LOCK_TIMEOUT n, and SELECT COUNT_BIG(*) FROM (query) AS counted. Dates in literals have a T before the
/// time, in columns a blank.
class SqliteBatch : public Batch {
public:
    /// connection outlives it.
    SqliteBatch(SqliteConnection& connection, std::string_view text);

    std::unique_ptr<Result> next_result() override;

private:
    void translate();
    std::unique_ptr<Result> run(const TsqlStatement& statement);

    SqliteConnection& connection_;
    const std::string text_;
    std::vector<TsqlStatement> statements_;  // they point into text_
    std::size_t next_ = 0;
    bool is_translated_ = false;
};

}  // namespace prot::odbc_double
