#include "platform/portable/terminal/terminal_error_display.h"

#include <sstream>

#include <gtest/gtest.h>

namespace prot {
namespace {

TEST(TerminalErrorDisplay, ShowsNumberChainAndDescriptionAndMarksTheRunAsFailed) {
    std::ostringstream output;
    TerminalSettings settings;
    settings.output = &output;
    Terminal terminal(settings);

    TerminalErrorDisplay(terminal).ZQ_gShowError(-2147221503, "SQLite\r\nModul.eins\r\nModul.zwei",
                                                 "Ein\r\nFehler");

    EXPECT_EQ(output.str(),
              "Problembericht\n"
              "Fehler-Nr: -2147221503 (0x80040001)\n"
              "Fehlerquelle: SQLite\n"
              "    Modul.eins\n"
              "    Modul.zwei\n"
              "Beschreibung: Ein\n"
              "    Fehler\n");
    EXPECT_EQ(terminal.outcome(), Outcome::failed);
}

}  // namespace
}  // namespace prot
