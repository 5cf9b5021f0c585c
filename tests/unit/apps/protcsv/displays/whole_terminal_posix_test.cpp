#include <algorithm>
#include <sstream>

#include <gtest/gtest.h>

#include "apps/protcsv/displays/whole_terminal.h"
#include "tests/unit/platform/portable/screen/scripted_screen.h"

namespace prot {
namespace {

using Kind = Key::Kind;
using Titles = std::vector<std::string>;
using test::key;

/// A run that has the whole terminal, with a form whose OK does what a test wants.
class WholeTerminalTest : public testing::Test {
protected:
    WholeTerminalTest() : terminal(settings()) {
        form.caption = "Auswahl";
        form.fields = {{.label = "Währung", .entries = {{1, "EUR"}}, .selected = 0}};
        form.ok = {.text = "OK", .click = [this] {
                       form.shown = false;
                       on_ok();
                   }};
        form.cancel = {.text = "Abbrechen", .click = [this] { form.shown = false; }};
    }
    TerminalSettings settings() {
        TerminalSettings person;
        person.output = &output;
        person.keyboard = &keyboard;
        return person;
    }
    void show(std::initializer_list<Key> keys) {
        screen->keys = keys;
        displays->forms().show_modal(form);
    }

    std::ostringstream output;
    std::istringstream keyboard{"Von Hand.csv\n"};
    Terminal terminal;
    TerminalMessageBoxes boxes{terminal, false};
    Form form;
    std::function<void()> on_ok = [] {};
    test::ScriptedScreen* screen = new test::ScriptedScreen;  // the displays own it
    const std::unique_ptr<Displays> displays =
        whole_terminal({terminal, boxes, true, true}, std::unique_ptr<Screen>(screen));
};

TEST_F(WholeTerminalTest, ShowsAFormAndWhatComesUpInFrontOfIt) {
    on_ok = [this] {
        displays->message_boxes().show("Nicht erlaubt", BoxStyle::exclamation, "Achtung");
        displays->create_error_display()->ZQ_gShowError(5, "A", "B");
        displays->create_help_display()->show_topic("karte.xml", "HID_KEINES");
    };
    show({key(Kind::enter), key(Kind::enter), key(Kind::enter), key(Kind::enter)});
    EXPECT_EQ(screen->titles, (Titles{"Auswahl", "Achtung", "Problembericht", "Hilfe"}));
    EXPECT_NE(screen->seen.back()[1].find("Das Thema HID_KEINES (karte.xml)"), std::string::npos);
    EXPECT_EQ(output.str(), "");
    EXPECT_EQ(terminal.outcome(), Outcome::failed);
    EXPECT_TRUE(boxes.shown());
}

TEST_F(WholeTerminalTest, AsksForTheFileNameByAForm) {
    screen->keys = {key(Kind::end), test::letter(U'x'), key(Kind::enter)};
    EXPECT_EQ(displays->ask_file_name("Prot.csv", "ordner"), "Prot.csvx");
    EXPECT_EQ(screen->titles, (Titles{3, "CSV-Datei schreiben"}));
    screen->keys = {key(Kind::escape)};
    EXPECT_EQ(displays->ask_file_name("Prot.csv", "ordner"), std::nullopt);
    EXPECT_EQ(terminal.outcome(), Outcome::cancelled);
    EXPECT_EQ(output.str(), "");
}

TEST_F(WholeTerminalTest, KeepsWhatWasEnteredWhenAFileNameIsRefused) {
    screen->keys = {key(Kind::end), test::letter(U'x'), key(Kind::enter)};
    EXPECT_EQ(displays->ask_file_name("Prot.csv", "ordner"), "Prot.csvx");
    displays->refuse_file_name("Den Namen gibt es schon.");
    screen->keys = {key(Kind::end), test::letter(U'y'), key(Kind::enter)};
    EXPECT_EQ(displays->ask_file_name("Prot.csv", "ordner"), "Prot.csvxy");
    const auto& seen = screen->seen.back();
    EXPECT_TRUE(std::ranges::any_of(seen, [](const std::string& line) {
        return line.find("Den Namen gibt es schon.") != std::string::npos;
    }));
    screen->keys = {key(Kind::enter)};
    EXPECT_EQ(displays->ask_file_name("Andere.csv", "ordner"), "Andere.csv") << "of the next file";
    EXPECT_EQ(output.str(), "");
}

TEST_F(WholeTerminalTest, AsksBeforeAFileIsReplacedWithNoAsTheDefault) {
    screen->keys = {key(Kind::enter)};
    EXPECT_FALSE(displays->may_replace("o/Prot.csv"));
    EXPECT_NE(screen->seen.back()[1].find("Die Datei „o/Prot.csv“ gibt es schon."), std::string::npos);
    screen->keys = {test::letter(U'j')};
    EXPECT_TRUE(displays->may_replace("o/Prot.csv"));
    screen->usable = false;
    EXPECT_FALSE(displays->may_replace("o/Prot.csv")) << "what is typed on the line is no Yes";
    EXPECT_NE(output.str().find("Ersetzen?"), std::string::npos);
}

TEST_F(WholeTerminalTest, ShowsTheFolderOfTheFile) {
    screen->keys = {key(Kind::enter)};
    displays->ask_file_name("Prot.csv", "ordner");
    EXPECT_TRUE(std::ranges::any_of(screen->seen.back(), [](const std::string& line) {
        return line.find("Ordner: /") != std::string::npos;
    }));
}

TEST_F(WholeTerminalTest, AsksOnLinesWhatTheTerminalCannotShow) {
    screen->usable = false;
    EXPECT_EQ(displays->ask_file_name("Prot.csv", "ordner"), "Von Hand.csv");
    EXPECT_NE(output.str().find("Dateiname [Prot.csv]: "), std::string::npos) << output.str();
}

TEST_F(WholeTerminalTest, LeavesEverythingToTheLinesWhileNoFormIsOpen) {
    displays->message_boxes().show("Keine Daten", BoxStyle::information, "Titel");
    displays->create_error_display()->ZQ_gShowError(5, "A", "B");
    displays->create_help_display()->show_topic("karte.xml", "HID_KEINES");
    displays->tell(Telling::notice, "Hinweis\n");
    EXPECT_TRUE(screen->titles.empty());
    EXPECT_TRUE(output.str().starts_with("[Titel] Keine Daten\nProblembericht\n")) << output.str();
    EXPECT_TRUE(output.str().ends_with("neben dem Programm.\nHinweis\n")) << output.str();
    EXPECT_NE(displays->create_progress(), nullptr);
}

}  // namespace
}  // namespace prot
