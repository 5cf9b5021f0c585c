#include <csignal>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "tests/terminal/pane.h"

/// Exports whose questions are forms on the whole terminal, by a person at its keyboard.
namespace prot {
namespace {

const std::string export_rates = "export --db beispiel.db --section 15 --out out";
const std::string written_file = "out/Prot_Devisenkurse.csv";
const std::string first_question = "von ISO Währungscode [AED]:";

class FullScreen : public testing::Test {
protected:
    /// The program is at its end, has written the file and said so, and nothing else, on standard output.
    static void expect_file(const test::Pane& pane, const std::string& answers) {
        EXPECT_EQ(pane.exit_status(), 0);
        EXPECT_EQ(pane.read("stdout.txt"), written_file + "\n");
        expect_same_file(pane, written_file, answers);
    }

    /// Byte for byte; the files are too long to be shown.
    static void expect_same_file(const test::Pane& pane, const std::string& file,
                                 const std::string& answers) {
        const std::string expected = pane.exported_by_answers("15", answers);
        EXPECT_GT(expected.size(), 1000U);
        EXPECT_TRUE(pane.read(file) == expected) << file;
    }

    static void expect_no_file(const test::Pane& pane, int status) {
        EXPECT_EQ(pane.exit_status(), status);
        EXPECT_EQ(pane.read("stdout.txt"), "");
        EXPECT_FALSE(std::filesystem::exists(pane.path(written_file)));
    }
};

TEST_F(FullScreen, EnterAloneExportsAllCurrencies) {
    test::Pane pane(80, 24);
    pane.start(export_rates);
    pane.expect_screen("form");
    pane.press({"Enter"});
    pane.expect_screen("file_name");
    pane.press({"Enter"});
    expect_file(pane, "\\n\\n\\n");
}

TEST_F(FullScreen, AnotherRangeAndFileNameAreTyped) {
    test::Pane pane(80, 24);
    pane.start(export_rates);
    pane.expect_screen("form");
    pane.press({"c", "h", "Tab", "e"});
    pane.expect_screen("range");
    pane.press({"Enter"});
    pane.expect_screen("file_name");
    pane.press({"Kürse.csvx", "BSpace"});
    pane.expect_screen("file_name_typed");
    pane.press({"Enter"});
    EXPECT_EQ(pane.exit_status(), 0);
    EXPECT_EQ(pane.read("stdout.txt"), "out/Kürse.csv\n");
    expect_same_file(pane, "out/Kürse.csv", "CHF\\nEUR\\n\\n");
}

TEST_F(FullScreen, NoKeyIsLostThatIsTypedWhileTheFormIsDrawn) {
    test::Pane pane(80, 24);
    pane.start(export_rates);
    pane.expect_screen("form");
    pane.press({"Enter"});
    pane.expect_screen("file_name");
    const std::string name = std::string(150, 'x') + ".csv";
    pane.press({name, "Enter"});
    EXPECT_EQ(pane.exit_status(), 0);
    EXPECT_EQ(pane.read("stdout.txt"), "out/" + name + "\n");
}

TEST_F(FullScreen, ARangeThatIsUpsideDownIsSaidAndCorrected) {
    test::Pane pane(80, 24);
    pane.start(export_rates);
    pane.expect_screen("form");
    pane.press({"u", "s", "Right", "e", "Left"});
    pane.expect_screen("range_upside_down");
    pane.press({"Enter"});
    pane.expect_screen("range_refused");
    pane.press({"Enter"});
    pane.expect_screen("range_focus_on_the_end");
    pane.press({"End", "Enter"});
    pane.expect_screen("file_name");
    pane.press({"Enter"});
    expect_file(pane, "USD\\nZAR\\n\\n");
}

TEST_F(FullScreen, AltAndALetterLeadToAField) {
    test::Pane pane(80, 24);
    pane.start(export_rates);
    pane.expect_screen("form");
    pane.press({"M-b"});
    pane.expect_screen("focus_on_the_end");
    pane.press({"M-v"});
    pane.expect_screen("form");
    pane.press({"Escape"});
    expect_no_file(pane, 3);
}

TEST_F(FullScreen, EscCancelsTheFileNameToo) {
    test::Pane pane(80, 24);
    pane.start(export_rates);
    pane.expect_screen("form");
    pane.press({"Enter"});
    pane.expect_screen("file_name");
    pane.press({"Escape"});
    expect_no_file(pane, 3);
}

TEST_F(FullScreen, F1OpensTheHelpAndEscClosesIt) {
    test::Pane pane(80, 24);
    pane.start(export_rates);
    pane.expect_screen("form");
    pane.press({"F1"});
    pane.expect_text("┤ Hilfe ├");
    pane.expect_text("< Schließen >");
    pane.press({"F1", "NPage", "Escape"});
    pane.expect_screen("form");
    pane.press({"Escape"});
    expect_no_file(pane, 3);
}

TEST_F(FullScreen, CtrlCGivesTheTerminalBack) {
    test::Pane pane(80, 24);
    pane.start(export_rates);
    pane.expect_screen("form");
    pane.press({"C-c"});
    expect_no_file(pane, 130);
}

TEST_F(FullScreen, ASignalGivesTheTerminalBack) {
    test::Pane pane(80, 24);
    pane.start(export_rates);
    pane.expect_screen("form");
    kill(pane.process(), SIGTERM);
    expect_no_file(pane, 143);
}

TEST_F(FullScreen, AFormStandsInTheMiddleOfALargerTerminal) {
    test::Pane pane(100, 30);
    pane.start(export_rates);
    pane.expect_screen("form_100x30");
    pane.press({"Escape"});
    expect_no_file(pane, 3);
}

TEST_F(FullScreen, FormsFollowTheSizeOfTheTerminal) {
    test::Pane pane(80, 24);
    pane.start(export_rates);
    pane.expect_screen("form");
    pane.resize(100, 30);
    pane.expect_screen("form_100x30");
    pane.resize(30, 5);
    pane.expect_screen("too_small");
    pane.resize(80, 24);
    pane.expect_screen("form");
    pane.press({"Escape"});
    expect_no_file(pane, 3);
}

TEST_F(FullScreen, UmlautsAppearInAnyLocaleThatSaysNothingOfCharacters) {
    test::Pane pane(80, 24);
    pane.start(export_rates, "LC_ALL=C");
    pane.expect_screen("form");
    pane.press({"Escape"});
    expect_no_file(pane, 3);
}

TEST_F(FullScreen, QuestionsAreAskedLineByLineWhereAFormCannotBe) {
    const struct {
        int columns, rows;
        std::string environment, option;
        const char* why;
    } rows[] = {
        {79, 24, "", "", "too narrow"},
        {80, 23, "", "", "too low"},
        {80, 24, "TERM=dumb", "", "a terminal that cannot do it"},
        {80, 24, "TERM=gibt-es-nicht", "", "a terminal that is not known"},
        {80, 24, "LC_ALL=de_DE.ISO-8859-1", "", "a terminal without UTF-8"},
        {80, 24, "", " --plain", "asked for"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        test::Pane pane(row.columns, row.rows);
        pane.start(export_rates + row.option, row.environment);
        pane.expect_text(first_question);
        pane.press({"Enter"});
        pane.expect_text("bis ISO Währungscode [ZAR]:");
        pane.press({"C-d"});
        expect_no_file(pane, 3);
    }
}

}  // namespace
}  // namespace prot
