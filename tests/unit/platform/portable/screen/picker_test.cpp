#include <gtest/gtest.h>

#include "platform/portable/screen/form_session.h"
#include "platform/portable/screen/form_window.h"
#include "scripted_screen.h"

namespace prot {
namespace {

using Kind = Key::Kind;
using Lines = std::vector<std::string>;
using test::key;

/// A form of a picker and a text, as its window shows it after each key.
class PickerTest : public testing::Test {
protected:
    enum : std::size_t { picker, text };

    PickerTest() {
        form.caption = "Ausgabe";
        form.fields = {{.kind = FieldKind::picker, .name = "ctl", .label = "&Mandant", .longest = 12},
                       {.kind = FieldKind::text, .name = "txt", .label = "&bis", .longest = 5}};
        clients().entries = {{1, "Müller GmbH", "7"},
                             {2, "Bäckerei Möller", "10"},
                             {3, "Müller & Söhne", "70"},
                             {4, "Schulz OHG", "100"}};
        clients().changed = [this] { ++changes; };
        form.ok = {.text = "OK", .click = [this] { form.shown = false; }};
        form.cancel = {.text = "Abbrechen", .click = [this] { form.shown = false; }};
        form.shown = true;
    }
    Field& clients() { return form.fields[picker]; }

    void press(std::initializer_list<Key> keys) {
        for (const Key& one : keys) {
            picture();
            session.press(one);
        }
    }
    void type(std::u32string_view letters) {
        for (const char32_t c : letters) press({test::letter(c)});
    }
    void fill(int count) {
        clients().entries.clear();
        for (int i = 1; i <= count; ++i) clients().entries.push_back({i, "Mandant", std::to_string(i)});
    }

    Picture picture(Size screen = {80, 24}) { return window.picture(screen); }
    /// The typing line and the rows that hold anything.
    Lines shown() {
        const Lines lines = test::as_text(picture());
        Lines rows;
        for (std::size_t i = 1; i < lines.size() && !lines[i].starts_with(" bis"); ++i)
            if (!lines[i].empty()) rows.push_back(lines[i]);
        return rows;
    }
    std::string count() { return shown().at(0).substr(shown().at(0).rfind("_  ") + 3); }
    /// The text of the first piece in that style; empty when there is none.
    std::string first_in(Style style) {
        for (const Piece& piece : picture().pieces)
            if (piece.style == style) return piece.text;
        return {};
    }

