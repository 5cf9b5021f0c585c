#pragma once

#include <span>
#include <string>
#include <string_view>

#include "apps/protcsv/options/options.h"

/// What the command line understands: a row per command and a row per option. Parsing, help and behaviour
/// come from the same row.
namespace prot {

struct CommandRow {
    Command command;
    std::string_view name;
    std::string_view summary;  ///< its line in the list of commands
    std::string_view usage;    ///< what follows the name in the usage line
    std::string_view footer;   ///< examples
};

/// Sets of commands.
using Commands = unsigned;
constexpr Commands set_of(Command command) { return 1u << static_cast<unsigned>(command); }

struct OptionRow {
    std::string_view name;        ///< with its dashes; without dashes it is a positional argument
    std::string_view value_name;  ///< how the help calls the value; empty: a flag
    Commands commands;            ///< where it is understood
    Commands required;            ///< where it must be given
    std::string_view group;       ///< its heading in the help; empty: not shown
    std::string_view help;
    void (*apply)(Options& options, const std::string& value, const OptionContext& context);

    bool is_flag() const { return value_name.empty(); }
    bool is_positional() const { return !name.starts_with('-'); }
};

/// An option of every command or of the program itself.
struct GeneralOption {
    std::string_view short_name;
    std::string_view name;
    std::string_view help;
};
inline constexpr GeneralOption help_option = {"-h", "--help", "zeigt diese Hilfe"};
inline constexpr GeneralOption version_option = {"-V", "--version", "zeigt die Version"};

struct StatusRow {
    std::string_view status;
    std::string_view meaning;
};

inline constexpr std::string_view program_summary = "Exportiert das Stammdatenprotokoll in CSV-Dateien.";
/// What is asked for help about a command, as in `protcsv help export`.
inline constexpr std::string_view help_command = "help";

std::span<const StatusRow> status_table();
std::span<const CommandRow> command_table();
/// Empty for a command without a name of its own.
std::string_view command_name(Command command);
std::span<const OptionRow> option_table();

}  // namespace prot
