#pragma once

#include <span>
#include <string>

#include "apps/protcsv/console/console.h"
#include "core/section_table.h"

namespace prot {

/// The whole program: reads the command line (without the program's own name), does what it asks for and
/// returns the exit status: 0 done, 1 error, 2 usage, 3 cancelled,
/// 4 incomplete, 5 no data.
int run_program(std::span<const std::string> arguments, const Console& console, SectionTable sections);

/// The same with the arguments of main, the standard streams, all sections and the signals of the process.
int run_program(int argument_count, char** arguments);

}  // namespace prot
