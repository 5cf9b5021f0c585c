#include "apps/protcsv/shell/completion.h"
#include "apps/protcsv/shell/value_kinds.h"

namespace prot {

namespace {

constexpr std::string_view beginning = R"(# Vervollständigung für protcsv in der fish

function __protcsv_command
    set -l words (commandline -opc)
    if test (count $words) -lt 2
        test -z "$argv"
    else
        contains -- $words[2] $argv
    end
end

complete -c protcsv -f
)";

std::string in_quotes(std::string_view text) {
    std::string result = "'";
    for (const char c : text) {
        if (c == '\'' || c == '\\') result += '\\';
        result += c == '\n' ? ' ' : c;
    }
    return result + '\'';
}

/// Behind the command `name`; before there is one when that is empty.
std::string line_for(std::string_view name) {
    return "complete -c protcsv -n " +
           in_quotes("__protcsv_command" + (name.empty() ? "" : " " + std::string(name)));
}

/// -x: a value, and no file; -r -F: a value, and files.
std::string values_of(const ValueRow& values, SectionTable sections) {
    const std::string words = joined(words_of(values, sections), " ");
    switch (values.kind) {
        case ValueKind::file:
            return " -r -F";
        case ValueKind::folder:
            return " -x -a '(__fish_complete_directories)'";
        case ValueKind::word:
            return " -x -a " + in_quotes(words);
        case ValueKind::words:
            return " -x -a " + in_quotes("(__fish_append , " + words + ")");
        case ValueKind::text:
            break;
    }
    return " -x";
}

std::string option_line(std::string_view command, std::string_view name, std::string_view help,
                        const std::string& values) {
    return line_for(command) + " -l " + std::string(name.substr(2)) + values + " -d " + in_quotes(help) +
           '\n';
}

std::string lines_of(const CommandRow& command, SectionTable sections) {
    std::string text =
        line_for("") + " -a " + std::string(command.name) + " -d " + in_quotes(command.summary) + '\n';
    for (const OptionRow* const row : shown_options(command)) {
        const std::string values = row->is_flag() ? "" : values_of(values_called(row->value_name), sections);
        text += row->is_positional() ? line_for(command.name) + values + " -d " + in_quotes(row->help) + '\n'
                                     : option_line(command.name, row->name, row->help, values);
    }
    return text + option_line(command.name, help_option.name, help_option.help, "");
}

}  // namespace

std::string fish_completion(SectionTable sections) {
    std::string text(beginning);
    text += for_each_command([&](const CommandRow& row) { return lines_of(row, sections); });
    text += line_for("") + " -a " + std::string(help_command) + " -d " + in_quotes(help_option.help) + '\n';
    for (const GeneralOption* const option : {&help_option, &version_option})
        text += option_line("", option->name, option->help, "");
    return text + line_for(help_command) + " -a " + in_quotes(joined(command_words(), " ")) + '\n';
}

}  // namespace prot
