#include "apps/protcsv/displays/line_displays.h"

#include <sstream>

#include <gtest/gtest.h>

namespace prot {
namespace {

/// A run whose questions have prepared answers.
class LineDisplaysTest : public testing::Test {
protected:
    LineDisplaysTest() : terminal(settings()) {}
    TerminalSettings settings() {
        TerminalSettings prepared;
        prepared.program = "prog";
        prepared.output = &output;
        prepared.answers = "Meine.csv";
        return prepared;
    }

    std::ostringstream output;
    Terminal terminal;
    TerminalMessageBoxes boxes{terminal, true};
    LineDisplays displays{{terminal, boxes}};
};

TEST_F(LineDisplaysTest, AskForTheFileWithTheSuggestion) {
    EXPECT_EQ(displays.ask_file_name("Prot.csv", "ordner"), "Meine.csv");
    EXPECT_EQ(output.str(), "Dateiname [Prot.csv]: Meine.csv\n");
    EXPECT_EQ(displays.ask_file_name("Prot.csv", "ordner"), std::nullopt) << "no more answers";
    EXPECT_EQ(terminal.outcome(), Outcome::cancelled);
}

/// A run whose questions a person answers.
class LineDisplaysOfAPerson : public testing::Test {
protected:
    explicit LineDisplaysOfAPerson(const char* typed) : keyboard(typed) {}
    TerminalSettings settings() {
        TerminalSettings person;
        person.output = &output;
        person.keyboard = &keyboard;
        return person;
    }

    std::istringstream keyboard;
    std::ostringstream output;
    Terminal terminal{settings()};
    TerminalMessageBoxes boxes{terminal, false};
    LineDisplays displays{{terminal, boxes}};
};

struct LineDisplaysHelp : LineDisplaysOfAPerson {
    LineDisplaysHelp() : LineDisplaysOfAPerson("?\n??\nMeine.csv\n") {}
};

TEST_F(LineDisplaysHelp, AQuestionMarkNamesNoFile) {
    EXPECT_EQ(displays.ask_file_name("Prot.csv", "ordner"), "Meine.csv");
    const std::string where = "Die Datei kommt in den Ordner „ordner“; ohne Endung bekommt der Name .csv.\n";
    const std::string question = "Dateiname [Prot.csv]: ";
    EXPECT_EQ(output.str(),
              "Ordner: " + folder_text("ordner") + "\n" + question + where + question + where + question);
}

struct LineDisplaysReplacing : LineDisplaysOfAPerson {
    LineDisplaysReplacing() : LineDisplaysOfAPerson("\nJA\nj\nn\n") {}
};

TEST_F(LineDisplaysReplacing, AFileIsReplacedOnlyWhenThePersonSaysSo) {
    EXPECT_FALSE(displays.may_replace("o/Prot.csv")) << "No is the proposal";
    EXPECT_EQ(output.str(), "Die Datei „o/Prot.csv“ gibt es schon. Ersetzen? Ja/Nein [Nein]: ");
    EXPECT_TRUE(displays.may_replace("o/Prot.csv"));
    EXPECT_TRUE(displays.may_replace("o/Prot.csv"));
    EXPECT_FALSE(displays.may_replace("o/Prot.csv"));
    EXPECT_FALSE(displays.may_replace("o/Prot.csv")) << "the end of the input";
}

TEST_F(LineDisplaysTest, APreparedAnswerNamesAFileThatMayBeReplaced) {
    EXPECT_TRUE(displays.may_replace("Prot.csv"));
    EXPECT_EQ(output.str(), "");
}

TEST(FolderText, IsTheWholePath) {
    EXPECT_EQ(folder_text(""), folder_text("."));
    EXPECT_EQ(folder_text("a/../b"), folder_text("b"));
    EXPECT_NE(folder_text("b").find("b"), std::string::npos);
    EXPECT_GT(folder_text("b").size(), folder_text("").size());
}

TEST_F(LineDisplaysTest, HaveNobodyToNameAnotherFileWhereAnswersArePrepared) {
    EXPECT_FALSE(displays.refuse_file_name("Das geht nicht."));
    EXPECT_EQ(output.str(), "");
    EXPECT_EQ(terminal.outcome(), Outcome::done) << "what is wrong with the name is an error of its own";
}

TEST_F(LineDisplaysTest, ShowProgressOnlyWhereALineCanBeReplaced) {
    EXPECT_EQ(displays.create_progress(), nullptr);
    const auto progress = LineDisplays({terminal, boxes, false, true}).create_progress();
    ASSERT_NE(progress, nullptr);
    progress->gSetFortschritt(0, 2);
    EXPECT_NE(output.str().find("0 von 2"), std::string::npos);
}

TEST_F(LineDisplaysTest, AnswerAQuestionAsTheRunWasTold) {
    EXPECT_EQ(displays.message_boxes().show("Löschen?", BoxStyle::question_yes_no, "Frage"), BoxAnswer::yes);
    EXPECT_EQ(output.str(), "[Frage] Löschen?\nJa\n");
}

TEST_F(LineDisplaysTest, MarkTheRunByAProblemReport) {
    displays.create_error_display()->ZQ_gShowError(5, "A", "B");
    EXPECT_EQ(output.str(), "Problembericht\nFehler-Nr: 5 (0x00000005)\nFehlerquelle: A\nBeschreibung: B\n");
    EXPECT_EQ(terminal.outcome(), Outcome::failed);
}

TEST_F(LineDisplaysTest, TellWhatIsToBeSaidAndPresentNoFile) {
    displays.tell(Telling::notice, "Hinweis\n");
    displays.show_file("Prot.csv");
    EXPECT_EQ(output.str(), "Hinweis\n");
    EXPECT_EQ(terminal.outcome(), Outcome::done);
}

TEST_F(LineDisplaysTest, LookForHelpBesideTheProgram) {
    EXPECT_FALSE(displays.create_help_display()->show_topic("karte.xml", "HID_KEINES"));
    EXPECT_TRUE(output.str().starts_with("Hilfe: Das Thema HID_KEINES (karte.xml) fehlt")) << output.str();
}

}  // namespace
}  // namespace prot
