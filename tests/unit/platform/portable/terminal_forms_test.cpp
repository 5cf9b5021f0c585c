#include "platform/portable/terminal_forms.h"

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

TEST_F(TerminalFormsTest, PrefersAnExactEntryAndElseIgnoresLetterCase) {
    form.fields[0].add(0, "eur");
    settings.answers = "eur\nöre";
    show();
    EXPECT_EQ(range(), "eur-ÖRE");
}

TEST_F(TerminalFormsTest, AsksAgainForAnAnswerThatIsNotInTheList) {
    settings.answers = "XYZ\nEUR\n";
    EXPECT_EQ(show(), Outcome::done);
    EXPECT_EQ(output.str(),
              "Protokollausgabe\nvon [AUD]: XYZ\n„XYZ“ steht nicht in der Liste: AUD, EUR, ÖRE\n"
              "von [AUD]: EUR\nbis [ÖRE]: \n");
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
    settings.answers = "EUR\nAUD\n\nEUR";
    EXPECT_EQ(show(), Outcome::done);
    EXPECT_EQ(accepted, 2);
    EXPECT_EQ(output.str(),
              "Protokollausgabe\nvon [AUD]: EUR\nbis [ÖRE]: AUD\nvon [EUR]: \nbis [AUD]: EUR\n");
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

TEST_F(TerminalFormsTest, ShowsEntriesAndHelpForAQuestionMarkAtTheKeyboard) {
    keyboard.str("?\nEUR\n\n");
    settings.keyboard = &keyboard;
    EXPECT_EQ(show(), Outcome::done);
    EXPECT_EQ(keys, std::vector<int>{key_f1});
    EXPECT_EQ(output.str(), "Protokollausgabe\n(Eingabetaste übernimmt den Vorschlag, ? zeigt Hilfe, " +
                                std::string(cancel_hint) +
                                ")\n"
                                "von [AUD]: Auswahl: AUD, EUR, ÖRE\nvon [AUD]: bis [ÖRE]: ");
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
    settings.answers = "\nx\n20";
    EXPECT_EQ(show(), Outcome::done);
    EXPECT_EQ(form.fields[1].text, "20");
    EXPECT_EQ(output.str(), "Protokollausgabe\nvon [AUD]: \nbis [10]: x\nbis [x]: 20\n");
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
    settings.answers = "\n\nEUR\n";
    EXPECT_EQ(show(), Outcome::done);
    EXPECT_EQ(accepted, 1);
}

}  // namespace
}  // namespace prot
