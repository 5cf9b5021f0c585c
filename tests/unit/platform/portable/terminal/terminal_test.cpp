#include "platform/portable/terminal/terminal.h"

#include <sstream>

#include <gtest/gtest.h>

namespace prot {
namespace {

struct Talk {
    std::ostringstream output;
    std::istringstream keyboard;

    Terminal without_input() { return Terminal(settings()); }
    Terminal with_answers(std::string answers) {
        TerminalSettings prepared = settings();
        prepared.answers = std::move(answers);
        return Terminal(prepared);
    }
    Terminal with_both(std::string answers, const std::string& typed) {
        keyboard.str(typed);
        TerminalSettings both = settings();
        both.keyboard = &keyboard;
        both.answers = std::move(answers);
        return Terminal(both);
    }
    Terminal with_keyboard(const std::string& typed) {
        keyboard.str(typed);
        TerminalSettings person = settings();
        person.keyboard = &keyboard;
        return Terminal(person);
    }

private:
    TerminalSettings settings() {
        TerminalSettings plain;
        plain.program = "prog";
        plain.output = &output;
        plain.refusal = "Niemand da.";
        return plain;
    }
};

TEST(Terminal, WritesCrLfAsLf) {
    Talk talk;
    talk.without_input().write("eins\r\nzwei\n");
    EXPECT_EQ(talk.output.str(), "eins\nzwei\n");
}

TEST(Terminal, SplitsAnswersAtLineFeedsSoThatAFinalOneIsFollowedByAnEmptyAnswer) {
    Talk talk;
    Terminal terminal = talk.with_answers(
        "\xEF\xBB\xBF"
        "EUR\r\nUSD\n");
    EXPECT_EQ(terminal.ask("a", "1"), "EUR");
    EXPECT_EQ(terminal.ask("b", "2"), "USD");
    EXPECT_EQ(terminal.ask("c", "3"), "");
    EXPECT_EQ(talk.output.str(), "a [1]: EUR\nb [2]: USD\nc [3]: \n");
    EXPECT_EQ(terminal.outcome(), Outcome::done);
}

TEST(Terminal, CancelsWithTheQuestionWhenTheAnswersRunOut) {
    Talk talk;
    Terminal terminal = talk.with_answers("EUR");
    terminal.ask("von", "AUD");
    EXPECT_EQ(terminal.ask("bis", "ZAR"), std::nullopt);
    EXPECT_EQ(talk.output.str(),
              "von [AUD]: EUR\n"
              "prog: Auf die Frage „bis“ gab es keine Antwort; der Lauf ist abgebrochen.\n");
    EXPECT_EQ(terminal.outcome(), Outcome::cancelled);
}

TEST(Terminal, CancelsAtTheEndOfTheKeyboardsInput) {
    Talk talk;
    Terminal terminal = talk.with_keyboard("EUR\n");
    EXPECT_EQ(terminal.ask("von", "AUD"), "EUR");
    EXPECT_EQ(terminal.ask("bis", "ZAR"), std::nullopt);
    EXPECT_EQ(talk.output.str(), "von [AUD]: bis [ZAR]: \n");
    EXPECT_EQ(terminal.outcome(), Outcome::cancelled);
}

TEST(Terminal, RefusesOnceWhenNobodyCanAnswer) {
    Talk talk;
    Terminal terminal = talk.without_input();
    EXPECT_FALSE(terminal.require_input());
    EXPECT_EQ(terminal.ask("von", "AUD"), std::nullopt);
    EXPECT_EQ(talk.output.str(), "prog: Niemand da.\n");
    EXPECT_EQ(terminal.outcome(), Outcome::refused);
}

TEST(Terminal, AnAnswerThatIsRefusedIsAskedForAgainOnlyOfAPerson) {
    Talk person;
    Terminal patient = person.with_keyboard("x\nEUR\n");
    patient.ask("von", "AUD");
    patient.refuse_answer("x passt nicht");
    EXPECT_EQ(patient.ask("von", "AUD"), "EUR");
    EXPECT_EQ(patient.outcome(), Outcome::done);
    EXPECT_EQ(patient.refused_for(), "");
    EXPECT_EQ(person.output.str(), "von [AUD]: x passt nicht\nvon [AUD]: ");

    Talk prepared;
    Terminal strict = prepared.with_answers("x\nEUR\n");
    strict.ask("von", "AUD");
    strict.refuse_answer("x passt nicht");
    EXPECT_EQ(strict.ask("von", "AUD"), std::nullopt);
    EXPECT_EQ(strict.outcome(), Outcome::refused);
    EXPECT_EQ(strict.refused_for(), "x passt nicht");
    EXPECT_EQ(prepared.output.str(),
              "von [AUD]: x\nx passt nicht\n"
              "prog: Diese vorbereitete Antwort passt nicht; der Lauf endet, ohne dass etwas getan wurde.\n");
}

TEST(Terminal, SaysWhatTheRunWasRefusedForWhenThatHasBeenSaid) {
    Talk talk;
    Terminal terminal = talk.with_answers("x");
    terminal.refuse_answer({});
    EXPECT_TRUE(terminal.refused_for().starts_with("Diese vorbereitete Antwort passt nicht"));
    Terminal nobody = talk.without_input();
    nobody.require_input();
    EXPECT_EQ(nobody.refused_for(), "Niemand da.");
}

TEST(Terminal, NeverAnswersAPersonsQuestionFromPreparedAnswers) {
    Talk talk;
    Terminal terminal = talk.with_answers("ja\n");
    EXPECT_EQ(terminal.ask_person("Löschen? "), std::nullopt);
    EXPECT_EQ(talk.output.str(), "");
}

TEST(Terminal, TakesPreparedAnswersBeforeThoseOfAPerson) {
    Talk talk;
    Terminal terminal = talk.with_both("EUR", "USD\nZAR\n");
    EXPECT_FALSE(terminal.asks_person());
    EXPECT_TRUE(terminal.has_keyboard());
    EXPECT_EQ(terminal.ask("von", "AUD"), "EUR");
    EXPECT_EQ(terminal.ask("bis", "AUD"), std::nullopt) << "the keyboard does not go on with them";
    EXPECT_EQ(terminal.outcome(), Outcome::cancelled);
    EXPECT_EQ(terminal.ask_person("Löschen? "), "USD");
}

TEST(Terminal, DropsTheCarriageReturnOfAKeyboardsLine) {
    Talk talk;
    Terminal terminal = talk.with_keyboard("EUR\r\n");
    EXPECT_EQ(terminal.ask("von", "AUD"), "EUR");
    EXPECT_TRUE(terminal.asks_person());
}

TEST(Terminal, WipesTheStatusLineBeforeAnyOtherText) {
    Talk talk;
    Terminal terminal = talk.without_input();
    terminal.show_status("12345");
    terminal.show_status("123");
    terminal.write("Text\n");
    terminal.write("mehr\n");
    EXPECT_EQ(talk.output.str(), "\r12345\r123  \r     \rText\nmehr\n");
}

TEST(Terminal, CutsAStatusLineToTheTerminalSoThatItIsNotWrapped) {
    std::ostringstream output;
    TerminalSettings narrow;
    narrow.output = &output;
    narrow.columns = [] { return std::size_t{6}; };
    Terminal terminal(narrow);
    terminal.show_status("1234567");
    terminal.clear_status();
    EXPECT_EQ(output.str(), "\r12345\r     \r");
    EXPECT_EQ(terminal.status_columns(), 5U);
}

// A terminal that became narrower shows the line in two rows, with the cursor in the first of them.
TEST(Terminal, ErasesAStatusLineFromItsBeginningWhereThatCanBe) {
    std::ostringstream output;
    TerminalSettings settings;
    settings.output = &output;
    settings.erases = true;
    Terminal terminal(settings);
    terminal.show_status("123");
    terminal.show_status("4");
    terminal.write("Text\n");
    EXPECT_EQ(output.str(), "\r\x1B[J\x1B[?7l123\r\x1B[?7h\r\x1B[J\x1B[?7l4\r\x1B[?7h\r\x1B[JText\n");
}

TEST(Terminal, KeepsTheOutcomeOfHighestPrecedence) {
    Talk talk;
    Terminal terminal = talk.without_input();
    terminal.note(Outcome::cancelled);
    terminal.note(Outcome::failed);
    terminal.note(Outcome::cancelled);
    EXPECT_EQ(terminal.outcome(), Outcome::failed);
    terminal.note(Outcome::refused);
    terminal.note(Outcome::failed);
    EXPECT_EQ(terminal.outcome(), Outcome::refused);
}

}  // namespace
}  // namespace prot
