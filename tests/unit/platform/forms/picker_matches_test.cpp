#include "platform/forms/picker_matches.h"

#include <gtest/gtest.h>

namespace prot {
namespace {

const std::vector<Entry> clients = {
    {1, "Meier", "7"}, {2, "Müller", "70"}, {3, "Maier & Söhne", "8"}, {4, "Übersee", "701"}};

PickerMatches matching(std::string_view typed) {
    PickerMatches matches;
    matches.look_through(clients);
    matches.filter(typed);
    return matches;
}

std::vector<std::string> numbers_in(const PickerMatches& matches) {
    std::vector<std::string> numbers;
    for (std::size_t row = 0; row < matches.row_count(); ++row)
        numbers.push_back(matches.entry_in(row)->number);
    return numbers;
}

TEST(PickerMatches, AreTheEntriesThatMatchInTheirOrder) {
    EXPECT_EQ(numbers_in(matching("7")), (std::vector<std::string>{"7", "70", "701"}));
    EXPECT_EQ(numbers_in(matching("ier")), (std::vector<std::string>{"7", "8"}));
    EXPECT_EQ(numbers_in(matching("")).size(), clients.size());
    EXPECT_EQ(numbers_in(matching("x")).size(), 0U);
}

TEST(PickerMatches, SayWhetherThereAreOtherRows) {
    PickerMatches matches;
    EXPECT_TRUE(matches.look_through(clients));
    EXPECT_TRUE(matches.filter(""));
    const struct {
        const char* typed;
        bool other_rows;
        const char* why;
    } rows[] = {
        {"", false, "the same again"},  {" ", false, "a blank leaves all of them"},
        {"7", true, "fewer match"},     {"70", true, "still fewer"},
        {"70", false, "the same text"}, {"70 ", false, "another text, the same rows"},
        {"x", true, "none match"},      {"xy", false, "none match again"},
    };
    for (const auto& row : rows) EXPECT_EQ(matches.filter(row.typed), row.other_rows) << row.why;
}

TEST(PickerMatches, EntriesCountAsOthersWhenAPersonSeesIt) {
    PickerMatches matches = matching("7");
    EXPECT_FALSE(matches.look_through(clients));
    std::vector<Entry> others = clients;
    others[0].key = 99;
    EXPECT_FALSE(matches.look_through(others)) << "keys are not on view";
    others[3].number = "702";
    EXPECT_TRUE(matches.look_through(others));
    EXPECT_TRUE(matches.filter("7")) << "the same places, but other texts in them";
    EXPECT_EQ(numbers_in(matches).back(), "702");
}

TEST(PickerMatches, ThereAreNoRowsUntilOtherEntriesAreFiltered) {
    PickerMatches matches = matching("7");
    matches.look_through({{1, "Meier", "7"}});
    EXPECT_EQ(matches.entry_in(0), nullptr);
}

TEST(PickerMatches, FindTheRowOfAnEntry) {
    const PickerMatches matches = matching("ier");
    EXPECT_EQ(matches.row_of(2), 1U);
    EXPECT_EQ(matches.index_of(1), 2U);
    EXPECT_EQ(matches.row_of(1), std::nullopt) << "does not match";
    EXPECT_EQ(matches.row_of(100), std::nullopt) << "there is none";
    EXPECT_EQ(matches.row_of(std::nullopt), std::nullopt);
    EXPECT_EQ(matches.entry_in(2), nullptr);
}

TEST(PickerMatches, StepsLeadThroughTheRowsOnly) {
    const struct {
        const char* typed;
        std::optional<std::size_t> from;
        int steps;
        std::optional<std::size_t> to;
        const char* why;
    } rows[] = {
        {"ier", 0, 1, 2, "down, over what does not match"},
        {"ier", 2, -1, 0, "up"},
        {"ier", 2, 1, 2, "not beyond the last"},
        {"", 1, -6, 0, "a page, not beyond the first"},
        {"", 1, 6, 3, "a page, not beyond the last"},
        {"ier", std::nullopt, 1, 0, "from none down to the first"},
        {"ier", std::nullopt, -1, 2, "from none up to the last"},
        {"ier", 1, 1, 0, "from one that is not on view, as from none"},
        {"x", 1, 1, 1, "nowhere to go"},
        {"x", std::nullopt, -1, std::nullopt, "nowhere to go from none"},
    };
    for (const auto& row : rows) EXPECT_EQ(matching(row.typed).moved(row.from, row.steps), row.to) << row.why;
}

TEST(PickerMatches, TellHowManyThereAre) {
    EXPECT_EQ(matching("").count_text(), "4 von 4");
    EXPECT_EQ(matching("ier").count_text(), "2 von 4");
    EXPECT_EQ(matching("x").count_text(), "keine Treffer");
    EXPECT_EQ(PickerMatches().count_text(), "keine Einträge");
}

TEST(PickerMatches, SayWhyNoEntryIsChosen) {
    EXPECT_EQ(matching(" ").missing_text(" "), "Bitte eine Nummer oder einen Teil des Namens eingeben.");
    EXPECT_EQ(matching("ier").missing_text("ier"), "„ier“ passt auf 2 Einträge; bitte einen davon wählen.");
    EXPECT_EQ(matching("x").missing_text("x"), "„x“ passt auf keinen Eintrag.");
    EXPECT_EQ(PickerMatches().missing_text("x"), "Es gibt keine Einträge.");
}

}  // namespace
}  // namespace prot
