#pragma once

#include <span>
#include <string_view>

namespace prot::test {

/// An example of the documents and what the sentence beside it promises. It is run as printed, by bash in a
/// folder with the sample database under the name firma.db; folders such as /srv lie below that of the test.
struct Example {
    std::string_view name;         ///< see name_of
    int status;                    ///< of the run
    std::string_view promise;      ///< commands of bash that fail where the promise is broken
    std::string_view before = {};  ///< commands of bash before the run
    std::string_view answers =
        {};  ///< typed at a terminal, as printf writes them; empty: there is no terminal
    /// What is run in its place, with the example in the file ../text and in $text. For what is no command of
    /// its own, and for what needs a system that is not here: there the promise is about its form.
    std::string_view in_its_place = {};
};

std::span<const Example> example_table();

/// Functions for the commands above: see there.
extern const std::string_view example_functions;

}  // namespace prot::test
