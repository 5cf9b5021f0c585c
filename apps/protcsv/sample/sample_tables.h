#pragma once

#include <span>
#include <string_view>

#include "platform/portable/sqlite/sqlite_file.h"

/// The tables that all sections share: the log, its section list and the captions of logged columns.
namespace prot::sample {

/// What a logged column is called in front of a person.
struct Caption {
    std::string_view table;  ///< as it stands in dcTable
    std::string_view column;
    std::string_view text;
};

/// Creates the shared tables and fills the section list.
void create_log_tables(SqliteFile& file);

/// A column that has its caption already, as where sections share a table, keeps it.
void write_captions(SqliteFile& file, std::span<const Caption> captions);

/// The indexes that a careful administrator gives the log, and the statistics about them: without these
/// SQLite takes the log row by row in the order of the currencies instead of the dates. Made when all rows
/// are in, which is much faster.
void create_log_indexes(SqliteFile& file);

}  // namespace prot::sample
