#pragma once

#include <memory>
#include <string>

#include "platform/host_database.h"

namespace prot {

enum class SqliteAccess { read_only, read_write };

/// Whether the rows of Database::query_rows are read by a thread of their own while earlier ones are in use.
/// It shares the connection; statements of the run come first.
enum class SqliteReading { on_demand, ahead };

/// Opens an existing SQLite file as the host's database. Statements are T-SQL; see tsql_dialect.h for what is
/// understood. Date columns (declared DATETIME, DATE or TIMESTAMP) hold the text YYYY-MM-DD HH:MM:SS and are
/// delivered as dates. A file that is missing, locked, no database, or that cannot be read at all is an error
/// whose description is one German line; a missing file is never created. Error numbers: 0x80040000 +
/// SQLite's extended result code.
std::unique_ptr<HostDatabase> open_sqlite_database(const std::string& path, SqliteAccess access,
                                                   SqliteReading reading = SqliteReading::on_demand);

}  // namespace prot
