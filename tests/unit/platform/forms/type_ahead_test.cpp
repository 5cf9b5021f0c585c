#include "platform/forms/type_ahead.h"

#include <gtest/gtest.h>

namespace prot {
namespace {

using std::chrono::milliseconds;

const std::vector<Entry> entries = {{0, "CHF"}, {1, "CZK"},     {2, "Österreich"},
                                    {3, "EUR"}, {4, "EU weit"}, {5, "EEK"}};

/// Types `letters` with `pause` between them; the entry after the last one.
std::optional<std::size_t> typed(std::u32string_view letters, std::optional<std::size_t> selected,
                                 milliseconds pause = milliseconds(50)) {
    TypeAhead type_ahead;
    TypeAhead::Moment now{std::chrono::hours(1)};
    for (const char32_t letter : letters) {
        if (const auto entry = type_ahead.typed(letter, now, entries, selected)) selected = entry;
        now += pause;
    }
    return selected;
}

TEST(TypeAhead, FindsTheEntryThatBeginsWithTheLetters) {
    const struct {
        std::u32string letters;
        std::optional<std::size_t> selected, expected;
        const char* why;
    } rows[] = {
        {U"c", std::nullopt, 0, "nothing selected: the first"},
        {U"c", 0, 1, "one letter: the next entry of it"},
        {U"c", 1, 0, "round the end of the list"},
        {U"cz", std::nullopt, 1, "two letters"},
        {U"cz", 1, 1, "an entry that fits already stays"},
        {U"EU", 0, 3, "in any letter case"},
        {U"ö", 0, 2, "letters beyond ASCII, too"},
        {U"eu w", 0, 4, "a blank within the beginning"},
        {U"cc", std::nullopt, 1, "a letter again: the next entry of it"},
        {U"ee", 0, 5, "unless an entry begins with both"},
        {U"x", 3, 3, "nothing begins so: nothing changes"},
        {U"cx", std::nullopt, 0, "the letters that fit count"},
    };
    for (const auto& row : rows) EXPECT_EQ(typed(row.letters, row.selected), row.expected) << row.why;
}

TEST(TypeAhead, APauseBeginsAnew) { EXPECT_EQ(typed(U"ec", 0, milliseconds(1500)), 0U); }

TEST(TypeAhead, ABlankIsABeginningOfNothing) {
    TypeAhead type_ahead;
    const TypeAhead::Moment now{std::chrono::hours(1)};
    EXPECT_FALSE(type_ahead.takes(U' ', now));
    EXPECT_FALSE(type_ahead.takes(U'\r', now));
    type_ahead.typed(U'e', now, entries, std::nullopt);
    EXPECT_TRUE(type_ahead.takes(U' ', now + milliseconds(100)));
    EXPECT_FALSE(type_ahead.takes(U' ', now + milliseconds(5000)));
}

TEST(TypeAhead, AnEmptyListHasNothingToFind) {
    TypeAhead type_ahead;
    EXPECT_EQ(type_ahead.typed(U'a', {}, {}, std::nullopt), std::nullopt);
}

TEST(TypeAhead, APauseIsLongerThanASecondSinceTheLastLetter) {
    EXPECT_EQ(typed(U"eu w", 0, milliseconds(1000)), 4U) << "just a second, each time";
    EXPECT_EQ(typed(U"ec", 0, milliseconds(1001)), 0U) << "too late: c begins anew";
}

TEST(TypeAhead, ForgetsWhatWasTypedInAnotherList) {
    TypeAhead type_ahead;
    const TypeAhead::Moment now{std::chrono::hours(1)};
    type_ahead.typed(U'e', now, entries, std::nullopt);
    type_ahead.forget();
    EXPECT_FALSE(type_ahead.takes(U' ', now));
    EXPECT_EQ(type_ahead.typed(U'c', now, entries, 3), 0U);
}

TEST(TypeAhead, ASelectionBehindTheEndCountsAsTheLast) {
    TypeAhead type_ahead;
    EXPECT_EQ(type_ahead.typed(U'e', TypeAhead::Moment{std::chrono::hours(1)}, entries, 99), 3U);
}

}  // namespace
}  // namespace prot
