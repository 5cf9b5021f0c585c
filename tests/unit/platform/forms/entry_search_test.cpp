#include "platform/forms/entry_search.h"

#include <gtest/gtest.h>

namespace prot {
namespace {

const std::vector<Entry> clients = {
    {1, "Müller GmbH", "7"},          {2, "Bäckerei Möller", "10"},
    {3, "Müller & Söhne", "70"},      {4, "Steuerkanzlei 7", "100"},
    {5, "Bäckerei Schulz OHG", "77"}, {6, "Doppelt", "88"},
    {7, "Doppelt auch", "88"},        {8, "", "9"},
};

using Found = std::vector<std::size_t>;

struct Typed {
    std::string typed;
    Found matches;
    std::optional<std::size_t> chosen;  // when none was before
    const char* why;
};

class EntrySearchFor : public testing::TestWithParam<Typed> {};

TEST_P(EntrySearchFor, FindsWhatMayBeMeant) {
    EntrySearch search;
    search.look_through(clients);
    EXPECT_EQ(search.matches(GetParam().typed), GetParam().matches) << GetParam().why;
    EXPECT_EQ(search.chosen(GetParam().typed, std::nullopt), GetParam().chosen) << GetParam().why;
}

INSTANTIATE_TEST_SUITE_P(
    Clients, EntrySearchFor,
    testing::Values(Typed{"", {0, 1, 2, 3, 4, 5, 6, 7}, {}, "nothing typed means nobody"},
                    Typed{"   ", {0, 1, 2, 3, 4, 5, 6, 7}, {}, "blanks are nothing"},
                    Typed{"7", {0, 2, 3, 4}, 0, "a whole number means its entry, though others begin so"},
                    Typed{" 10 ", {1, 3}, 1, "blanks around do not matter"},
                    Typed{"0", {}, {}, "a number is found by its beginning only"},
                    Typed{"mül", {0, 2}, {}, "a part of the text, without letter case"},
                    Typed{"MÜLLER & SÖHNE", {2}, 2, "a whole text"},
                    Typed{"söhne", {2}, 2, "the only one that matches"},
                    Typed{"ohg bäck", {4}, 4, "words in any order"},
                    Typed{"77 schulz", {4}, 4, "number and text together"},
                    Typed{"müller 77", {}, {}, "every word must be found"},
                    Typed{"88", {5, 6}, {}, "a number that two have means neither"},
                    Typed{"doppelt", {5, 6}, 5, "a whole text means its entry, though others hold it"},
                    Typed{"7 Müller GmbH", {0}, 0, "an entry as it is named"},
                    Typed{"70 müller", {2}, 2, "number and a part of the text"},
                    Typed{"8 doppelt", {5, 6}, {}, "the beginning of two"},
                    Typed{"88 doppelt", {5, 6}, 5, "an entry as it is named, though another begins so"},
                    Typed{"xyz", {}, {}, "nothing"}));

TEST(EntrySearch, KeepsTheEntryChosenBeforeAsLongAsItMatches) {
    EntrySearch search;
    search.look_through(clients);
    EXPECT_EQ(search.chosen("mül", 2), 2U);
    EXPECT_EQ(search.chosen("mül", 1), std::nullopt);
    EXPECT_EQ(search.chosen("", 1), 1U);
    EXPECT_EQ(search.chosen("7", 2), 0U) << "the whole number counts more";
    EXPECT_EQ(search.chosen("", 99), std::nullopt);
}

TEST(EntrySearch, LooksThroughTheLatestEntriesOnly) {
    EntrySearch search;
    search.look_through(clients);
    search.look_through({{5, "Neu", "1"}});
    EXPECT_EQ(search.matches("n"), Found{0});
    EXPECT_EQ(search.matches("mül"), Found{});
    EXPECT_EQ(EntrySearch().matches(""), Found{});
}

TEST(EntrySearch, ATextThatTwoHaveMeansNeither) {
    EntrySearch search;
    search.look_through({{1, "Doppelt", "7"}, {2, "Doppelt", "8"}, {3, "8", "9"}});
    EXPECT_EQ(search.chosen("doppelt", std::nullopt), std::nullopt);
    EXPECT_EQ(search.chosen("doppelt", 1), 1U) << "unless it was chosen before";
    EXPECT_EQ(search.chosen("8", std::nullopt), 1U) << "a number counts before a text";
    EXPECT_EQ(search.chosen("8 doppelt", std::nullopt), 1U);
}

TEST(EntrySearch, ANumberThatTwoHaveIsNotDecidedByAText) {
    EntrySearch search;
    search.look_through({{1, "Eins", "88"}, {2, "Zwei", "88"}, {3, "88", "9"}});
    EXPECT_EQ(search.chosen("88", std::nullopt), std::nullopt);
}

}  // namespace
}  // namespace prot
