#pragma once

#include <string>
#include <string_view>
#include <vector>

/// What the documents print for their readers to type or to expect.
namespace prot::test {

struct Printed {
    std::string document;
    std::string text;  ///< as printed, without the indentation of its block
    std::string name;  ///< the example's name in the table of examples, see name_of
};

/// A command in one line: lines that end in a backslash joined, blanks between words single, no comment.
std::string name_of(std::string_view text);

/// The blocks of a text whose lines are indented by `indent` blanks. A block with lines that call protcsv is
/// one example for each call, any other one example as a whole, named by its first line.
std::vector<Printed> printed_blocks(const std::string& document, std::string_view text, std::size_t indent);

/// Calls of protcsv and parts of parameter texts within running text, between backticks.
std::vector<Printed> printed_between(const std::string& document, const std::string& text);

/// README.md, docs/handbuch.md and the help of every command.
std::vector<Printed> all_printed();

}  // namespace prot::test
