#include "platform/portable/terminal_help_display.h"

namespace prot {

bool TerminalHelpDisplay::show_topic(std::string_view map_file, std::string_view help_id) {
    terminal_.write("Hilfe: Thema " + std::string(help_id) + " in " + std::string(map_file) + '\n');
    return true;
}

}  // namespace prot
