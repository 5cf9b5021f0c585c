#pragma once

#include "platform/portable/sqlite/sqlite_connection.h"
#include "platform/portable/tsql/tsql_dialect.h"

namespace prot {

/// Runs SELECT … INTO #t (kind fill_temporary_table): makes the connection's temporary table with the
/// declared types and collations of the columns that the SELECT reads, so that dates stay dates and
/// comparisons stay as they were, and fills it. Fails when the table exists; when it cannot be filled it is
/// gone again.
void fill_temporary_table(SqliteConnection& connection, const TsqlStatement& statement);

}  // namespace prot
