#pragma once

#include <vector>

#include "apps/protcsv/sample/sample_partner_desk.h"
#include "apps/protcsv/sample/sample_tables.h"
#include "platform/portable/sqlite/sqlite_file.h"

/// The tables of customers and suppliers, and what their columns are called.
namespace prot::sample {

/// Creates the side's own tables, and those of both sides when they are not there, and writes what the desk
/// keeps. The tables of persons are there.
void write_partners(SqliteFile& file, Side side, const PartnerDesk& desk);

/// Of all logged columns of the side.
std::vector<Caption> partner_captions(Side side);

}  // namespace prot::sample