    Form form;
    int changes = 0;
    FormSession session{form};
    FormWindow window{form, session};
};

TEST_F(PickerTest, ShowsTheLineToTypeInAndBelowItNumberAndNameOfAllEntries) {
    EXPECT_EQ(shown(), (Lines{" Mandant  _____________  4 von 4",  //
                              "   7    Müller GmbH",               //
                              "   10   Bäckerei Möller",           //
                              "   70   Müller & Söhne",            //
                              "   100  Schulz OHG"}));
    EXPECT_EQ(picture().cursor.column, 10);
    EXPECT_EQ(first_in(Style::chosen), "") << "nothing is selected";
}

TEST_F(PickerTest, TypingLeavesWhatMatchesAndChoosesTheOneThatIsMeant) {
    type(U"MÜL");
    EXPECT_EQ(shown(), (Lines{" Mandant  MÜL__________  2 von 4",  //
                              "   7    Müller GmbH",               //
                              "   70   Müller & Söhne"}));
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(picture().cursor.column, 13);
    type(U" s");
    EXPECT_EQ(clients().selected, 2U);
    EXPECT_EQ(clients().text, "MÜL s");
    EXPECT_EQ(changes, 1);
    EXPECT_TRUE(first_in(Style::chosen).starts_with("• 70   Müller & Söhne"));
    press({key(Kind::backspace)});
    EXPECT_EQ(clients().selected, 2U) << "it still matches";
    EXPECT_EQ(changes, 1);
    press({key(Kind::backspace), key(Kind::home)});
    type(U"x");
    EXPECT_EQ(clients().selected, std::nullopt);
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(shown(), Lines{" Mandant  xMÜL_________  keine Treffer"});
}

TEST_F(PickerTest, AWholeNumberChoosesItsEntryThoughOthersBeginSo) {
    type(U"1");
    EXPECT_EQ(clients().selected, std::nullopt);
    type(U"0");
    EXPECT_EQ(clients().selected, 1U);
    EXPECT_EQ(count(), "2 von 4");
    type(U"0");
    EXPECT_EQ(clients().selected, 3U);
}

TEST_F(PickerTest, ArrowsMoveTheSelectionThroughTheMatches) {
    type(U"mül");
    press({key(Kind::down)});
    EXPECT_EQ(clients().selected, 0U);
    press({key(Kind::down)});
    EXPECT_EQ(clients().selected, 2U);
    press({key(Kind::down)});
    EXPECT_EQ(clients().selected, 2U) << "the last one";
    press({key(Kind::up), key(Kind::up)});
    EXPECT_EQ(clients().selected, 0U);
    EXPECT_EQ(changes, 3) << "only a change is told";
    EXPECT_EQ(clients().text, "mül") << "what is typed stays";
}

TEST_F(PickerTest, FromNoSelectionDownBeginsAtTheFirstAndUpAtTheLast) {
    press({key(Kind::up)});
    EXPECT_EQ(clients().selected, 3U);
    clients().selected.reset();
    press({key(Kind::down)});
    EXPECT_EQ(clients().selected, 0U);
    clients().selected = 1;
    type(U"mül");
    EXPECT_EQ(clients().selected, std::nullopt) << "the one before does not match";
    press({key(Kind::page_down)});
    EXPECT_EQ(clients().selected, 0U);
}

TEST_F(PickerTest, PagesFollowTheLinesOnViewAndTheListScrolls) {
    fill(100);
    press({key(Kind::down), key(Kind::page_down)});
    EXPECT_EQ(clients().selected, 10U);
    EXPECT_TRUE(shown().at(10).starts_with(" • 11   Mandant")) << shown().at(10);
    EXPECT_TRUE(shown().at(10).ends_with("#")) << "a scroll bar";
    press({key(Kind::page_up)});
    EXPECT_EQ(clients().selected, 0U);
}

TEST_F(PickerTest, TheListBeginsAtItsFirstRowAgainWhenNothingIsSelected) {
    fill(100);
    press({key(Kind::up)});
    ASSERT_EQ(clients().selected, 99U);
    type(U"9 ");
    EXPECT_EQ(clients().selected, 8U);
    press({key(Kind::backspace), key(Kind::backspace), key(Kind::up)});
    type(U"m");
    clients().selected.reset();
    EXPECT_TRUE(shown().at(1).starts_with("   1    Mandant")) << shown().at(1);
}

TEST_F(PickerTest, LeftRightHomeAndEndStayWithTheText) {
    type(U"ml");
    press({key(Kind::left)});
    type(U"ü");
    EXPECT_EQ(clients().text, "mül");
    press({key(Kind::end), key(Kind::left), key(Kind::right)});
    type(U"l");
    EXPECT_EQ(clients().text, "müll");
    EXPECT_EQ(session.target(), picker);
}

TEST_F(PickerTest, NoMoreIsTypedThanTheFieldTakes) {
    type(U"123456789012345");
    EXPECT_EQ(clients().text, "123456789012");
}

TEST_F(PickerTest, EnterSaysWhatIsMissingWhenItFindsNobodyAndLeadsToTheSearch) {
    form.ok.enabled = false;
    press({key(Kind::enter)});
    EXPECT_EQ(session.take_message(), "Mandant: Bitte eine Nummer oder einen Teil des Namens eingeben.");
    EXPECT_EQ(session.take_message(), "") << "once";
    type(U"xyz");
    press({key(Kind::tab), key(Kind::enter)});
    EXPECT_EQ(session.take_message(), "Mandant: „xyz“ passt auf keinen Eintrag.");
    EXPECT_EQ(session.target(), picker);
    EXPECT_TRUE(form.shown);
}

TEST_F(PickerTest, AnOkThatIsOffForAnotherReasonSaysSo) {
    form.ok.enabled = false;
    clients().selected = 0;
    press({key(Kind::enter)});
    EXPECT_EQ(session.take_message(), "Diese Angaben reichen noch nicht aus.");
}

TEST_F(PickerTest, EnterIsOkTabTheNextFieldAndTheLabelsLetterLeadsBack) {
    type(U"mül");
    press({key(Kind::tab)});
    EXPECT_EQ(session.target(), text);
    press({test::alt(U'm')});
    EXPECT_EQ(session.target(), picker);
    EXPECT_EQ(first_in(Style::marked), "mül") << "what was typed can be typed over";
    type(U"s");
    EXPECT_EQ(clients().text, "s");
    press({key(Kind::enter)});
    EXPECT_FALSE(form.shown);
}

TEST_F(PickerTest, FollowsEntriesThatTheFormReplacesAndATextThatItClears) {
    type(U"mül");
    press({key(Kind::down), key(Kind::tab)});
    clients().entries = {{9, "Schmidt und Partner", "5"}};
    clients().selected.reset();
    clients().text.clear();
    clients().label = "&Kanzlei";
    EXPECT_EQ(shown(), (Lines{" Kanzlei  _____________  1 von 1", "   5  Schmidt und Partner"}));
    press({test::alt(U'k')});
    type(U"schm");
    EXPECT_EQ(clients().selected, 0U);
}

TEST_F(PickerTest, FollowsAFormThatClearsTheTextWhileItIsTyped) {
    clients().changed = [this] { clients().text.clear(); };
    type(U"sö");
    EXPECT_EQ(clients().selected, 2U);
    EXPECT_EQ(count(), "4 von 4");
    type(U"m");
    EXPECT_EQ(clients().text, "m");
}

TEST_F(PickerTest, NoticesASingleEntryThatIsReplaced) {
    picture();
    clients().entries[3].text = "Neu";
    type(U"neu");
    EXPECT_EQ(clients().selected, 3U);
}

TEST_F(PickerTest, WithoutEntriesTheLineIsStillThere) {
    clients().entries.clear();
    EXPECT_EQ(shown(), Lines{" Mandant  _____________  keine Einträge"});
    press({key(Kind::down)});
    type(U"x");
    EXPECT_EQ(clients().text, "x");
    EXPECT_EQ(changes, 0);
}

TEST_F(PickerTest, ASelectionThatDoesNotMatchIsNotOnView) {
    type(U"mül");
    clients().selected = 3;
    for (const std::string& line : shown()) EXPECT_EQ(line.find("• "), std::string::npos) << line;
}

TEST_F(PickerTest, SwitchedOffItIsOnViewAndOutOfReach) {
    clients().selected = 1;
    clients().enabled = false;
    press({key(Kind::insert)});
    EXPECT_NE(session.target(), picker);
    for (const Piece& piece : picture().pieces) {
        if (piece.at.row <= 5) {
            EXPECT_EQ(piece.style, Style::disabled) << piece.text;
        }
    }
    EXPECT_EQ(shown().at(2), " • 10   Bäckerei Möller");
    press({test::alt(U'm')});
    EXPECT_NE(session.target(), picker);
}

TEST_F(PickerTest, HiddenItTakesNoPlace) {
    clients().visible = false;
    EXPECT_EQ(shown(), Lines{});
    EXPECT_EQ(test::as_text(picture()).at(1), " bis  ______");
}

TEST_F(PickerTest, WithoutNumbersThereIsOneColumn) {
    clients().entries = {{1, "eins"}, {2, "zwei"}};
    EXPECT_EQ(shown().at(2), "   zwei");
}

TEST_F(PickerTest, LongNumbersAndNamesAreCutShort) {
    clients().entries = {{1, std::string(100, 'x'), std::string(30, '9')}};
    const std::string row = shown().at(1);
    EXPECT_TRUE(row.starts_with("   9999999999999…  xxx")) << row;
    EXPECT_TRUE(row.ends_with("x…")) << row;
    EXPECT_LE(picture().size.columns, 76);
}

TEST_F(PickerTest, TheHelpLineNamesItsKeysAndFitsTheSmallestScreen) {
    form.key_down = [](const KeyStroke&) {};
    const std::string keys = picture().help_line;
    EXPECT_TRUE(keys.starts_with("Tippen sucht   ↑ ↓ Auswahl   Tab weiter   Eingabe OK")) << keys;
    EXPECT_LE(decode_utf8(keys).size(), 79U) << "a blank stands before it";
}

TEST_F(PickerTest, TypingMovesNothingInTheForm) {
    form.fields.push_back({.name = "cbo", .label = "&Jahr", .refilled = true});
    fill(50);
    clients().changed = [this] {
        form.fields[2].entries.assign(clients().selected ? 6 : 1, Entry{0, "Jahr"});
    };
    session.press(key(Kind::down));
    const Picture chosen = picture();
    type(U"xyz");
    EXPECT_EQ(picture().size, chosen.size);
    EXPECT_EQ(clients().selected, std::nullopt);
}

}  // namespace
}  // namespace prot
