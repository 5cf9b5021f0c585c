#include "apps/protcsv/displays/line_displays.h"

#include "apps/protcsv/displays/progress_bar.h"
#include "platform/automation/letter_case.h"
#include "platform/portable/files/paths.h"
#include "platform/portable/terminal/terminal_error_display.h"
#include "platform/portable/terminal/terminal_help_display.h"

namespace prot {

std::string folder_text(const std::string& folder) {
    return path_text(shortest_path(absolute_path(text_path(folder.empty() ? "." : folder))));
}

std::unique_ptr<ErrorDisplay> LineDisplays::create_error_display() {
    return std::make_unique<TerminalErrorDisplay>(means_.terminal);
}

std::unique_ptr<HelpDisplay> LineDisplays::create_help_display() {
    return std::make_unique<TerminalHelpDisplay>(means_.terminal, HelpTopics::of_program());
}

std::unique_ptr<ProgressParent> LineDisplays::create_progress() {
    if (!means_.status_line) return nullptr;
    return std::make_unique<ProgressBar>(means_.terminal);
}

bool LineDisplays::may_replace(const std::string& path) {
    Terminal& terminal = means_.terminal;
    if (!terminal.asks_person()) return true;
    const std::optional<std::string> answer =
        terminal.ask("Die Datei „" + path + "“ gibt es schon. Ersetzen? Ja/Nein", "Nein");
    const std::string word = to_lower(std::string_view(answer.value_or("")));
    return word == "j" || word == "ja";
}

/// A person who asks for help does not name a file.
std::optional<std::string> LineDisplays::ask_file_name(const std::string& suggestion,
                                                       const std::string& folder) {
    Terminal& terminal = means_.terminal;
    if (terminal.asks_person()) terminal.write("Ordner: " + folder_text(folder) + '\n');
    for (;;) {
        const std::optional<std::string> name = terminal.ask("Dateiname", suggestion);
        if ((name != "?" && name != "??") || !terminal.asks_person()) return name;
        terminal.write("Die Datei kommt in den " +
                       (folder.empty() ? "aktuellen Ordner" : "Ordner „" + folder + "“") +
                       "; ohne Endung bekommt der Name .csv.\n");
    }
}

}  // namespace prot
