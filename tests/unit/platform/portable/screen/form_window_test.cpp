#include "platform/portable/screen/form_window.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "scripted_screen.h"

namespace prot {
namespace {

using Lines = std::vector<std::string>;

/// The form's window on a screen, as text.
class FormWindowTest : public testing::Test {
protected:
    FormWindowTest() {
        form.caption = "Ausgabe";
        form.ok.text = "OK";
        form.cancel.text = "Abbrechen";
        form.shown = true;
    }
    Field& add(FieldKind kind, const char* label, int entries = 0) {
        Field& field = form.fields.emplace_back();
        field.kind = kind;
        field.label = label;
        for (int i = 0; i < entries; ++i) field.add(i, "E" + std::to_string(i));
        if (entries > 0) field.selected = 0;
        return field;
    }
    Picture picture(Size screen = {80, 24}) {
        FormSession session(form);
        FormWindow window(form, session);
        return window.picture(screen);
    }
    Lines shown(Size screen = {80, 24}) { return test::as_text(picture(screen)); }

    Form form;
};

TEST_F(FormWindowTest, ListsStandSideBySideInTheirFrame) {
    add(FieldKind::list, "&von", 3);
    add(FieldKind::list, "&bis", 2).selected = 1;
    form.groups = {{"Bereich", 0, 2}};
    EXPECT_EQ(shown(), (Lines{"",                         //
                              " ┌─ Bereich ──────────┐",  //
                              " │ von       bis      │",  //
                              " │ • E0        E0     │",  //
                              " │   E1      • E1     │",  //
                              " │   E2               │",  //
                              " └────────────────────┘",  //
                              "",                         //
                              " < OK >   < Abbrechen >",  //
                              ""}));
}

TEST_F(FormWindowTest, TheNoticeStandsAboveTheFields) {
    add(FieldKind::list, "&von", 1);
    form.notice = "Was hier gewählt wird, wird gelöscht.\nZeitraum: bis 31.12.2015";
    EXPECT_EQ(shown(), (Lines{"",                                        //
                              " Was hier gewählt wird, wird gelöscht.",  //
                              " Zeitraum: bis 31.12.2015",               //
                              "",                                        //
                              " von",                                    //
                              " • E0",                                   //
                              "",                                        //
                              "        < OK >   < Abbrechen >",          //
                              ""}));
}

TEST_F(FormWindowTest, ANoticeThatIsTooWideBreaks) {
    add(FieldKind::list, "&von", 1);
    form.notice = std::string(60, 'a') + " " + std::string(60, 'b');
    const Lines lines = shown();
    EXPECT_EQ(lines[1], " " + std::string(60, 'a'));
    EXPECT_EQ(lines[2], " " + std::string(60, 'b'));
    EXPECT_EQ(lines[4], " von");
}

TEST_F(FormWindowTest, LabelsOfTextsAndOptionsStandInOneColumn) {
    add(FieldKind::label, "Was ausgegeben wird");
    add(FieldKind::text, "&Name").longest = 5;
    form.fields[1].text = "abc";
    add(FieldKind::options, "&Richtung", 2);
    EXPECT_EQ(shown(), (Lines{"",                           //
                              " Was ausgegeben wird",       //
                              " Name      abc___",          //
                              " Richtung  (•) E0  ( ) E1",  //
                              "",                           //
                              "  < OK >   < Abbrechen >",   //
                              ""}));
}

TEST_F(FormWindowTest, ALongListScrollsAsFarAsItMust) {
    add(FieldKind::list, "Liste", 30).selected = 12;
    const Lines lines = shown();
    EXPECT_EQ(lines[2], "   E3  #");
    EXPECT_EQ(lines[11], " • E12 #");
}

TEST_F(FormWindowTest, HiddenFieldsTakeNoPlace) {
    add(FieldKind::text, "weg").visible = false;
    add(FieldKind::text, "da").longest = 3;
    form.groups = {{"ganz weg", 0, 1}};
    const Lines lines = shown();
    EXPECT_EQ(lines[1], " da  ____");
    EXPECT_EQ(lines.size(), 5U);
}

TEST_F(FormWindowTest, AFieldThatIsSwitchedOffIsOnView) {
    add(FieldKind::list, "Liste", 1).enabled = false;
    const Picture shown = picture();
    ASSERT_EQ(test::as_text(shown)[2], " • E0");
    for (const Piece& piece : shown.pieces) {
        if (piece.at.row <= 2) {
            EXPECT_EQ(piece.style, Style::disabled) << piece.text;
        }
    }
}

TEST_F(FormWindowTest, TheAccessKeyIsALetterOfAnotherColour) {
    add(FieldKind::text, "a && b&ügel");
    const Picture shown = picture();
    const auto access = std::ranges::find(shown.pieces, Style::access, &Piece::style);
    ASSERT_NE(access, shown.pieces.end());
    EXPECT_EQ(access->text, "ü");
    EXPECT_EQ(access->at.column, 6);
}

TEST_F(FormWindowTest, ASelectedTextIsMarkedAndTheCursorStandsBehindIt) {
    add(FieldKind::text, "Name").text = "äbc";
    const Picture shown = picture();
    const auto marked = std::ranges::find(shown.pieces, Style::marked, &Piece::style);
    ASSERT_NE(marked, shown.pieces.end());
    EXPECT_EQ(marked->text, "äbc");
    EXPECT_EQ(shown.cursor.column, 10);
    EXPECT_EQ(shown.cursor.row, 1);
}

TEST_F(FormWindowTest, EntriesThatAreTooWideAreCutShort) {
    add(FieldKind::list, "Liste", 1).entries[0].text = std::string(100, 'x');
    const Lines lines = shown();
    EXPECT_TRUE(lines[2].ends_with("x…")) << lines[2];
    EXPECT_LE(picture().size.columns, 76);
}

TEST_F(FormWindowTest, ManyListsShareTheLinesOfTheScreen) {
    for (int i = 0; i < 8; ++i) add(FieldKind::list, "Eine Liste mit einer langen Beschriftung", 30);
    const Picture shown = picture();
    EXPECT_LE(shown.size.rows, 20);
    for (const Piece& piece : shown.pieces) EXPECT_LT(piece.at.row, shown.size.rows) << piece.text;
}

TEST_F(FormWindowTest, AListThatIsRefilledKeepsItsPlaceWhateverItHolds) {
    add(FieldKind::list, "&Art", 30);
    add(FieldKind::list, "&Rahmen", 1).refilled = true;
    add(FieldKind::list, "&Umfang", 1);
    const Lines before = shown();
    for (int i = 0; i < 30; ++i) form.fields[1].add(i, "ein anderer Eintrag");
    const Lines after = shown();
    ASSERT_EQ(before.size(), after.size());
    for (const char* label : {" Art", " Rahmen", " Umfang"})
        EXPECT_EQ(std::ranges::find(before, label) - before.begin(),
                  std::ranges::find(after, label) - after.begin())
            << label;
    const auto list = std::ranges::find(after, " Rahmen");
    ASSERT_LT(list, after.end() - 3);
    EXPECT_TRUE(list[3].starts_with("   ein anderer Eintrag")) << "it uses the lines that it keeps";
}

TEST_F(FormWindowTest, AFieldThatGoesAwayLeavesTheWindowAsWideAsItWas) {
    add(FieldKind::list, "Art", 3);
    add(FieldKind::list, "Eine lange Beschriftung", 3);
    FormSession session(form);
    FormWindow window(form, session);
    const Size whole = window.picture({80, 24}).size;
    form.fields[1].visible = false;
    EXPECT_EQ(window.picture({80, 24}).size, whole);
    EXPECT_LT(window.picture({40, 24}).size.columns, 40) << "on a smaller screen";
}

TEST_F(FormWindowTest, AScreenThatIsTooSmallSaysSo) {
    add(FieldKind::list, "Liste", 30);
    EXPECT_EQ(shown({80, 6}), Lines{"Das Fenster ist zu klein."});
    EXPECT_EQ(shown({10, 24}), Lines{"Das Fenster ist zu klein."});
}

TEST_F(FormWindowTest, TheHelpLineNamesTheKeysThatDoSomething) {
    add(FieldKind::text, "Name");
    EXPECT_EQ(picture().help_line, "Tab nächstes Feld   Eingabe OK   Esc Abbrechen");
    form.key_down = [](const KeyStroke&) {};
    form.fields[0].kind = FieldKind::list;
    EXPECT_EQ(picture().help_line, "↑ ↓ Auswahl   Tab nächstes Feld   Eingabe OK   Esc Abbrechen   F1 Hilfe");
}

}  // namespace
}  // namespace prot
