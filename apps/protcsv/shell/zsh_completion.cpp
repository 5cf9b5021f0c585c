#include "apps/protcsv/shell/completion.h"
#include "apps/protcsv/shell/value_kinds.h"

namespace prot {

namespace {

// The same text is a function of fpath, whose first call only defines it, and a script to be sourced.
constexpr std::string_view beginning = R"(#compdef protcsv
# Vervollständigung für protcsv in der zsh

_protcsv() {
    if (( CURRENT == 2 )); then
        local -a commands=(
)";

constexpr std::string_view end = R"(    esac
}

if [[ $funcstack[1] == _protcsv ]]; then
    _protcsv "$@"
else
    compdef _protcsv protcsv
fi
)";

/// As it stands between single quotes in an explanation.
std::string explained(std::string_view help) {
    std::string text;
    for (const char c : help) {
        if (c == '\n')
            text += ' ';
        else if (c == '\'')
            text += "'\\''";
        else {
            if (c == '[' || c == ']' || c == ':' || c == '\\') text += '\\';
            text += c;
        }
    }
    return text;
}

std::string action_of(const ValueRow& values, SectionTable sections) {
    const std::string words = joined(words_of(values, sections), " ");
    switch (values.kind) {
        case ValueKind::file:
            return "_files";
        case ValueKind::folder:
            return "_files -/";
        case ValueKind::word:
            return '(' + words + ')';
        case ValueKind::words:
            return "_sequence compadd - " + words;
        case ValueKind::text:
            break;
    }
    return " ";
}

std::string spec_of(const OptionRow& row, SectionTable sections) {
    const std::string name(row.name);
    if (row.is_flag()) return name + '[' + explained(row.help) + ']';
    const std::string values =
        ':' + explained(row.value_name) + ':' + action_of(values_called(row.value_name), sections);
    return row.is_positional() ? "1" + values : name + "=[" + explained(row.help) + ']' + values;
}

std::string line_of(const std::string& spec) { return " \\\n            '" + spec + '\''; }

std::string branch_of(const CommandRow& command, SectionTable sections) {
    std::string text = "    " + std::string(command.name) + ")\n        _arguments -s :";
    for (const OptionRow* const row : shown_options(command)) text += line_of(spec_of(*row, sections));
    return text + line_of(std::string(help_option.name) + '[' + explained(help_option.help) + ']') + " ;;\n";
}

std::string command_line(std::string_view name, std::string_view summary) {
    return "            '" + std::string(name) + ':' + explained(summary) + "'\n";
}

}  // namespace

std::string zsh_completion(SectionTable sections) {
    std::string text(beginning);
    text += for_each_command([](const CommandRow& row) { return command_line(row.name, row.summary); });
    text += command_line(help_command, help_option.help);
    text += "        )\n        _describe -t commands Befehl commands\n        _arguments -s :";
    for (const GeneralOption* const option : {&help_option, &version_option})
        text += line_of(std::string(option->name) + '[' + explained(option->help) + ']');
    text += "\n        return\n    fi\n    shift words\n    (( CURRENT-- ))\n    case $words[1] in\n";
    text += for_each_command([&](const CommandRow& row) { return branch_of(row, sections); });
    text += "    " + std::string(help_command) + ")\n        _arguments '1:BEFEHL:(" +
            joined(command_words(), " ") + ")' ;;\n";
    return text + std::string(end);
}

}  // namespace prot
