#include "platform/portable/screen/screen_displays.h"

#include <sstream>

#include <gtest/gtest.h>

#include "platform/portable/screen/screen_forms.h"
#include "platform/portable/screen/text_window.h"
#include "scripted_screen.h"

namespace prot {
namespace {

using Kind = Key::Kind;
using Lines = std::vector<std::string>;
using test::key;
using test::letter;
using test::ScriptedScreen;

class NoForms : public FormDisplay {
public:
    int shown = 0;
    void standard_setup(Form&, int) override {}
    void show_modal(Form& form) override {
        ++shown;
        form.shown = false;
    }
};

class NoHelp : public HelpDisplay {
public:
    bool show_topic(std::string_view, std::string_view) override { return false; }
};

/// A form of one list, whose OK does what a test wants, on a scripted screen.
class ScreenDisplaysTest : public testing::Test {
protected:
    ScreenDisplaysTest() {
        form.caption = "Ausgabe";
        form.fields = {{.label = "Liste"}};
        for (const char* entry : {"eins", "zwei"}) form.fields[0].add(0, entry);
        form.ok = {.text = "OK", .click = [this] {
                       form.shown = false;
                       on_ok();
                   }};
        form.cancel = {.text = "Abbrechen", .click = [this] { form.shown = false; }};
    }
    static TerminalSettings settings(std::ostream& output) {
        TerminalSettings settings;
        settings.program = "prog";
        settings.output = &output;
        settings.refusal = "Niemand da.";
        return settings;
    }
    void show(std::initializer_list<Key> keys) {
        screen.keys = keys;
        forms.show_modal(form);
    }

