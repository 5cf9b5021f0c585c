#include "apps/protcsv/shell/manual_page.h"

#include <algorithm>
#include <vector>

#include "apps/protcsv/shell/value_kinds.h"

namespace prot {

namespace {

// Between the title and the commands.
constexpr std::string_view description =
    "protcsv liest das Stammdatenprotokoll der Finanzbuchhaltung und schreibt es in CSV\\-Dateien; auf "
    "Wunsch\n"
    "löscht es ausgewählte Protokollsätze.\n"
    "Auf der Standardausgabe steht der Pfad der fertigen Datei, alles andere auf der "
    "Standardfehlerausgabe.\n";
constexpr std::string_view see_also =
    "Das Handbuch liegt als \\fIhandbuch.md\\fR bei den Dokumenten des Programms.\n";

/// `text` as it stands in running text. A dash becomes a minus, which can be copied to a command line.
std::string escaped(std::string_view text) {
    std::string result;
    bool line_begins = true;
    for (const char c : text) {
        if (line_begins && (c == '.' || c == '\'')) result += "\\&";
        line_begins = c == '\n';
        if (c == '\\')
            result += "\\e";
        else if (c == '-')
            result += "\\-";
        else
            result += c;
    }
    return result;
}

std::string bold(std::string_view text) { return "\\fB" + escaped(text) + "\\fR"; }
std::string italic(std::string_view text) { return "\\fI" + escaped(text) + "\\fR"; }
std::string section(std::string_view title) { return ".SH " + std::string(title) + '\n'; }
std::string item(const std::string& tag, std::string_view text) {
    return ".TP\n" + tag + '\n' + escaped(text) + '\n';
}

std::string usage_of(const CommandRow& row) {
    return ".br\n" + bold("protcsv") + ' ' + bold(row.name) + (row.usage.empty() ? "" : " ") +
           escaped(row.usage) + '\n';
}

/// An option as the page shows it once, for all commands that explain it alike.
struct Entry {
    const OptionRow* row;
    Commands commands;
    Commands required;
};

bool alike(const OptionRow& one, const OptionRow& other) {
    return one.name == other.name && one.value_name == other.value_name && one.help == other.help &&
           one.group == other.group;
}

std::vector<Entry> entries() {
    std::vector<Entry> all;
    for (const OptionRow& row : option_table()) {
        if (row.group.empty()) continue;
        const auto known =
            std::ranges::find_if(all, [&](const Entry& entry) { return alike(*entry.row, row); });
        if (known == all.end())
            all.push_back({&row, row.commands, row.required});
        else {
            known->commands |= row.commands;
            known->required |= row.required;
        }
    }
    return all;
}

std::string names_of(Commands commands) {
    std::vector<std::string> names;
    for (const CommandRow& row : command_table())
        if (commands & set_of(row.command)) names.push_back(bold(row.name));
    return joined(names, ", ");
}

std::string entry_text(const Entry& entry) {
    const OptionRow& row = *entry.row;
    std::string tag = row.is_positional() ? italic(row.name) : bold(row.name);
    if (!row.is_flag() && !row.is_positional()) tag += ' ' + italic(row.value_name);
    std::string text = ".TP\n" + tag + '\n' + escaped(row.help) + ".\nBei " + names_of(entry.commands);
    if (entry.required != 0)
        text += entry.required == entry.commands ? "; Pflicht" : "; Pflicht bei " + names_of(entry.required);
    return text + ".\n";
}

/// Every group once, in the order of the table.
std::string options_by_group() {
    std::string text;
    std::vector<std::string_view> done;
    const std::vector<Entry> all = entries();
    for (const Entry& first : all) {
        const std::string_view group = first.row->group;
        if (std::ranges::find(done, group) != done.end()) continue;
        done.push_back(group);
        text += ".SS " + std::string(group) + '\n';
        for (const Entry& entry : all)
            if (entry.row->group == group) text += entry_text(entry);
    }
    text += ".SS Allgemein\n";
    for (const GeneralOption* const option : {&help_option, &version_option})
        text += item(bold(option->short_name) + ", " + bold(option->name), option->help);
    return text;
}

/// What stands below a command's help: running text as it is, indented lines as they are typed.
std::string footer_text(std::string_view footer) {
    std::string text;
    bool typed = false;
    while (!footer.empty()) {
        const std::size_t end = std::min(footer.find('\n'), footer.size());
        const std::string_view line = footer.substr(0, end);
        footer.remove_prefix(std::min(end + 1, footer.size()));
        const bool types = line.starts_with("  ");
        if (types != typed) text += types ? ".PP\n.EX\n" : ".EE\n.PP\n";
        typed = types;
        text += line.empty() ? ".PP\n" : escaped(line) + '\n';
    }
    return text + (typed ? ".EE\n" : "");
}

std::string commands_text() {
    return for_each_command([](const CommandRow& row) {
        return ".SS " + std::string(row.name) + '\n' + escaped(row.summary) + ".\n.PP\n" +
               footer_text(row.footer);
    });
}

std::string sections_text(SectionTable sections) {
    std::string text;
    for (const Section& row : sections)
        text += item(bold(row.name), std::string(row.title) + " (" + std::to_string(row.number) + ")");
    return text;
}

std::string status_text() {
    std::string text;
    for (const StatusRow& row : status_table()) text += item(bold(row.status), row.meaning);
    return text;
}

}  // namespace

std::string manual_page(SectionTable sections) {
    std::string text = ".TH PROTCSV 1 \"\" \"protcsv " PROT_VERSION "\" Benutzerbefehle\n.nh\n.ad l\n";
    text += section("BEZEICHNUNG") + "protcsv \\- " +
            escaped(program_summary.substr(0, program_summary.size() - 1)) + '\n';
    text += section("ÜBERSICHT") + for_each_command(usage_of).substr(4);  // without the first break
    text += section("BESCHREIBUNG") + std::string(description);
    text += section("BEFEHLE") + commands_text();
    text += section("OPTIONEN") + options_by_group();
    text += section("BEREICHE") + sections_text(sections);
    text += section("RÜCKGABEWERT") + status_text();
    return text + section("\"SIEHE AUCH\"") + std::string(see_also);
}

}  // namespace prot
