#include "apps/protcsv/displays/line_displays.h"

#include "apps/protcsv/displays/progress_bar.h"
#include "platform/portable/terminal/terminal_error_display.h"
#include "platform/portable/terminal/terminal_help_display.h"

namespace prot {

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

/// A person who asks for help does not name a file.
std::optional<std::string> LineDisplays::ask_file_name(const std::string& suggestion,
                                                       const std::string& folder) {
    Terminal& terminal = means_.terminal;
    for (;;) {
        const std::optional<std::string> name = terminal.ask("Dateiname", suggestion);
        if ((name != "?" && name != "??") || !terminal.asks_person()) return name;
        terminal.write("Die Datei kommt in den " +
                       (folder.empty() ? "aktuellen Ordner" : "Ordner „" + folder + "“") +
                       "; ohne Endung bekommt der Name .csv.\n");
    }
}

}  // namespace prot
