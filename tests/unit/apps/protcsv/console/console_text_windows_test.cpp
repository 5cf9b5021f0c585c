#include "apps/protcsv/console/console_text_windows.h"

#include <deque>
#include <istream>
#include <ostream>
#include <vector>

#include <gtest/gtest.h>

namespace prot {
namespace {

class ConsoleOutputTest : public testing::Test {
protected:
    std::vector<std::wstring> shown;
    bool works = true;
    ConsoleOutput buffer{[this](std::wstring_view text) { return shown.emplace_back(text), works; }};
    std::ostream stream{&buffer};
};

TEST_F(ConsoleOutputTest, ShowsUmlautsAsOneTextAtAFlush) {
    stream << "Währung " << 'x' << " €\n";
    EXPECT_TRUE(shown.empty());
    stream << std::flush;
    EXPECT_EQ(shown, std::vector<std::wstring>{L"W\u00E4hrung x \u20AC\n"});
}

TEST_F(ConsoleOutputTest, KeepsACharacterTogetherWhoseBytesComeApart) {
    const std::string clef = "\U0001D11E";
    for (const char byte : clef) stream << byte << std::flush;
    EXPECT_EQ(shown, std::vector<std::wstring>{L"\U0001D11E"});
}

TEST_F(ConsoleOutputTest, ShowsBytesThatAreNotUtf8AsReplacements) {
    stream << "a\xFF"
           << "b\x80\x80\x80\x80" << std::flush;
    EXPECT_EQ(shown, std::vector<std::wstring>{L"a\uFFFDb\uFFFD\uFFFD\uFFFD\uFFFD"});
}

TEST_F(ConsoleOutputTest, WaitsForNothingBehindAByteThatBeginsNoCharacter) {
    stream << "a\xC0" << std::flush << "b\xF5" << std::flush;
    EXPECT_EQ(shown, (std::vector<std::wstring>{L"a\uFFFD", L"b\uFFFD"}));
}

TEST_F(ConsoleOutputTest, ShowsALongTextInPiecesThatSplitNoCharacter) {
    std::string text = "x";
    std::wstring wide = L"x";
    for (int i = 0; i < 10'000; ++i) text += "\U0001D11E", wide += L"\U0001D11E";
    stream << text << std::flush;
    std::wstring joined;
    for (const std::wstring& piece : shown) {
        EXPECT_LE(piece.size(), 4096U);
        EXPECT_TRUE(piece.back() < 0xD800 || piece.back() > 0xDBFF);
        joined += piece;
    }
    EXPECT_TRUE(joined == wide);
    EXPECT_GT(shown.size(), 1U);
}

TEST_F(ConsoleOutputTest, FailsWhenTheConsoleIsGone) {
    works = false;
    stream << "x" << std::flush;
    EXPECT_FALSE(stream);
}

class ConsoleInputTest : public testing::Test {
protected:
    std::deque<std::wstring> typed;
    ConsoleInput buffer{[this] {
        if (typed.empty()) return std::wstring();
        const std::wstring text = typed.front();
        typed.pop_front();
        return text;
    }};
    std::istream stream{&buffer};

    std::string line() {
        std::string text;
        return std::getline(stream, text) ? text : "end";
    }
};

TEST_F(ConsoleInputTest, ReadsLinesAsUtf8) {
    typed = {L"W\u00E4hrung\r\n", L"\r\n", L"Z\u00FCrich"};
    EXPECT_EQ(line(), "Währung\r");
    EXPECT_EQ(line(), "\r");
    EXPECT_EQ(line(), "Zürich");
    EXPECT_EQ(line(), "end");
}

TEST_F(ConsoleInputTest, EndsAtCtrlZAtTheStartOfALine) {
    typed = {
        L"a\x1A"
        L"b\r\n",
        L"\x1A\r\n", L"never\r\n"};
    EXPECT_EQ(line(),
              "a\x1A"
              "b\r");
    EXPECT_EQ(line(), "end");
}

TEST_F(ConsoleInputTest, JoinsACharacterThatComesInTwoPieces) {
    typed = {L"a\xD834", L"\xDD1E\r\n"};
    EXPECT_EQ(line(), "a\U0001D11E\r");
}

}  // namespace
}  // namespace prot
