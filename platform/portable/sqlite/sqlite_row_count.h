#pragma once

#include <cstdint>

#include "platform/portable/sqlite/sqlite_rows.h"

namespace prot {

/// How many rows a progress may expect of `query`, of which `prepared` is the prepared form. They are counted
/// where that is cheap: not when the first rows took many steps of SQLite's machine (a sort, or sets that
/// further queries select), nor for longer than half a second. Else it is the number of rows that the table
/// of the first column had room for, which is rather too many; 0 when that is unknown.
std::int64_t expected_rows_of(SqliteConnection& connection, const TsqlStatement& query,
                              sqlite3_stmt* prepared, int steps_of_first_rows);

}  // namespace prot
