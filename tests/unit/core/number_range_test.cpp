#include "core/number_range.h"

#include <gtest/gtest.h>

#include <limits>

#include "platform/automation/error.h"

namespace prot {
namespace {

TEST(NumberRange, NumbersAreWrittenAsPlainDecimals) {
    const struct {
        double number;
        const char* text;
    } rows[] = {
        {10000, "10000"}, {999999999, "999999999"}, {1e15, "1000000000000000"}, {1.5, "1.5"}, {-3, "-3"},
        {0, "0"}};
    for (const auto& row : rows) EXPECT_EQ(plain_number(row.number), row.text);
    EXPECT_EQ(plain_number(std::numeric_limits<double>::max()).size(), 309U);
}

TEST(NumberRange, ANumberBeyondAllNumbersIsAnOverflow) {
    try {
        plain_number(std::numeric_limits<double>::infinity());
        FAIL() << "no text can stand for it";
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.number(), static_cast<std::int32_t>(ErrorNumber::overflow));
    }
}

TEST(NumberRange, AnEntryIsAWholeNumberOrNothingYet) {
    for (const char* text : {"", "  ", "1", " 10001 ", "-5", "+7", "0", "007"})
        EXPECT_TRUE(is_number_entry(text)) << text;
    for (const char* text : {"-", "+", "1.5", "1,5", "10.000", "1e3", "abc", "1 2", "--1", "1-"})
        EXPECT_FALSE(is_number_entry(text)) << text;
}

TEST(NumberRange, IsRefusedByTheFirstRuleItBreaks) {
    constexpr const char* not_positive =
        "Die Werte in den Eingabefeldern 'von/bis Nummer' müssen größer 0 sein!";
    constexpr const char* upside_down =
        "Der Wert im Feld 'bis Nummer' darf nicht kleiner sein als der Wert im Feld 'von Nummer' !";
    const struct {
        NumberRange range;
        const char* text;
        std::size_t bound;
    } rows[] = {{{0, 5}, not_positive, 0},  {{-1, 0}, not_positive, 0}, {{5, 0}, not_positive, 1},
                {{5, -3}, not_positive, 1}, {{2, 1}, upside_down, 1},   {{0.5, 0.25}, upside_down, 1}};
    for (const auto& row : rows) {
        const auto refusal = refusal_of(row.range);
        ASSERT_TRUE(refusal) << row.range.from << " to " << row.range.to;
        EXPECT_EQ(refusal->text, row.text);
        EXPECT_EQ(refusal->bound, row.bound);
    }
}

TEST(NumberRange, MayBeOneNumber) {
    EXPECT_FALSE(refusal_of({7, 7}));
    EXPECT_FALSE(refusal_of({1, 999999999}));
    EXPECT_FALSE(refusal_of({0.25, 0.5}));
}

}  // namespace
}  // namespace prot
