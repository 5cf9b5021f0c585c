#include <unistd.h>

#include <iostream>

#include "apps/protcsv/process.h"

namespace prot {

std::vector<std::string> process_arguments(int argument_count, char** arguments) {
    return {arguments + (argument_count > 0 ? 1 : 0), arguments + argument_count};
}

Console standard_console() {
    return {std::cin, std::cout, std::cerr, isatty(STDIN_FILENO) != 0, isatty(STDERR_FILENO) != 0};
}

}  // namespace prot
