#pragma once

#include <iosfwd>

namespace prot {

/// The standard streams of the program, and which of them lead to a person.
struct Console {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
    bool in_is_terminal = false;
    bool err_is_terminal = false;
    bool full_screen = false;  ///< forms may take the whole terminal, or windows of their own
};

}  // namespace prot
