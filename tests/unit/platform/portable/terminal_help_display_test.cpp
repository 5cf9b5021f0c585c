#include "platform/portable/terminal_help_display.h"

#include <sstream>

#include <gtest/gtest.h>

namespace prot {
namespace {

TEST(TerminalHelpDisplay, NamesTopicAndMap) {
    std::ostringstream output;
    TerminalSettings settings;
    settings.output = &output;
    Terminal terminal(settings);
    EXPECT_TRUE(TerminalHelpDisplay(terminal).show_topic("karte.xml", "HID_THEMA"));
    EXPECT_EQ(output.str(), "Hilfe: Thema HID_THEMA in karte.xml\n");
}

}  // namespace
}  // namespace prot