    Form form;
    std::function<void()> on_ok = [] {};
    std::ostringstream output;
    Terminal terminal{settings(output)};
    NoForms plain_forms;
    ScriptedScreen screen;
    TerminalMessageBoxes plain_boxes{terminal, false};
    ScreenForms forms{screen, terminal, plain_forms};
    ScreenMessageBoxes boxes{screen, forms, plain_boxes};
};

TEST_F(ScreenDisplaysTest, AFormIsShownUntilAKeyEndsIt) {
    show({key(Kind::down), key(Kind::enter)});
    EXPECT_EQ(form.fields[0].selected_text(), "eins");
    EXPECT_FALSE(form.shown);
    EXPECT_EQ(terminal.outcome(), Outcome::done);
    EXPECT_FALSE(screen.is_open());
    EXPECT_EQ(output.str(), "") << "nothing but the windows is written";
}

TEST_F(ScreenDisplaysTest, CancelMarksTheRun) {
    show({key(Kind::escape)});
    EXPECT_EQ(terminal.outcome(), Outcome::cancelled);
}

TEST_F(ScreenDisplaysTest, ATerminalThatIsGoneCancels) {
    show({});
    EXPECT_FALSE(form.shown);
    EXPECT_EQ(terminal.outcome(), Outcome::cancelled);
}

TEST_F(ScreenDisplaysTest, AFormThatTheScreenCannotShowIsAskedLineByLine) {
    screen.usable = false;
    show({});
    EXPECT_EQ(plain_forms.shown, 1);
    screen.usable = true;
    for (int i = 0; i < 30; ++i) form.fields.push_back({.kind = FieldKind::text, .label = "Feld"});
    show({});
    EXPECT_EQ(plain_forms.shown, 2) << "too high for 24 lines";
}

TEST_F(ScreenDisplaysTest, AFormStartsInItsSearchField) {
    form.fields.push_back({.kind = FieldKind::picker, .label = "Mandant"});
    form.fields[1].entries = {{1, "Meier", "7"}, {2, "Maier", "8"}};
    show({letter(U'7'), key(Kind::enter)});
    EXPECT_EQ(form.fields[1].selected, 0U);
    EXPECT_EQ(terminal.outcome(), Outcome::done);
}

TEST_F(ScreenDisplaysTest, AFormStartsWhereItAsksToOrWhereItCan) {
    form.fields.push_back({.kind = FieldKind::picker, .label = "Mandant"});
    form.fields[1].entries = {{1, "zwei", "2"}, {2, "z", "3"}};
    form.set_focus(0);
    show({letter(U'z'), key(Kind::enter)});
    EXPECT_EQ(form.fields[0].selected_text(), "zwei");
    form.fields[1].enabled = false;
    form.focus = 0;
    show({letter(U'e'), key(Kind::enter)});
    EXPECT_EQ(form.fields[0].selected_text(), "eins");
}

TEST_F(ScreenDisplaysTest, EnterThatFindsNobodyIsAnsweredInFrontOfTheForm) {
    form.fields.push_back({.kind = FieldKind::picker, .label = "Mandant"});
    form.fields[1].entries = {{1, "Meier", "7"}};
    form.ok.enabled = false;
    show({letter(U'x'), key(Kind::enter), key(Kind::enter), key(Kind::escape)});
    EXPECT_EQ(screen.titles, (Lines{"Ausgabe", "Ausgabe", "Auswahl", "Ausgabe"}));
    EXPECT_NE(screen.seen[2][1].find("Mandant: „x“ passt auf keinen Eintrag."), std::string::npos);
    EXPECT_EQ(form.fields[1].text, "x") << "what was typed is kept";
    EXPECT_EQ(terminal.outcome(), Outcome::cancelled);
}

TEST_F(ScreenDisplaysTest, TheScreenIsGivenBackWhenSomethingThrows) {
    on_ok = [] { throw std::runtime_error("x"); };
    EXPECT_THROW(show({key(Kind::enter)}), std::runtime_error);
    EXPECT_FALSE(screen.is_open());
}

TEST_F(ScreenDisplaysTest, AMessageIsAWindowInFrontOfTheForm) {
    on_ok = [this] {
        EXPECT_EQ(boxes.show("Nicht\r\nerlaubt", BoxStyle::exclamation, "Achtung"), BoxAnswer::ok);
    };
    show({key(Kind::enter), test::function_key(1), key(Kind::enter)});
    ASSERT_EQ(screen.titles, (Lines{"Ausgabe", "Achtung", "Achtung"}));
    EXPECT_EQ(screen.seen[1], (Lines{"", " Nicht", " erlaubt", "", "  < OK >", ""}));
    EXPECT_EQ(output.str(), "");
}

TEST_F(ScreenDisplaysTest, AQuestionIsAnsweredByItsButtons) {
    const struct {
        std::vector<Key> keys;
        BoxAnswer answer;
        const char* why;
    } rows[] = {
        {{key(Kind::enter)}, BoxAnswer::no, "a hasty Enter"},
        {{key(Kind::escape)}, BoxAnswer::no, "Esc"},
        {{letter(U'j')}, BoxAnswer::yes, "its letter"},
        {{key(Kind::left), key(Kind::enter)}, BoxAnswer::yes, "the other button"},
        {{key(Kind::tab), letter(U' ')}, BoxAnswer::yes, "the other button, by the space bar"},
        {{}, BoxAnswer::no, "the terminal is gone"},
    };
    for (const auto& row : rows) {
        form.fields[0].selected = 0;
        BoxAnswer answer{};
        on_ok = [&] {
            screen.keys.assign(row.keys.begin(), row.keys.end());
            answer = boxes.show("Weiter?", BoxStyle::question_yes_no, "Frage");
        };
        show({key(Kind::enter)});
        EXPECT_EQ(answer, row.answer) << row.why;
    }
    EXPECT_EQ(terminal.outcome(), Outcome::cancelled) << "an answer of no marks the run";
    EXPECT_TRUE(plain_boxes.shown());
}

TEST_F(ScreenDisplaysTest, AnAnswerGivenBeforehandShowsNoWindow) {
    TerminalMessageBoxes told(terminal, true);
    ScreenMessageBoxes told_boxes(screen, forms, told);
    on_ok = [&] { EXPECT_EQ(told_boxes.show("?", BoxStyle::question_yes_no, "Frage"), BoxAnswer::yes); };
    show({key(Kind::enter)});
    EXPECT_EQ(screen.titles, Lines{"Ausgabe"});
}

TEST_F(ScreenDisplaysTest, WithoutAFormMessagesAreLines) {
    boxes.show("Keine Daten", BoxStyle::information, "Titel");
    ScreenErrorDisplay(screen, terminal).ZQ_gShowError(5, "A", "B");
    EXPECT_TRUE(screen.titles.empty());
    EXPECT_TRUE(output.str().starts_with("[Titel] Keine Daten\nProblembericht\n")) << output.str();
}

TEST_F(ScreenDisplaysTest, AQuestionBehindAFormHasAScreenOfItsOwn) {
    show({key(Kind::enter)});
    screen.keys = {letter(U'j')};
    EXPECT_EQ(boxes.show("Löschen?", BoxStyle::question_yes_no, "Frage"), BoxAnswer::yes);
    EXPECT_EQ(screen.titles, (Lines{"Ausgabe", "Frage"}));
    EXPECT_FALSE(screen.is_open());
    EXPECT_EQ(output.str(), "");
}

TEST_F(ScreenDisplaysTest, AQuestionWithoutAFormIsAskedOnLines) {
    EXPECT_EQ(boxes.show("Löschen?", BoxStyle::question_yes_no, "Frage"), BoxAnswer::no);
    EXPECT_TRUE(screen.titles.empty());
    EXPECT_TRUE(output.str().starts_with("[Frage] Löschen?\n")) << output.str();
}

TEST_F(ScreenDisplaysTest, AQuestionThatTheScreenDoesNotShowIsAskedOnLines) {
    show({key(Kind::enter)});
    screen.usable = false;
    EXPECT_EQ(boxes.show("Löschen?", BoxStyle::question_yes_no, "Frage"), BoxAnswer::no);
    EXPECT_TRUE(output.str().starts_with("[Frage] Löschen?\n")) << output.str();
}

TEST_F(ScreenDisplaysTest, AProblemReportIsAWindow) {
    on_ok = [this] { ScreenErrorDisplay(screen, terminal).ZQ_gShowError(5, "A\r\nB", "Das war nichts."); };
    show({key(Kind::enter), key(Kind::enter)});
    EXPECT_EQ(screen.titles.back(), "Problembericht");
    EXPECT_EQ(screen.seen.back(), (Lines{"",                                //
                                         " Fehler-Nr: 5 (0x00000005)",      //
                                         " Fehlerquelle: A",                //
                                         "     B",                          //
                                         " Beschreibung: Das war nichts.",  //
                                         "",                                //
                                         "            < OK >",              //
                                         ""}));
    EXPECT_EQ(terminal.outcome(), Outcome::failed);
    EXPECT_EQ(output.str(), "");
}

TEST_F(ScreenDisplaysTest, HelpIsAWindowThatScrolls) {
    std::string text;
    for (int i = 0; i < 40; ++i) text += "Zeile " + std::to_string(i) + "\n";
    ScreenHelpDisplay help(screen, std::make_unique<NoHelp>(),
                           [&](std::string_view, std::string_view) { return text; });
    on_ok = [&] { EXPECT_TRUE(help.show_topic("karte.xml", "HID_X")); };
    show({key(Kind::enter), key(Kind::page_down), key(Kind::end), key(Kind::home), key(Kind::down),
          key(Kind::escape)});
    ASSERT_EQ(screen.seen.size(), 6U);
    const char* const first_lines[] = {" Zeile 0 ", " Zeile 16 ", " Zeile 24 ", " Zeile 0 ", " Zeile 1 "};
    for (std::size_t i = 0; i < std::size(first_lines); ++i)
        EXPECT_TRUE(screen.seen[i + 1][1].starts_with(first_lines[i])) << screen.seen[i + 1][1];
    EXPECT_LE(screen.seen[1].size(), 20U);
}

TEST_F(ScreenDisplaysTest, HelpThatIsMissingIsSaid) {
    ScreenHelpDisplay help(screen, std::make_unique<NoHelp>(),
                           [](std::string_view, std::string_view) { return std::nullopt; });
    on_ok = [&] { EXPECT_FALSE(help.show_topic("karte.xml", "HID_X")); };
    show({key(Kind::enter), key(Kind::enter)});
    EXPECT_EQ(screen.seen.back()[1], " Das Thema HID_X (karte.xml) fehlt; die Hilfe gehört in den Ordner");
}

}  // namespace
}  // namespace prot
