#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>
#include <iostream>
#include <string_view>

#include "apps/protcsv/console/process.h"

namespace prot {

namespace {

bool is_dumb_terminal() {
    const char* const type = std::getenv("TERM");
    return type == nullptr || *type == '\0' || std::string_view(type) == "dumb";
}

std::size_t columns_of_standard_error() {
    constexpr std::size_t usual = 80;  // a serial line does not know
    winsize size{};
    return ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : usual;
}

}  // namespace

std::vector<std::string> process_arguments(int argument_count, char** arguments) {
    return {arguments + (argument_count > 0 ? 1 : 0), arguments + argument_count};
}

std::optional<std::string> take_from_environment(const std::string& name) {
    const char* const value = std::getenv(name.c_str());
    if (value == nullptr) return std::nullopt;
    std::string text = value;
    unsetenv(name.c_str());
    return text;
}

Console standard_console() {
    const bool in_is_terminal = isatty(STDIN_FILENO) != 0;
    const bool err_is_terminal = isatty(STDERR_FILENO) != 0;
    const bool is_dumb = is_dumb_terminal();
    return {std::cin,       std::cout,       std::cerr,
            in_is_terminal, err_is_terminal, in_is_terminal && err_is_terminal,
            is_dumb,        !is_dumb,        columns_of_standard_error};
}

}  // namespace prot
