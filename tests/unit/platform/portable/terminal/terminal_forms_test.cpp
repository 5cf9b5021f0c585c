#include "platform/portable/terminal/terminal_forms.h"

#include <functional>
#include <sstream>

#include <gtest/gtest.h>

namespace prot {
namespace {

/// A form of two list fields whose OK runs `on_ok`, by default closing the form.
class TerminalFormsTest : public testing::Test {
protected:
    TerminalFormsTest() {
        form.caption = "Protokollausgabe";
        form.fields = {{.name = "cboVon", .label = "&von"}, {.name = "cboBis", .label = "&bis"}};
        form.ok.click = [this] {
            ++accepted;
            on_ok();
        };
        form.cancel.click = [this] {
            ++cancelled;
            form.shown = false;
        };
        form.key_down = [this](const KeyStroke& key) { keys.push_back(key.code); };
        for (Field& field : form.fields)
            for (const char* code : {"AUD", "EUR", "ÖRE"}) field.add(0, code);
        form.fields[0].selected = 0;
        form.fields[1].selected = 2;
        settings.program = "prog";
        settings.output = &output;
        settings.refusal = "Niemand da.";
    }

    Outcome show() {
        Terminal terminal(settings);
        TerminalForms(terminal).show_modal(form);
        return terminal.outcome();
    }
    Outcome show_to_person(const std::string& typed) {
        keyboard.str(typed);
        settings.keyboard = &keyboard;
        return show();
    }
    /// What a person reads, behind heading and hint.
    std::string conversation() const {
        const std::size_t hint_end = output.str().find(")\n");
        return hint_end == std::string::npos ? output.str() : output.str().substr(hint_end + 2);
    }
    std::string range() const {
        return form.fields[0].selected_text() + "-" + form.fields[1].selected_text();
    }

