#pragma once

#include <optional>
#include <string>
#include <vector>

#include "apps/protcsv/console/console.h"

/// What the process got from its caller. All text is UTF-8, whatever the system hands over.
namespace prot {

/// The arguments without the program's own name; those of main, where they are whole there.
std::vector<std::string> process_arguments(int argument_count, char** arguments);

/// The value of an environment variable, which programs started from here do not get any more; nothing: it is
/// not set.
std::optional<std::string> take_from_environment(const std::string& name);

/// The standard streams, made ready for use. They live as long as the process.
Console standard_console();

}  // namespace prot
