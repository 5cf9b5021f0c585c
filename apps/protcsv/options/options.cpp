#include "apps/protcsv/options/options.h"

#include <algorithm>
#include <memory>
#include <vector>

#include <CLI/CLI.hpp>

#include "apps/protcsv/options/option_table.h"
#include "apps/protcsv/options/suggestion.h"
#include "apps/protcsv/options/usage_error.h"

namespace prot {

namespace {

constexpr std::string_view program_footer =
    "Hilfe zu einem Befehl: protcsv help BEFEHL oder protcsv BEFEHL --help\n"
    "\n"
    "Rückgabewert:\n";
constexpr std::size_t help_column = 24;
constexpr const char* general = "Allgemein";
constexpr std::string_view end_of_options = "--";

std::string text_of(std::string_view text) { return std::string(text); }

std::string names_of(const GeneralOption& option) {
    return text_of(option.short_name) + ',' + text_of(option.name);
}

std::string footer_of_program() {
    std::string text = text_of(program_footer);
    for (const StatusRow& row : status_table())
        text += "  " + text_of(row.status) + "  " + text_of(row.meaning) + '\n';
    text.pop_back();
    return text;
}

/// The option parser's help in German, with usage lines from the command table.
class GermanFormatter : public CLI::Formatter {
public:
    explicit GermanFormatter(std::string_view usage) : usage_(usage) {
        label("Positionals", "Argumente");
        column_width(help_column);
    }
    std::string make_usage(const CLI::App* /*app*/, std::string /*name*/) const override {
        return "\nAufruf: " + usage_ + '\n';
    }
    std::string make_help(const CLI::App* app, std::string name, CLI::AppFormatMode mode) const override {
        return CLI::detail::find_and_replace(Formatter::make_help(app, name, mode), "\n\n\n", "\n\n");
    }

private:
    std::string usage_;
};

struct CommandParser {
    const CommandRow* row;
    CLI::App* app;
    std::vector<std::pair<const OptionRow*, CLI::Option*>> options;
};

/// The option parser, fed from the tables. It only splits the command line; what a value means, what must be
/// given and what may be given once is decided here, so that every refusal is in German.
class CommandLine {
public:
    CommandLine() : app_(text_of(program_summary)) {
        app_.set_version_flag(names_of(version_option), text_of("protcsv " PROT_VERSION),
                              text_of(version_option.help))
            ->group(general);
        set_up(app_, "protcsv BEFEHL [Optionen]", footer_of_program());
        app_.require_subcommand(0, 1);
        for (const CommandRow& row : command_table()) add(row);
    }

    CLI::App& app() { return app_; }
    const CLI::App& app() const { return app_; }

    /// The command that was chosen, or null.
    const CommandParser* chosen() const {
        for (const CommandParser& command : commands_)
            if (command.app->parsed()) return &command;
        return nullptr;
    }

private:
    static void set_up(CLI::App& app, const std::string& usage, std::string_view footer) {
        app.set_help_flag(names_of(help_option), text_of(help_option.help));
        app.get_help_ptr()->group(general);
        app.formatter(std::make_shared<GermanFormatter>(usage));
        app.footer(text_of(footer));
        app.allow_windows_style_options(false);
    }

    void add(const CommandRow& row) {
        CLI::App* const app = app_.add_subcommand(text_of(row.name), text_of(row.summary));
        app->group("Befehle");
        CommandParser command{&row, app, {}};
        for (const OptionRow& option : option_table())
            if (option.commands & set_of(row.command))
                command.options.emplace_back(&option, add(*app, option));
        // The help comes last in its own list, so it is set up behind the other options.
        set_up(*app, "protcsv " + text_of(row.name) + (row.usage.empty() ? "" : " ") + text_of(row.usage),
               row.footer);
        commands_.push_back(std::move(command));
    }

    static CLI::Option* add(CLI::App& app, const OptionRow& row) {
        CLI::Option* const option =
            row.is_flag() ? app.add_flag(text_of(row.name)) : app.add_option(text_of(row.name));
        option->description(text_of(row.help))->group(text_of(row.group));
        option->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
        option->option_text(row.is_positional() ? " " : text_of(row.value_name));
        return option;
    }

