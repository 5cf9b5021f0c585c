#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "apps/protcsv/options/option_table.h"
#include "core/section_table.h"

/// What a shell can complete, read from the tables of the command line.
namespace prot {

enum class ValueKind {
    text,  ///< nothing that a shell could know
    file,
    folder,
    word,   ///< one of the words
    words,  ///< several of them, with commas between
};

/// What values are like that the help calls `value_name`.
struct ValueRow {
    std::string_view value_name;
    ValueKind kind;
    std::vector<std::string> (*words)(SectionTable sections);  ///< null: none
};

/// Raises std::out_of_range for a name that the help does not know.
const ValueRow& values_called(std::string_view value_name);
std::vector<std::string> words_of(const ValueRow& values, SectionTable sections);

/// The options and arguments that the help of the command shows, in its order.
std::vector<const OptionRow*> shown_options(const CommandRow& command);
/// The one without dashes, null where there is none.
const OptionRow* argument_of(const CommandRow& command);

/// `words` with `separator` between them.
std::string joined(std::span<const std::string> words, std::string_view separator);
/// All names of commands, and help.
std::vector<std::string> command_words();
/// `each(row)` of every command, one after another.
std::string for_each_command(const std::function<std::string(const CommandRow&)>& each);

}  // namespace prot
