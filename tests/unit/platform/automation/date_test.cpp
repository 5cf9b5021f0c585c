#include "platform/automation/date.h"

#include <gtest/gtest.h>

#include <limits>

#include "platform/automation/error.h"

namespace prot {
namespace {

TEST(Date, CountsDaysFromTheNullDate) {
    EXPECT_EQ(to_date(CivilTime{1899, 12, 30}).serial, 0.0);
    EXPECT_EQ(to_date(CivilTime{1900, 1, 1}).serial, 2.0);
    EXPECT_EQ(to_date(CivilTime{2026, 11, 15, 12}).serial, 46341.5);
    EXPECT_EQ(to_date(CivilTime{1899, 12, 29, 6}).serial, -1.25);
}

TEST(Date, TakesEverySecondOfADayApartAndBack) {
    for (int second = 0; second < 86400; ++second) {
        const CivilTime civil{2024, 2, 29, second / 3600, second / 60 % 60, second % 60};
        ASSERT_EQ(to_civil(to_date(civil)), civil);
    }
}

TEST(Date, TakesDaysOfAllCenturiesApartAndBack) {
    for (double day = -657434; day <= 2958465; day += 17) ASSERT_EQ(to_date(to_civil(Date{day})).serial, day);
}

TEST(Date, MovesAcrossTheNullDateInSeconds) {
    EXPECT_EQ(add_seconds(Date{0.0}, -1), to_date(CivilTime{1899, 12, 29, 23, 59, 59}));
    EXPECT_EQ(add_seconds(to_date(CivilTime{1899, 12, 29, 23, 59, 59}), 1), Date{0.0});
    EXPECT_EQ(add_seconds(to_date(CivilTime{2026, 1, 1}), -1), to_date(CivilTime{2025, 12, 31, 23, 59, 59}));
}

TEST(Date, KnowsWhichDaysExist) {
    constexpr int last_days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (int month = 1; month <= 12; ++month) {
        EXPECT_TRUE(is_valid({2026, month, 1})) << month;
        EXPECT_FALSE(is_valid({2026, month, 0})) << month;
        EXPECT_TRUE(is_valid({2026, month, last_days[month - 1]})) << month;
        EXPECT_FALSE(is_valid({2026, month, last_days[month - 1] + 1})) << month;
    }
    for (const int leap : {2000, 2024, 400}) EXPECT_TRUE(is_valid({leap, 2, 29})) << leap;
    for (const int common : {1900, 2026, 2100}) EXPECT_FALSE(is_valid({common, 2, 29})) << common;
}

TEST(Date, KnowsItsYearsMonthsAndTimes) {
    const struct {
        CivilTime last_good, bad;
    } rows[] = {
        {{100, 1, 1}, {99, 12, 31}},
        {{9999, 12, 31}, {10000, 1, 1}},
        {{2026, 1, 1}, {2026, 0, 1}},
        {{2026, 12, 1}, {2026, 13, 1}},
        {{2026, 1, 1, 0}, {2026, 1, 1, -1}},
        {{2026, 1, 1, 23}, {2026, 1, 1, 24}},
        {{2026, 1, 1, 0, 0}, {2026, 1, 1, 0, -1}},
        {{2026, 1, 1, 0, 59}, {2026, 1, 1, 0, 60}},
        {{2026, 1, 1, 0, 0, 0}, {2026, 1, 1, 0, 0, -1}},
        {{2026, 1, 1, 0, 0, 59}, {2026, 1, 1, 0, 0, 60}},
    };
    for (const auto& [good, bad] : rows) {
        for (const auto& [civil, valid] : {std::pair{good, true}, std::pair{bad, false}})
            EXPECT_EQ(is_valid(civil), valid) << civil.year << " " << civil.month << " " << civil.hour << " "
                                              << civil.minute << " " << civil.second;
    }
}

TEST(Date, TakesNoNumberForAMonthOrDayThatAByteCutsToOne) {
    for (const CivilTime& civil :
         {CivilTime{2026, 257, 1}, CivilTime{2026, -255, 1}, CivilTime{2026, 1, 257}})
        EXPECT_FALSE(is_valid(civil)) << civil.month << " " << civil.day;
}

TEST(Date, OverflowsOutsideItsYears) {
    EXPECT_THROW(to_civil(Date{2958466.0}), AutomationError);
    EXPECT_THROW(to_civil(Date{-657435.0}), AutomationError);
    EXPECT_THROW(to_civil(Date{std::numeric_limits<double>::quiet_NaN()}), AutomationError);
}

TEST(Date, OverflowsWhenTheLastHalfSecondRoundsToTheYear10000) {
    const double second = 1.0 / 86400;
    EXPECT_EQ(to_civil(Date{2958466.0 - 0.6 * second}), (CivilTime{9999, 12, 31, 23, 59, 59}));
    EXPECT_THROW(to_civil(Date{2958466.0 - 0.4 * second}), AutomationError);
}

TEST(Date, OverflowsWhenItIsMovedOutOfItsYears) {
    const Date first = to_date(CivilTime{100, 1, 1});
    const Date last = to_date(CivilTime{9999, 12, 31, 23, 59, 59});
    EXPECT_EQ(add_seconds(add_seconds(first, 1), -1), first);
    EXPECT_EQ(add_seconds(add_seconds(last, -1), 1), last);
    EXPECT_THROW(add_seconds(first, -1), AutomationError);
    EXPECT_THROW(add_seconds(last, 1), AutomationError);
    EXPECT_THROW(add_seconds(last, std::numeric_limits<std::int64_t>::max()), AutomationError);
    EXPECT_THROW(add_seconds(first, std::numeric_limits<std::int64_t>::min()), AutomationError);
}

}  // namespace
}  // namespace prot
