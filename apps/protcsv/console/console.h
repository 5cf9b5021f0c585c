#pragma once

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <optional>
#include <string>

namespace prot {

/// The standard streams of the program, and which of them lead to a person.
struct Console {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
    bool in_is_terminal = false;
    bool err_is_terminal = false;
    bool full_screen = false;  ///< forms may take the whole terminal, or windows of their own
    bool err_is_dumb = false;  ///< the terminal behind `err` cannot go back on its line
    bool err_erases = false;   ///< it knows control sequences, see TerminalSettings
    std::function<std::size_t()> err_columns{};  ///< how wide it is now; empty: nobody knows
    std::optional<std::string> database{};       ///< of the environment, see database_variable

    /// Whether a line on `err` can be replaced by another.
    bool has_status_line() const { return err_is_terminal && !err_is_dumb; }
};

}  // namespace prot
