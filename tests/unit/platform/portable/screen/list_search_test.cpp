#include "platform/portable/screen/list_search.h"

#include <gtest/gtest.h>

namespace prot {
namespace {

class ListSearchTest : public testing::Test {
protected:
    ListSearchTest() {
        for (const char* code : {"AED", "AUD", "CAD", "CHF", "HKD", "ÖRE"}) list.add(0, code);
        list.selected = 0;
    }
    /// Types the letters and selects what they lead to.
    std::string type(std::u32string_view letters) {
        for (const char32_t c : letters)
            if (const auto entry = search.press(c, list)) list.selected = entry;
        return list.selected_text();
    }

    Field list;
    std::chrono::steady_clock::time_point now{};
    ListSearch search{[this] { return now; }};
};

TEST_F(ListSearchTest, LettersInQuickSuccessionAreTheBeginningOfOneEntry) { EXPECT_EQ(type(U"chf"), "CHF"); }

TEST_F(ListSearchTest, AfterAPauseALetterIsABeginning) {
    EXPECT_EQ(type(U"c"), "CAD");
    now += std::chrono::seconds(2);
    EXPECT_EQ(type(U"h"), "HKD");
}

TEST_F(ListSearchTest, TheSameLetterGoesRoundTheEntriesThatBeginWithIt) {
    EXPECT_EQ(type(U"a"), "AUD");
    EXPECT_EQ(type(U"a"), "AED");
}

TEST_F(ListSearchTest, LetterCaseDoesNotMatter) { EXPECT_EQ(type(U"ö"), "ÖRE"); }

TEST_F(ListSearchTest, ALetterThatBeginsNothingLeavesTheSelection) { EXPECT_EQ(type(U"x"), "AED"); }

}  // namespace
}  // namespace prot
