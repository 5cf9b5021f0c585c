#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/section_table.h"
#include "platform/portable/csv/csv_file_writer.h"
#include "tests/faults/support/fault_plan.h"

namespace prot::faults {

/// What fails in one run of the program, and what has failed.
struct Faults {
    FaultPlan statements;
    bool connection_fails = false;  ///< a failing statement ends the connection
    FaultPlan files;
    CsvFileOptions csv;  ///< the options that the program is called with
    std::vector<std::string> failed_statements;
};

/// The exchange rates, with a database object and a file layer that fail as `faults` says. One table at a
/// time; `faults` outlives it.
SectionTable sections_with(Faults& faults);

}  // namespace prot::faults
