#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/section_table.h"
#include "platform/portable/csv_file_writer.h"
#include "tests/fire/support/fault_plan.h"

namespace prot::fire {

/// What fails in one run of the program, and what has failed.
struct Fire {
    FaultPlan statements;
    bool connection_fails = false;  ///< a failing statement ends the connection
    FaultPlan files;
    CsvFileOptions csv;  ///< the options that the program is called with
    std::vector<std::string> failed_statements;
};

/// The exchange rates, with a database object and a file layer that fail as `fire` says. One table at a time;
/// `fire` outlives it.
SectionTable sections_under(Fire& fire);

}  // namespace prot::fire
