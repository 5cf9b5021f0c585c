#include "apps/protcsv/options/days.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/unit/apps/protcsv/options/refusal_of.h"

namespace prot {
namespace {

Date day(int year, int month, int day) { return to_date(CivilTime{year, month, day}); }

const Date today = to_date(CivilTime{2026, 3, 1, 23, 59, 59});

TEST(Days, AreReadInEveryForm) {
    const struct {
        const char* text;
        Date first;
        Date last;
    } rows[] = {
        {"2026-02-01", day(2026, 2, 1), day(2026, 2, 1)}, {"01.02.2026", day(2026, 2, 1), day(2026, 2, 1)},
        {"1.2.2026", day(2026, 2, 1), day(2026, 2, 1)},   {"heute", day(2026, 3, 1), day(2026, 3, 1)},
        {"Gestern", day(2026, 2, 28), day(2026, 2, 28)},  {"2026-01", day(2026, 1, 1), day(2026, 1, 31)},
        {"2024-02", day(2024, 2, 1), day(2024, 2, 29)},   {"2026-02", day(2026, 2, 1), day(2026, 2, 28)},
        {"2026-12", day(2026, 12, 1), day(2026, 12, 31)},
    };
    for (const auto& row : rows) {
        const Days days = parse_days(row.text, today);
        EXPECT_EQ(days.first, row.first) << row.text;
        EXPECT_EQ(days.last, row.last) << row.text;
    }
}

TEST(Days, OfADeletionDoNotEndWithTheNullDayWhichWouldMeanNoBound) {
    for (const char* text : {"30.12.1899", "1899-12-30"}) {
        EXPECT_TRUE(parse_days(text, today).last.is_null());
        EXPECT_EQ(refusal_of([&] { parse_last_day_of_deletion(text, today); }),
                  "„" + std::string(text) + "“ ist der Nulltag; er stünde für eine Löschung ohne Grenze");
    }
    EXPECT_EQ(parse_last_day_of_deletion("31.12.1899", today), Date{1});
    EXPECT_EQ(parse_last_day_of_deletion("2015-12", today), day(2015, 12, 31)) << "a whole month";
}

TEST(Days, AreRefusedWhereThereIsNone) {
    const struct {
        const char* text;
        const char* why;
    } rows[] = {
        {"2026-02-30", "February has no 30th"},
        {"29.02.2025", "no leap year"},
        {"2026-13-01", "no month 13"},
        {"2026-13", "no month 13"},
        {"2026-00", "no month 0"},
        {"2026-1", "a digit is missing"},
        {"0099-01-01", "before year 100"},
        {"1.2.26", "digits of the year are missing"},
        {"2026-2-1", "digits are missing"},
        {"2026/02/01", "another separator"},
        {"2026-02-01 ", "trailing blank"},
        {"2026-02-01-01", "a fourth number"},
        {"2026", "a year"},
        {"morgen", "not yet"},
        {"", "empty"},
        {"+026-02-01", "a sign is no digit"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(refusal_of([&] { parse_days(row.text, today); }),
                  "„" + std::string(row.text) +
                      "“ ist kein Tag; erwartet wird TT.MM.JJJJ, JJJJ-MM-TT, JJJJ-MM, heute oder gestern")
            << row.why;
}

}  // namespace
}  // namespace prot
