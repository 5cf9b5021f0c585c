#include "platform/portable/terminal/terminal_help_display.h"

namespace prot {

std::string missing_topic_text(std::string_view map_file, std::string_view help_id) {
    return "Das Thema " + std::string(help_id) + " (" + std::string(map_file) +
           ") fehlt; die Hilfe gehört in den Ordner „hilfe“ neben dem Programm.";
}

bool TerminalHelpDisplay::show_topic(std::string_view map_file, std::string_view help_id) {
    if (const std::optional<std::string> text = topics_.text(map_file, help_id)) {
        terminal_.write('\n' + *text + '\n');
        return true;
    }
    terminal_.write("Hilfe: " + missing_topic_text(map_file, help_id) + '\n');
    return false;
}

}  // namespace prot
