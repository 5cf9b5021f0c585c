#pragma once

#include <vector>

#include "apps/protcsv/sample/sample_framework_desk.h"
#include "apps/protcsv/sample/sample_tables.h"
#include "platform/portable/sqlite/sqlite_file.h"

/// The tables of report frameworks, and what their columns are called.
namespace prot::sample {

/// Creates the tables and writes what the desk keeps.
void write_frameworks(SqliteFile& file, const FrameworkDesk& desk);

/// Of all logged columns.
std::vector<Caption> framework_captions();

}  // namespace prot::sample
