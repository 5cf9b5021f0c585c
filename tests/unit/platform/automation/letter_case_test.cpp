#include "platform/automation/letter_case.h"

#include <gtest/gtest.h>

#include "platform/automation/utf8.h"

namespace prot {
namespace {

TEST(LetterCase, FoldsPerCodePoint) {
    EXPECT_EQ(to_lower("ÄNDERUNGSAKTION:Größe ÀŽŸЖΩ"), "änderungsaktion:größe àžÿжω");
    EXPECT_EQ(to_upper("änderungsaktion àžÿжω"), "ÄNDERUNGSAKTION ÀŽŸЖΩ");
    EXPECT_EQ(to_upper("straße"), "STRAßE") << "one code point stays one code point";
    EXPECT_EQ(to_lower("AbZ[@{"), "abz[@{");
    EXPECT_EQ(to_upper("÷×"), "÷×") << "signs between the letters have no case";
}

TEST(LetterCase, ComparesInCapitalsAsIfFolded) {
    for (const char* text : {"", "a", "abc", "ABC", "aBd", "größe", "GRÖßE", "idDevisenKurs", "a\xFF"}) {
        for (const char* other :
             {"", "A", "ABC", "abc", "GRÖßE", "größe", "idDevisenKurs", "IDDEVISENKURS", "A\xFF"})
            EXPECT_EQ(upper_equals(text, other), to_upper(text) == other) << text << " " << other;
    }
}

TEST(LetterCase, FoldsATextAsItsCodePoints) {
    const auto text_of = [](char32_t c) { return "a" + encode_utf8(std::u32string(1, c)) + "Z"; };
    for (char32_t c = 0; c < 0x2000; ++c) {
        const std::string text = text_of(c);
        EXPECT_EQ(to_lower(text), "a" + text_of(to_lower(c)).substr(1, text.size() - 2) + "z");
        EXPECT_EQ(to_upper(text), "A" + text_of(to_upper(c)).substr(1, text.size() - 2) + "Z");
    }
}

TEST(LetterCase, LeavesBytesThatAreNotUtf8) {
    EXPECT_EQ(to_lower("A\xC4Z\xFF"), "a\xC4z\xFF");
    EXPECT_EQ(to_lower("ÄB\xC3"), "äb\xC3");
    EXPECT_EQ(to_lower("\xC0\x81Ä"), "\xC0\x81ä");
}

TEST(LetterCase, KnowsTheFirstAndLastPairOfEachRange) {
    const struct {
        const char *capitals, *small, *why;
    } rows[] = {
        {"AZ", "az", "Basic Latin"},
        {"ÀÖØÞ", "àöøþ", "Latin-1"},
        {"ĀĮĲĶĹŇŊŶŸŹŽ", "āįĳķĺňŋŷÿźž", "Latin Extended-A"},
        {"ǍǛǞǮǸȞȢȲ", "ǎǜǟǯǹȟȣȳ", "Latin Extended-B"},
        {"ΆΈΊΌΎΏΑΡΣΫ", "άέίόύώαρσϋ", "Greek"},
        {"ЀЏАЯѠҀҊҾӁӍӐԮ", "ѐџаяѡҁҋҿӂӎӑԯ", "Cyrillic"},
        {"ԱՖ", "աֆ", "Armenian"},
        {"ḀẔẠỾ", "ḁẕạỿ", "Latin Extended Additional"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(to_lower(row.capitals), row.small) << row.why;
        EXPECT_EQ(to_upper(row.small), row.capitals) << row.why;
    }
}

TEST(LetterCase, LeavesWhatStandsBetweenTheRanges) {
    for (const char* text : {"@[`{", "×÷", "ßĸŉ", "ǰ", "ΐ΢΅·", "҂҉", "԰՗", "ẖẟ"}) {
        for (const char32_t c : decode_utf8(text)) {
            EXPECT_EQ(to_lower(c), c) << text;
            EXPECT_EQ(to_upper(c), c) << text;
        }
    }
}

TEST(LetterCase, UpperIsTheReverseOfLower) {
    for (char32_t c = 0; c < 0x2000; ++c) {
        if (to_lower(c) != c) {
            EXPECT_EQ(to_upper(to_lower(c)), c) << static_cast<std::uint32_t>(c);
        }
    }
}

}  // namespace
}  // namespace prot
