#include "platform/portable/terminal_error_display.h"

#include <cinttypes>
#include <cstdio>
#include <string>

namespace prot {

namespace {

std::string number_text(std::int32_t number) {
    char text[32];
    std::snprintf(text, sizeof text, "%" PRId32 " (0x%08" PRIX32 ")", number,
                  static_cast<std::uint32_t>(number));
    return text;
}

/// `text` with every line after the first on a line of its own, indented.
std::string indented(std::string_view text) {
    std::string lines;
    for (const char c : text) {
        if (c == '\r') continue;
        lines += c;
        if (c == '\n') lines += "    ";
    }
    return lines;
}

}  // namespace

void TerminalErrorDisplay::ZQ_gShowError(std::int32_t lNummer, std::string_view sQuelle,
                                         std::string_view sBeschreibung) {
    terminal_.note(Outcome::failed);
    terminal_.write("Problembericht\nFehler-Nr: " + number_text(lNummer) + "\nFehlerquelle: " +
                    indented(sQuelle) + "\nBeschreibung: " + indented(sBeschreibung) + '\n');
}

}  // namespace prot
