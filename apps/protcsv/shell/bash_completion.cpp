#include "apps/protcsv/shell/completion.h"
#include "apps/protcsv/shell/value_kinds.h"

namespace prot {

namespace {

// Readline itself completes files and folders: it knows about quotes, blanks and ~. It takes "=" for a word
// of its own.
constexpr std::string_view beginning = R"(# Vervollständigung für protcsv in der bash

_protcsv_words() {
    mapfile -t COMPREPLY < <(compgen -W "$1" -- "$2")
}

_protcsv_list() {
    local before=
    case $2 in *,*) before=${2%,*}, ;; esac
    mapfile -t COMPREPLY < <(compgen -P "$before" -W "$1" -- "${2##*,}")
}

_protcsv() {
    local word=${COMP_WORDS[COMP_CWORD]} option=${COMP_WORDS[COMP_CWORD-1]} words=
    COMPREPLY=()
    if [ "$word" = = ]; then
        word=
    elif [ "$option" = = ]; then
        option=${COMP_WORDS[COMP_CWORD-2]}
    fi
    if [ "$COMP_CWORD" -eq 1 ]; then
)";

constexpr std::string_view end = R"(    esac
    if [ -n "$words" ]; then _protcsv_words "$words" "$word"; fi
}

complete -F _protcsv protcsv
)";

std::string completing_of(const ValueRow& values, SectionTable sections) {
    const std::string words = '"' + joined(words_of(values, sections), " ") + "\" \"$word\"";
    switch (values.kind) {
        case ValueKind::file:
            return "compopt -o default";
        case ValueKind::folder:
            return "compopt -o dirnames";
        case ValueKind::word:
            return "_protcsv_words " + words;
        case ValueKind::words:
            return "_protcsv_list " + words;
        case ValueKind::text:
            break;
    }
    return ":";
}

/// A branch for each option that takes a value.
std::string values_of(const CommandRow& command, SectionTable sections) {
    std::string text;
    for (const OptionRow* const row : shown_options(command)) {
        if (row->is_flag() || row->is_positional()) continue;
        text += "    \"" + std::string(command.name) + ' ' + std::string(row->name) + "\") " +
                completing_of(values_called(row->value_name), sections) + "; return ;;\n";
    }
    return text;
}

std::string names_of_options(const CommandRow& command) {
    std::string text;
    for (const OptionRow* const row : shown_options(command))
        if (!row->is_positional()) text += std::string(row->name) + ' ';
    return text + std::string(help_option.name);
}

std::string words_behind(const CommandRow& command, SectionTable sections) {
    std::string text = "    " + std::string(command.name) + ")\n";
    if (const OptionRow* const argument = argument_of(command))
        text += "        if [ \"${word#-}\" = \"$word\" ]; then " +
                completing_of(values_called(argument->value_name), sections) + "; return; fi\n";
    return text + "        words=\"" + names_of_options(command) + "\" ;;\n";
}

}  // namespace

std::string bash_completion(SectionTable sections) {
    const std::string commands = joined(command_words(), " ");
    std::string text = std::string(beginning) + "        _protcsv_words \"" + commands + ' ' +
                       std::string(help_option.name) + ' ' + std::string(version_option.name) +
                       "\" \"$word\"\n        return\n    fi\n";
    text += "    case \"${COMP_WORDS[1]} $option\" in\n";
    text += for_each_command([&](const CommandRow& row) { return values_of(row, sections); });
    text += "    \"" + std::string(help_command) + ' ' + std::string(help_command) + "\") words=\"" +
            commands + "\" ;;\n    esac\n";
    text += "    case ${COMP_WORDS[1]} in\n";
    text += for_each_command([&](const CommandRow& row) { return words_behind(row, sections); });
    return text + std::string(end);
}

}  // namespace prot
