#pragma once

#include <cstdint>

#include "platform/portable/sqlite/sqlite_rows.h"

namespace prot {

/// How many rows a progress may expect of `query`, of which `prepared` is the prepared form. They are counted
/// where that is cheap: not when the conditions hold further queries, which would have to be answered twice,
/// nor for longer than half a second. Else it is the number of rows that the table of the first column had
/// room for, which is rather too many; 0 when that is unknown.
std::int64_t expected_rows_of(SqliteConnection& connection, const TsqlStatement& query,
                              sqlite3_stmt* prepared);

}  // namespace prot
