#include <unistd.h>

#include <iostream>

#include "apps/protcsv/console/process.h"

namespace prot {

std::vector<std::string> process_arguments(int argument_count, char** arguments) {
    return {arguments + (argument_count > 0 ? 1 : 0), arguments + argument_count};
}

Console standard_console() {
    const bool in_is_terminal = isatty(STDIN_FILENO) != 0;
    const bool err_is_terminal = isatty(STDERR_FILENO) != 0;
    return {std::cin,       std::cout,       std::cerr,
            in_is_terminal, err_is_terminal, in_is_terminal && err_is_terminal};
}

}  // namespace prot
