#include "platform/portable/terminal/terminal_error_display.h"

#include <cinttypes>
#include <cstdio>

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

std::string problem_report_text(std::int32_t number, std::string_view source, std::string_view description) {
    return "Fehler-Nr: " + number_text(number) + "\nFehlerquelle: " + indented(source) +
           "\nBeschreibung: " + indented(description);
}

void TerminalErrorDisplay::ZQ_gShowError(std::int32_t lNummer, std::string_view sQuelle,
                                         std::string_view sBeschreibung) {
    terminal_.note(Outcome::failed);
    terminal_.write(std::string(problem_report_title) + '\n' +
                    problem_report_text(lNummer, sQuelle, sBeschreibung) + '\n');
}

}  // namespace prot