    Form form;
    TerminalSettings settings;
    std::ostringstream output;
    std::istringstream keyboard;
    std::function<void()> on_ok = [this] { form.shown = false; };
    std::vector<int> keys;
    int accepted = 0;
    int cancelled = 0;
};

TEST_F(TerminalFormsTest, AsksFieldByFieldAndTakesTheSuggestionForAnEmptyAnswer) {
    settings.answers = "EUR\n";
    EXPECT_EQ(show(), Outcome::done);
    EXPECT_EQ(range(), "EUR-ÖRE");
    EXPECT_EQ(accepted, 1);
    EXPECT_EQ(cancelled, 0);
    EXPECT_EQ(output.str(), "Protokollausgabe\nvon [AUD]: EUR\nbis [ÖRE]: \n");
}

TEST_F(TerminalFormsTest, SaysTheNoticeAboveTheFields) {
    form.notice = "Achtung!\nZeitraum: alle Tage";
    settings.answers = "EUR\n";
    show();
    EXPECT_EQ(output.str(), "Protokollausgabe\nAchtung!\nZeitraum: alle Tage\nvon [AUD]: EUR\nbis [ÖRE]: \n");
}

TEST_F(TerminalFormsTest, PrefersAnExactEntryAndElseIgnoresLetterCase) {
    form.fields[0].add(0, "eur");
    settings.answers = "eur\nöre";
    show();
    EXPECT_EQ(range(), "eur-ÖRE");
}

TEST_F(TerminalFormsTest, AsksAgainForAnAnswerThatIsNotInTheList) {
    EXPECT_EQ(show_to_person("XYZ\nEUR\n\n"), Outcome::done);
    EXPECT_EQ(conversation(),
              "von [AUD]: „XYZ“ steht nicht in der Liste: AUD, EUR, ÖRE\nvon [AUD]: bis [ÖRE]: ");
    EXPECT_EQ(range(), "EUR-ÖRE");
}

TEST_F(TerminalFormsTest, APreparedAnswerThatIsRefusedEndsTheRunWithoutAnotherQuestion) {
    settings.answers = "XYZ\nEUR\n";
    EXPECT_EQ(show(), Outcome::refused);
    EXPECT_EQ(output.str(),
              "Protokollausgabe\nvon [AUD]: XYZ\n„XYZ“ steht nicht in der Liste: AUD, EUR, ÖRE\n"
              "prog: Diese vorbereitete Antwort passt nicht; der Lauf endet, ohne dass etwas getan wurde.\n");
    EXPECT_EQ(range(), "AUD-ÖRE");
    EXPECT_EQ(accepted, 0);
    EXPECT_EQ(cancelled, 1);
}

TEST_F(TerminalFormsTest, PreparedAnswersThatACheckOfTheFormRefusesEndTheRun) {
    form.fields.insert(form.fields.begin(), {.kind = FieldKind::label, .label = "Nur ein Hinweis"});
    on_ok = [] {};
    settings.answers = "EUR\nAUD\nAUD\nEUR";
    EXPECT_EQ(show(), Outcome::refused);
    EXPECT_EQ(output.str(),
              "Protokollausgabe\nNur ein Hinweis\nvon [AUD]: EUR\nbis [ÖRE]: AUD\n"
              "prog: Diese vorbereitete Antwort passt nicht; der Lauf endet, ohne dass etwas getan wurde.\n");
    EXPECT_EQ(cancelled, 1);
}

TEST_F(TerminalFormsTest, ShortensALongListInARefusal) {
    form.fields[0].entries.clear();
    for (int i = 1; i <= 21; ++i) form.fields[0].add(i, std::to_string(i));
    settings.answers = "x\n1\nEUR";
    show();
    EXPECT_NE(
        output.str().find("steht nicht in der Liste: 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, "
                          "17, 18, 19, 20 …\n"),
        std::string::npos);
}

TEST_F(TerminalFormsTest, AsksTheWholeFormAgainWithTheGivenValuesWhenACheckKeepsItOpen) {
    on_ok = [this] { form.shown = range() != "EUR-EUR"; };
    EXPECT_EQ(show_to_person("EUR\nAUD\n\nEUR\n"), Outcome::done);
    EXPECT_EQ(accepted, 2);
    EXPECT_EQ(conversation(), "von [AUD]: bis [ÖRE]: von [EUR]: bis [AUD]: ");
}

TEST_F(TerminalFormsTest, AnAnswerThatACheckPointsAtIsNeverTheSuggestionNorAreThoseOfItsGroup) {
    form.fields.insert(form.fields.begin(), {.name = "cboArt", .label = "&Art"});
    form.fields[0].entries = {{1, "klein"}, {2, "groß"}};
    form.fields[0].selected = 0;
    form.fields[2] = {.kind = FieldKind::text, .name = "txtBis", .label = "&bis", .text = "10"};
    form.groups = {{"Art", 0, 1}, {"Grenzen", 1, 2}};
    on_ok = [this] {
        form.shown = accepted == 1;
        if (form.shown) form.set_focus(2);
    };
    EXPECT_EQ(show_to_person("groß\nEUR\n3\n\n\n\n"), Outcome::done);
    EXPECT_EQ(conversation(), "Art [klein]: von [AUD]: bis [10]: Art [groß]: von [AUD]: bis [10]: ");
}

TEST_F(TerminalFormsTest, CancelsTheFormWhenTheAnswersRunOut) {
    settings.answers = "EUR";
    EXPECT_EQ(show(), Outcome::cancelled);
    EXPECT_EQ(accepted, 0);
    EXPECT_EQ(cancelled, 1);
    EXPECT_FALSE(form.shown);
}

TEST_F(TerminalFormsTest, ShowsADisabledFieldWithoutAskingForIt) {
    form.fields[0].enabled = false;
    settings.answers = "EUR";
    EXPECT_EQ(show(), Outcome::done);
    EXPECT_EQ(output.str(), "Protokollausgabe\nvon: AUD\nbis [ÖRE]: EUR\n");
}

TEST_F(TerminalFormsTest, AcceptsAFormWhoseFieldsAreAllDisabled) {
    for (Field& field : form.fields) field.enabled = false;
    settings.answers = "";
    EXPECT_EQ(show(), Outcome::done);
    EXPECT_EQ(accepted, 1);
}

TEST_F(TerminalFormsTest, CancelsAFormThatStaysOpenWithoutAnyQuestion) {
    for (Field& field : form.fields) field.enabled = false;
    on_ok = [] {};
    settings.answers = "";
    EXPECT_EQ(show(), Outcome::cancelled);
    EXPECT_EQ(cancelled, 1);
}

TEST_F(TerminalFormsTest, RefusesAFormWhenNobodyCanAnswer) {
    EXPECT_EQ(show(), Outcome::refused);
    EXPECT_EQ(output.str(), "prog: Niemand da.\n");
    EXPECT_EQ(cancelled, 1);
}

TEST_F(TerminalFormsTest, ShowsTheEntriesForAQuestionMarkAtTheKeyboard) {
    EXPECT_EQ(show_to_person("?\nEUR\n\n"), Outcome::done);
    EXPECT_TRUE(keys.empty());
    EXPECT_EQ(output.str(),
              "Protokollausgabe\n(Eingabetaste übernimmt den Vorschlag, ? zeigt die Auswahl, ?? die Hilfe, " +
                  std::string(cancel_hint) + ")\nvon [AUD]: Auswahl: AUD, EUR, ÖRE\nvon [AUD]: bis [ÖRE]: ");
}

TEST_F(TerminalFormsTest, TwoQuestionMarksShowTheHelpPageAlone) {
    EXPECT_EQ(show_to_person("??\nEUR\n\n"), Outcome::done);
    EXPECT_EQ(keys, std::vector<int>{key_f1});
    EXPECT_EQ(conversation(), "von [AUD]: von [AUD]: bis [ÖRE]: ");
}

TEST_F(TerminalFormsTest, AQuestionMarkForATextSaysThatThereIsNoChoice) {
    form.fields[0] = {.kind = FieldKind::text, .label = "&von", .text = "10"};
    EXPECT_EQ(show_to_person("?\n\n\n"), Outcome::done);
    EXPECT_EQ(form.fields[0].text, "10");
    EXPECT_EQ(conversation(), "von [10]: Hier gibt es keine Auswahl.\nvon [10]: bis [ÖRE]: ");
}

TEST_F(TerminalFormsTest, TakesAQuestionMarkInPreparedAnswersForAnAnswer) {
    settings.answers = "?\nEUR\n";
    show();
    EXPECT_TRUE(keys.empty());
    EXPECT_NE(output.str().find("„?“ steht nicht in der Liste"), std::string::npos);
}

TEST_F(TerminalFormsTest, CancelsAtTheEndOfTheKeyboardsInput) {
    keyboard.str("EUR\n");
    settings.keyboard = &keyboard;
    EXPECT_EQ(show(), Outcome::cancelled);
    EXPECT_EQ(cancelled, 1);
}

TEST_F(TerminalFormsTest, AsksForATextAndAsksAgainWhenTheFormRefusesIt) {
    form.fields[1] = {.kind = FieldKind::text, .name = "txtBis", .label = "&bis", .text = "10"};
    form.fields[1].validate = [this] { return form.fields[1].text != "x"; };
    EXPECT_EQ(show_to_person("\nx\n20\n"), Outcome::done);
    EXPECT_EQ(form.fields[1].text, "20");
    EXPECT_EQ(conversation(), "von [AUD]: bis [10]: bis [10]: ") << "what was refused suggests nothing";
}

TEST_F(TerminalFormsTest, AChangeMayRefillAndHideTheFieldsBehindIt) {
    form.fields.push_back({.name = "cboLetztes", .label = "letztes"});
    form.fields[0].changed = [this] {
        form.fields[1].entries = {{1, "CHF"}};
        form.fields[1].selected = 0;
        form.fields[2].visible = false;
    };
    settings.answers = "EUR\n\n";
    EXPECT_EQ(show(), Outcome::done);
    EXPECT_EQ(output.str(), "Protokollausgabe\nvon [AUD]: EUR\nbis [CHF]: \n");
}

TEST_F(TerminalFormsTest, TellsTheFormOnlyOfAnotherChoice) {
    int changes = 0;
    form.fields[0].changed = [&changes] { ++changes; };
    settings.answers = "AUD\n\n";
    show();
    EXPECT_EQ(changes, 0);
    settings.answers = "EUR\n\n";
    show();
    EXPECT_EQ(changes, 1);
}

TEST_F(TerminalFormsTest, OptionsAreAskedLikeAListAndLabelsAreShown) {
    form.fields[0].kind = FieldKind::options;
    form.fields[1] = {.kind = FieldKind::label, .name = "lblHinweis", .label = "Nur ein Hinweis"};
    settings.answers = "eur";
    EXPECT_EQ(show(), Outcome::done);
    EXPECT_EQ(output.str(), "Protokollausgabe\nvon [AUD]: eur\nNur ein Hinweis\n");
}

TEST_F(TerminalFormsTest, AButtonThatIsOffIsNotPressedAndThePersonIsAskedAgain) {
    form.ok.enabled = false;
    form.fields[0].changed = [this] { form.ok.enabled = form.fields[0].selected_text() == "EUR"; };
    EXPECT_EQ(show_to_person("\n\nEUR\n\n"), Outcome::done);
    EXPECT_EQ(accepted, 1);
    EXPECT_NE(output.str().find("Diese Angaben reichen noch nicht aus.\n"), std::string::npos);
}

TEST_F(TerminalFormsTest, ChecksATextThatAnEmptyAnswerLeaves) {
    form.fields[1] = {.kind = FieldKind::text, .name = "txtBis", .label = "&bis", .text = "x"};
    form.fields[1].validate = [this] { return form.fields[1].text != "x"; };
    EXPECT_EQ(show_to_person("\n\n20\n"), Outcome::done);
    EXPECT_EQ(conversation(), "von [AUD]: bis [x]: bis [x]: ");
}

TEST_F(TerminalFormsTest, TellsTheFormOfATextAndWhereItWasTyped) {
    std::vector<std::string> told;
    form.fields[1] = {.kind = FieldKind::text, .name = "txtBis", .label = "&bis", .text = "10"};
    form.fields[1].changed = [&] { told.push_back(form.fields[form.focus].text); };
    settings.answers = "\n20";
    show();
    EXPECT_EQ(told, std::vector<std::string>{"20"});
    settings.answers = "\n\n";
    show();
    EXPECT_EQ(told.size(), 1U) << "an empty answer changes nothing";
}

TEST_F(TerminalFormsTest, AListWithoutASelectionNeedsAnAnswer) {
    form.fields[0].selected.reset();
    EXPECT_EQ(show_to_person("\nEUR\n\n"), Outcome::done);
    EXPECT_EQ(conversation(), "von []: „“ steht nicht in der Liste: AUD, EUR, ÖRE\nvon []: bis [ÖRE]: ");
}

TEST_F(TerminalFormsTest, AQuestionMarkMayBeAnEntry) {
    form.fields[0].add(0, "?");
    keyboard.str("?\n\n");
    settings.keyboard = &keyboard;
    EXPECT_EQ(show(), Outcome::done);
    EXPECT_EQ(form.fields[0].selected_text(), "?");
    EXPECT_TRUE(keys.empty());
}

TEST_F(TerminalFormsTest, AQuestionMarkShowsTheWholeListAndNeedsNoHelp) {
    form.key_down = nullptr;
    for (int i = 1; i <= 21; ++i) form.fields[0].add(i, std::to_string(i));
    keyboard.str("?\n\n\n");
    settings.keyboard = &keyboard;
    EXPECT_EQ(show(), Outcome::done);
    EXPECT_NE(output.str().find("Auswahl: AUD, EUR, ÖRE, 1, 2"), std::string::npos);
    EXPECT_NE(output.str().find(", 20, 21\n"), std::string::npos);
}

TEST_F(TerminalFormsTest, PreparedAnswersNeedNoHintNorHelpThoughAPersonIsThere) {
    keyboard.str("EUR\n");
    settings.keyboard = &keyboard;
    settings.answers = "?\nEUR\n";
    EXPECT_EQ(show(), Outcome::refused);
    EXPECT_TRUE(keys.empty());
    EXPECT_TRUE(output.str().starts_with("Protokollausgabe\nvon [AUD]: ?\n„?“ steht nicht")) << output.str();
}

/// A form of a picker, which has to be answered, and a text.
class TerminalPickerTest : public TerminalFormsTest {
protected:
    TerminalPickerTest() {
        form.fields = {{.kind = FieldKind::picker, .name = "ctlMandant", .label = "&Mandant"},
                       {.kind = FieldKind::text, .name = "txtBis", .label = "&bis", .text = "10"}};
        form.fields[0].entries = {{1, "Müller GmbH", "7"},
                                  {2, "Bäckerei Möller", "10"},
                                  {3, "Müller & Söhne", "70"},
                                  {4, "Doppelt", "88"},
                                  {5, "Doppelt auch", "88"}};
        form.ok.enabled = false;
        form.fields[0].changed = [this] {
            ++changes;
            form.ok.enabled = form.fields[0].selected.has_value();
        };
    }
    std::size_t key() const {
        const Field& picker = form.fields[0];
        return picker.selected ? static_cast<std::size_t>(picker.entries[*picker.selected].key) : 0;
    }
    void make_long(int count) {
        form.fields[0].entries.clear();
        for (int i = 1; i <= count; ++i)
            form.fields[0].entries.push_back({i, "Mandant", std::to_string(10000 + i)});
    }