    CLI::App app_;
    std::vector<CommandParser> commands_;
};

bool looks_like_option(std::string_view text) { return text.starts_with("--") && text != end_of_options; }

const OptionRow* find_option(std::string_view name) {
    const auto row = std::ranges::find(option_table(), name, &OptionRow::name);
    return row == option_table().end() || row->is_positional() ? nullptr : &*row;
}

/// The arguments with every `--name=` as two arguments, so that its empty value is not taken for a missing
/// one. Raises UsageError for an option without its value, also when another option stands in its place, and
/// for a flag with one.
std::vector<std::string> with_values_checked(std::span<const std::string> arguments) {
    std::vector<std::string> checked;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (argument == end_of_options) {
            checked.insert(checked.end(), arguments.begin() + static_cast<std::ptrdiff_t>(i),
                           arguments.end());
            break;
        }
        checked.push_back(argument);
        const std::size_t equals = argument.find('=');
        const std::string name = argument.substr(0, equals);
        const OptionRow* const row = find_option(name);
        if (row == nullptr) continue;
        if (equals != std::string::npos) {
            if (row->is_flag()) throw UsageError(name + " nimmt keinen Wert");
            if (equals + 1 < argument.size()) continue;
            checked.back() = name;
            checked.emplace_back();
        } else if (!row->is_flag()) {
            if (++i == arguments.size() || looks_like_option(arguments[i]))
                throw UsageError(name + " braucht einen Wert: " + name + " " + text_of(row->value_name));
            checked.push_back(arguments[i]);
        }
    }
    return checked;
}

std::string names_of_commands() {
    std::string names;
    for (const CommandRow& row : command_table()) names += (names.empty() ? "" : ", ") + text_of(row.name);
    return names;
}

[[noreturn]] void refuse_command(std::string_view name) {
    std::vector<std::string_view> names;
    for (const CommandRow& row : command_table()) names.push_back(row.name);
    const std::string meant = suggestion(name, names);
    throw UsageError("„" + text_of(name) + "“ ist kein Befehl" +
                     (meant.empty() ? "; es gibt: " + names_of_commands() : meant));
}

/// `command`: null before there is one.
[[noreturn]] void refuse_option(std::string_view name, const CommandRow* command) {
    std::vector<std::string_view> names;
    for (const OptionRow& row : option_table())
        if (command != nullptr && row.commands & set_of(command->command) && !row.group.empty())
            names.push_back(row.name);
    const std::string place = command == nullptr ? "vor dem Befehl" : "bei " + text_of(command->name);
    throw UsageError("die Option " + text_of(name) + " gibt es " + place + " nicht" +
                     suggestion(name, names));
}

[[noreturn]] void refuse_extras(const CommandLine& line) {
    const std::vector<std::string> before_command = line.app().remaining(false);
    const CommandParser* const command = before_command.empty() ? line.chosen() : nullptr;
    std::vector<std::string> extras = line.app().remaining(true);
    std::erase(extras, end_of_options);
    if (extras.empty()) throw UsageError("die Argumente sind nicht zu verstehen");
    const std::string& extra = extras.front();
    if (extra.starts_with("-") && extra.size() > 1)
        refuse_option(extra.substr(0, extra.find('=')), command == nullptr ? nullptr : command->row);
    if (command == nullptr) refuse_command(extra);
    throw UsageError("überzähliges Argument „" + extra + "“");
}

/// An export may be told of its database by the environment; a deletion has to name it.
bool is_in_environment(const OptionRow& row, Command command, const OptionContext& context) {
    return row.name == "--db" && command != Command::delete_log && context.database &&
           !context.database->empty();
}

void apply(const CommandParser& command, Options& options, const OptionContext& context) {
    for (const auto& [row, option] : command.options) {
        const std::string name = text_of(row->name);
        if (option->count() == 0) {
            if (is_in_environment(*row, command.row->command, context))
                options.database = database_of_environment(*context.database);
            else if (row->required & set_of(command.row->command))
                throw UsageError(name + " fehlt");
            continue;
        }
        if (option->count() > 1) throw UsageError(name + " ist mehrfach angegeben");
        try {
            row->apply(options, option->results().front(), context);
        } catch (const UsageError& error) {
            throw UsageError(name + ": " + error.what());
        }
    }
}

/// A period that ends before it begins holds nothing, which nobody asks for.
void require_period(const LogRequest& request) {
    if (!request.to.is_null() && request.from.serial > request.to.serial)
        throw UsageError("--from liegt hinter --to");
}

void require_output(const Options& options) {
    if (options.no_clobber && options.output.empty())
        throw UsageError("--no-clobber gilt nur zusammen mit --output");
    if (options.output == standard_stream && options.report == standard_stream)
        throw UsageError("--output - und --report - brauchen beide die Standardausgabe");
}

/// Each section of several has files of its own.
void require_files_of_each(const Options& options) {
    if (options.sections.size() < 2) return;
    constexpr std::string_view mark = "{section}";
    const struct {
        const char* name;
        const std::string& file;
    } rows[] = {
        {"--output", options.output}, {"--report", options.report}, {"--sql-log", options.statement_log}};
    for (const auto& row : rows) {
        if (row.file.empty() || row.file.find(mark) != std::string::npos) continue;
        throw UsageError(std::string(row.name) +
                         (row.file == standard_stream
                              ? " - gilt nur für einen Bereich"
                              : " braucht bei mehreren Bereichen {section} im Namen"));
    }
    if (options.answers) throw UsageError("--answers gilt nur für einen Bereich");
}

/// The help of the command that was chosen, else the program's.
std::string help_of(CommandLine& line) {
    const CommandParser* const chosen = line.chosen();
    return (chosen == nullptr ? line.app() : *chosen->app).help();
}

Options read(std::vector<std::string> arguments, const OptionContext& context) {
    CommandLine line;
    Options options;
    try {
        std::ranges::reverse(arguments);  // the parser takes its arguments from the end
        line.app().parse(std::move(arguments));
    } catch (const CLI::CallForHelp&) {
        options.text = help_of(line);
        return options;
    } catch (const CLI::CallForVersion& version) {
        options.text = text_of(version.what()) + '\n';
        return options;
    } catch (const CLI::ParseError&) {
        refuse_extras(line);
    }
    const CommandParser* const chosen = line.chosen();
    if (chosen == nullptr) throw UsageError("es fehlt ein Befehl; es gibt: " + names_of_commands());
    options.command = chosen->row->command;
    apply(*chosen, options, context);
    require_period(options.request);
    require_output(options);
    require_files_of_each(options);
    return options;
}

bool is_command(std::string_view name) {
    return std::ranges::find(command_table(), name, &CommandRow::name) != command_table().end();
}

/// The command whose help explains `arguments`, after a blank; empty for the program's own help.
std::string help_path(std::span<const std::string> arguments) {
    return !arguments.empty() && is_command(arguments.front()) ? " " + arguments.front() : std::string();
}

/// `help` and `help COMMAND` as the options that say the same; anything else as it is.
std::vector<std::string> with_help_as_option(std::span<const std::string> arguments) {
    if (arguments.empty() || arguments.front() != help_command) return {arguments.begin(), arguments.end()};
    if (arguments.size() > 2) throw UsageError("help nimmt einen Befehl, nicht mehrere");
    if (arguments.size() == 2 && !is_command(arguments.back())) refuse_command(arguments.back());
    std::vector<std::string> asked(arguments.begin() + 1, arguments.end());
    asked.emplace_back("--help");
    return asked;
}

}  // namespace

Options parse_options(std::span<const std::string> arguments, const OptionContext& context) {
    try {
        return read(with_values_checked(with_help_as_option(arguments)), context);
    } catch (const UsageError& error) {
        throw UsageError(text_of(error.what()) + " (Hilfe: protcsv" + help_path(arguments) + " --help)");
    }
}

std::string short_help() { return CommandLine().app().help(); }

}  // namespace prot
