#pragma once

#include <string>

#include "core/section_table.h"

namespace prot {

/// protcsv(1) as man reads it, from the tables that the command line is read by.
std::string manual_page(SectionTable sections);

}  // namespace prot