    int changes = 0;
};

TEST_F(TerminalPickerTest, IsAnsweredByWhatLeadsToOneEntry) {
    const struct {
        const char* answer;
        std::size_t key;
        const char* why;
    } rows[] = {
        {"7", 1, "a whole number, though others begin so"},       {" 70 ", 3, "blanks around do not matter"},
        {"MÖLLER", 2, "a part of the name, without letter case"}, {"söhne mül", 3, "several words"},
        {"doppelt", 4, "a whole name, though another holds it"},
    };
    for (const auto& row : rows) {
        form.fields[0].selected.reset();
        form.ok.enabled = false;
        settings.answers = std::string(row.answer) + "\n\n";
        EXPECT_EQ(show(), Outcome::done) << row.why;
        EXPECT_EQ(key(), row.key) << row.why;
    }
}

TEST_F(TerminalPickerTest, SuggestsTheNumberAndNameOfTheEntryChosen) {
    form.fields[0].selected = 0;
    form.ok.enabled = true;
    settings.answers = "\n\n";
    EXPECT_EQ(show(), Outcome::done);
    EXPECT_EQ(output.str(), "Protokollausgabe\nMandant [7 Müller GmbH]: \nbis [10]: \n");
    EXPECT_EQ(key(), 1U);
    EXPECT_EQ(changes, 0);
}

TEST_F(TerminalPickerTest, TheEntryChosenBeforeDoesNotDecideAnAnswer) {
    form.fields[0].selected = 2;
    form.ok.enabled = true;
    EXPECT_EQ(show_to_person("mül\n7\n\n"), Outcome::done);
    EXPECT_EQ(key(), 1U);
    EXPECT_EQ(changes, 1);
}

TEST_F(TerminalPickerTest, SaysWhyAnAnswerLeadsToNoEntryAndAsksAgain) {
    EXPECT_EQ(show_to_person("Mül\nxyz\n88\n\n \n10\n\n"), Outcome::done);
    EXPECT_EQ(conversation(),
              "Mandant []: „Mül“ passt auf mehrere: 7 Müller GmbH, 70 Müller & Söhne\n"
              "Mandant []: „xyz“ passt auf keinen Eintrag.\n"
              "Mandant []: „88“ passt auf mehrere: 88 Doppelt, 88 Doppelt auch\n"
              "Mandant []: Bitte eine Nummer oder einen Teil des Namens eingeben.\n"
              "Mandant []: Bitte eine Nummer oder einen Teil des Namens eingeben.\n"
              "Mandant []: Mandant: 10 Bäckerei Möller\nbis [10]: ");
}

TEST_F(TerminalPickerTest, RepeatsTheChoiceWithNumberAndName) {
    settings.answers = "söhne\n\n";
    EXPECT_EQ(show(), Outcome::done);
    EXPECT_EQ(output.str(), "Protokollausgabe\nMandant []: söhne\nMandant: 70 Müller & Söhne\nbis [10]: \n");
}

TEST_F(TerminalPickerTest, NamesNoMoreThanTwentyOfTheEntriesThatMatch) {
    make_long(20000);
    EXPECT_EQ(show_to_person("mandant\n1002\n10007\n\n"), Outcome::done);
    EXPECT_NE(output.str().find(", 10020 Mandant, … und 19980 weitere\n"), std::string::npos);
    EXPECT_NE(output.str().find("„1002“ passt auf mehrere: 10020 Mandant, 10021 Mandant"), std::string::npos);
    EXPECT_EQ(key(), 7U);
}

TEST_F(TerminalPickerTest, AQuestionMarkAtTheKeyboardShowsTheFirstEntries) {
    make_long(22);
    form.fields[0].entries[0].text = "Was nun?";
    EXPECT_EQ(show_to_person("?\n10022\n\n"), Outcome::done);
    EXPECT_TRUE(keys.empty());
    EXPECT_NE(output.str().find("Auswahl: 10001 Was nun?, 10002 Mandant, "), std::string::npos);
    EXPECT_NE(output.str().find(", 10020 Mandant, … und 2 weitere\n"), std::string::npos);
}

TEST_F(TerminalPickerTest, AnswersThatNeverChooseEndTheRun) {
    settings.answers = "xyz\n\n\n\n";
    EXPECT_EQ(show(), Outcome::refused);
    EXPECT_EQ(accepted, 0);
    EXPECT_EQ(cancelled, 1);
}

TEST_F(TerminalPickerTest, AnEmptyPickerIsNotAskedAndLeavesTheFormIncomplete) {
    form.fields[0].entries.clear();
    settings.answers = "\n";
    EXPECT_EQ(show(), Outcome::refused);
    EXPECT_EQ(accepted, 0);
    EXPECT_EQ(cancelled, 1);
    EXPECT_NE(output.str().find("Mandant: \nbis [10]: \nDiese Angaben reichen noch nicht aus.\n"),
              std::string::npos);
}

TEST_F(TerminalPickerTest, AnEmptyPickerAloneCancelsTheForm) {
    form.fields[0].entries.clear();
    form.fields[1].enabled = false;
    settings.answers = "";
    EXPECT_EQ(show(), Outcome::cancelled);
    EXPECT_EQ(accepted, 0);
    EXPECT_EQ(cancelled, 1);
}

TEST_F(TerminalPickerTest, AChangeMayReplaceItsEntries) {
    form.fields.insert(form.fields.begin(), {.name = "cboArt", .label = "&Art"});
    form.fields[0].entries = {{0, "Mandant"}, {1, "Kanzlei"}};
    form.fields[0].selected = 0;
    form.fields[0].changed = [this] {
        form.fields[1].label = "&Kanzlei";
        form.fields[1].entries = {{9, "Schmidt und Partner", "5"}};
    };
    form.fields[1].changed = [this] { form.ok.enabled = true; };
    settings.answers = "kanzlei\npartner\n\n";
    EXPECT_EQ(show(), Outcome::done);
    EXPECT_EQ(output.str(),
              "Protokollausgabe\nArt [Mandant]: kanzlei\nKanzlei []: partner\n"
              "Kanzlei: 5 Schmidt und Partner\nbis [10]: \n");
}

TEST_F(TerminalPickerTest, NamesAnEntryByWhatItHas) {
    form.fields[0].entries = {{1, "Ohne Nummer", ""}, {2, "", "12"}, {3, "Ohne alles", "13"}};
    EXPECT_EQ(show_to_person("ohne\n12\n\n"), Outcome::done);
    EXPECT_NE(output.str().find("passt auf mehrere: Ohne Nummer, 13 Ohne alles\n"), std::string::npos);
    settings.answers = "\n\n";
    show();
    EXPECT_NE(output.str().find("Mandant [12]: \n"), std::string::npos) << output.str();
}

}  // namespace
}  // namespace prot
