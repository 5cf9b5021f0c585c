#pragma once

#include <string>

namespace prot {

/// The first line of every script, behind the byte order mark.
inline constexpr std::string_view sample_script_beginning = "-- Beispieldatenbank von protcsv";

/// Writes the tables, indexes and rows of the SQLite file at `database` as a script of T-SQL that a SQL
/// Server's own tools (sqlcmd, with "go" between the batches) load into an empty database. UTF-8 with a byte
/// order mark. A script of the same database has the same bytes. Errors: AutomationError with one German
/// line; what was written until then stays and is the caller's to remove.
void write_sample_script(const std::string& database, const std::string& script);

/// Whether the file at `path` is such a script.
bool is_sample_script(const std::string& path);

}  // namespace prot
