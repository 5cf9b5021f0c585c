#pragma once

#include <cstdint>
#include <string_view>

#include "platform/portable/odbc/odbc_statement.h"
#include "platform/portable/tsql/tsql_dialect.h"

/// Statements in the words of the server: SQLite gets its own dialect, all others what their caller wrote.
namespace prot {

void run_query(OdbcStatement& statement, const TsqlStatement& query);

/// How many rows the query has.
std::int64_t count_rows(OdbcStatement& statement, const TsqlStatement& query);

/// Runs a batch to its end; fails as any of its statements does. How many rows its last deletion deleted.
std::int64_t run_batch(OdbcConnection& connection, std::string_view sql);

/// A bracket of look-ups in one state of the database, where the server is SQLite; others have no state that
/// several connections share.
void begin_reading(OdbcConnection& connection);
void end_reading(OdbcConnection& connection) noexcept;

/// Refuses a batch that does more than make and drop temporary tables.
void require_temporary(std::string_view sql);

}  // namespace prot
