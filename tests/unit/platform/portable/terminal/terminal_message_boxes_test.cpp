#include "platform/portable/terminal/terminal_message_boxes.h"

#include <sstream>

#include <gtest/gtest.h>

namespace prot {
namespace {

class TerminalMessageBoxesTest : public testing::Test {
protected:
    TerminalMessageBoxesTest() {
        settings.program = "prog";
        settings.output = &output;
    }

    BoxAnswer ask(bool answer_yes = false) {
        Terminal terminal(settings);
        TerminalMessageBoxes boxes(terminal, answer_yes);
        const BoxAnswer answer = boxes.show("Löschen?", BoxStyle::question_yes_no, "Frage");
        outcome = terminal.outcome();
        unanswered = boxes.left_unanswered();
        return answer;
    }
    void type(const std::string& text) {
        keyboard.str(text);
        settings.keyboard = &keyboard;
    }

    TerminalSettings settings;
    std::ostringstream output;
    std::istringstream keyboard;
    Outcome outcome = Outcome::done;
    bool unanswered = false;
};

TEST_F(TerminalMessageBoxesTest, ShowsTitleAndTextWithLineFeeds) {
    Terminal terminal(settings);
    TerminalMessageBoxes boxes(terminal, false);
    EXPECT_EQ(boxes.show("eins\r\nzwei", BoxStyle::information, "Titel"), BoxAnswer::ok);
    EXPECT_EQ(output.str(), "[Titel] eins\nzwei\n");
    EXPECT_EQ(terminal.outcome(), Outcome::done);
}

TEST_F(TerminalMessageBoxesTest, MarksTheRunAsFailedByABoxTitledProblembericht) {
    Terminal terminal(settings);
    TerminalMessageBoxes(terminal, false).show("kaputt", BoxStyle::plain, "Problembericht");
    EXPECT_EQ(terminal.outcome(), Outcome::failed);
}

TEST_F(TerminalMessageBoxesTest, RecordsTheYesThatTheRunWasToldBeforehand) {
    EXPECT_EQ(ask(true), BoxAnswer::yes);
    EXPECT_EQ(output.str(), "[Frage] Löschen?\nJa\n");
    EXPECT_EQ(outcome, Outcome::done);
}

TEST_F(TerminalMessageBoxesTest, AnswersNoWithoutAKeyboardAndNeverTakesAPreparedAnswer) {
    settings.answers = "Ja\n";
    EXPECT_EQ(ask(), BoxAnswer::no);
    EXPECT_EQ(output.str(), "[Frage] Löschen?\nNein\n");
    EXPECT_EQ(outcome, Outcome::cancelled);
    EXPECT_TRUE(unanswered);
}

TEST_F(TerminalMessageBoxesTest, AsksThePersonUntilTheAnswerIsUnderstood) {
    type("vielleicht\nJA\n");
    EXPECT_EQ(ask(), BoxAnswer::yes);
    EXPECT_EQ(output.str(), "[Frage] Löschen?\nJa/Nein [Nein]: Ja/Nein [Nein]: ");
    EXPECT_EQ(outcome, Outcome::done);
    EXPECT_FALSE(unanswered);
}

TEST_F(TerminalMessageBoxesTest, ReadsThePersonsAnswer) {
    const struct {
        const char* typed;
        BoxAnswer answer;
        const char* why;
    } rows[] = {
        {"j\n", BoxAnswer::yes, "first letter"},
        {"n\n", BoxAnswer::no, "first letter"},
        {"Nein\n", BoxAnswer::no, "letter case is ignored"},
        {"\n", BoxAnswer::no, "the suggestion"},
        {"", BoxAnswer::no, "end of input"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        keyboard.clear();
        type(row.typed);
        EXPECT_EQ(ask(), row.answer);
        EXPECT_EQ(outcome, row.answer == BoxAnswer::no ? Outcome::cancelled : Outcome::done);
    }
}

TEST_F(TerminalMessageBoxesTest, AsksThePersonAlsoWhenAnswersArePrepared) {
    settings.answers = "nein\n";
    type("ja\n");
    EXPECT_EQ(ask(), BoxAnswer::yes);
    EXPECT_FALSE(unanswered);
}

TEST_F(TerminalMessageBoxesTest, KnowWhetherOneWasShown) {
    Terminal terminal(settings);
    TerminalMessageBoxes boxes(terminal, false);
    EXPECT_FALSE(boxes.shown());
    boxes.show("eins", BoxStyle::information, "Titel");
    EXPECT_TRUE(boxes.shown());
}

}  // namespace
}  // namespace prot
