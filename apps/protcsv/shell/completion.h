#pragma once

#include <string>

#include "apps/protcsv/options/options.h"
#include "core/section_table.h"

/// What a shell reads to complete the program's commands, options and values: made from the tables that the
/// command line is read by.
namespace prot {

std::string completion_script(Shell shell, SectionTable sections);

std::string bash_completion(SectionTable sections);
std::string zsh_completion(SectionTable sections);
std::string fish_completion(SectionTable sections);

}  // namespace prot
