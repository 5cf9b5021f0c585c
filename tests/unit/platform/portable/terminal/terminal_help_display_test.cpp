#include "platform/portable/terminal/terminal_help_display.h"

#include <gtest/gtest.h>

#include <sstream>

#include "tests/unit/support/temporary_folder.h"

namespace prot {
namespace {

class TerminalHelpDisplayTest : public testing::Test {
protected:
    bool show(const std::string& id) {
        TerminalSettings settings;
        settings.output = &output_;
        Terminal terminal(settings);
        return TerminalHelpDisplay(terminal, HelpTopics(folder_.path())).show_topic("karte.xml", id);
    }

    TemporaryFolder folder_;
    std::ostringstream output_;
};

TEST_F(TerminalHelpDisplayTest, ShowsTheTextOfTheTopicBetweenBlankLines) {
    write_file(folder_ / "karte.xml", R"(<hilfe><thema id="HID_THEMA" seite="thema.html"/></hilfe>)");
    write_file(folder_ / "thema.html", "<html><body><h1>Thema</h1><p>Schöne Hilfe.</p></body></html>");
    EXPECT_TRUE(show("HID_THEMA"));
    EXPECT_EQ(output_.str(), "\nThema\n=====\n\nSchöne Hilfe.\n\n");
}

TEST_F(TerminalHelpDisplayTest, SaysInOneLineThatATopicIsMissing) {
    EXPECT_FALSE(show("HID_THEMA"));
    EXPECT_EQ(
        output_.str(),
        "Hilfe: Das Thema HID_THEMA (karte.xml) fehlt; die Hilfe gehört in den Ordner „hilfe“ neben dem "
        "Programm.\n");
}

}  // namespace
}  // namespace prot
