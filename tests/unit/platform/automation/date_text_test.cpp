#include "platform/automation/date_text.h"

#include <gtest/gtest.h>

#include "platform/automation/error.h"

namespace prot {
namespace {

Date at(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    return to_date(CivilTime{year, month, day, hour, minute, second});
}

TEST(DateText, ReadsTheGermanDateFormBack) {
    const struct {
        const char* text;
        Date date;
    } rows[] = {{"05.03.2026", at(2026, 3, 5)},
                {"5.3.2026", at(2026, 3, 5)},
                {"05.03.2026 14:07:09", at(2026, 3, 5, 14, 7, 9)},
                {"05.03.2026 14:07", at(2026, 3, 5, 14, 7)},
                {"00:00:00", Date{}},
                {"6:30", at(1899, 12, 30, 6, 30)},
                {" 29.02.2024 ", at(2024, 2, 29)}};
    for (const auto& row : rows) EXPECT_EQ(to_date(std::string_view(row.text)), row.date) << row.text;
    const Date moment = at(2026, 11, 15, 10, 7, 15);
    EXPECT_EQ(to_date(std::string_view(to_text(moment))), moment);
}

TEST(DateText, RefusesWhatIsNoDate) {
    for (const char* text : {"",
                             "x",
                             "31.02.2026",
                             "29.02.2026",
                             "1.1.26",
                             "2026-03-05",
                             "05.03.2026x",
                             "24:00:00",
                             "05.03.2026 12:60",
                             "05/03/2026",
                             "12:3",
                             "12:30:5",
                             "12:30:60",
                             "12:30:",
                             "123:00",
                             "0.3.2026",
                             "5.0.2026",
                             "5.13.2026",
                             "05.03.2026  12:00",
                             "005.03.2026",
                             "5.3.20260",
                             "5.3.0099"}) {
        try {
            to_date(std::string_view(text));
            ADD_FAILURE() << text;
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.number(), static_cast<std::int32_t>(ErrorNumber::type_mismatch)) << text;
        }
    }
}

TEST(DateText, ReadsIsoDates) {
    struct Row {
        const char* text;
        double serial;
        const char* why;
    };
    const Row rows[] = {
        {"1899-12-30", 0.0, "the null date"},
        {"1899-12-31 06:00:00", 1.25, "date and time"},
        {"1899-12-31T06:00:00", 1.25, "T between them"},
        {"1899-12-29 06:00:00", -1.25, "before the null date the time counts away from zero"},
        {"1899-12-31 06:00:00.000", 1.25, "fraction of nothing"},
        {"1899-12-31 00:00:43.2", 1.0005, "fraction"},
        {"1899-12-29 00:00:43.2", -1.0005, "fraction before the null date"},
        {"1899-12-30 00:00:00.5", 0.5 / 86400, "fraction on the null date"},
        {"1899-12-31 00:00:00.125", 1 + 0.125 / 86400, "several decimals"},
        {"1899-12-31 23:59:59.999999", 2 - 1e-6 / 86400, "many decimals"},
        {"9999-12-31 00:00:00", 2958465.0, "the last day"},
    };
    for (const Row& row : rows) {
        const auto date = read_iso_date(row.text);
        ASSERT_TRUE(date) << row.why;
        EXPECT_NEAR(date->serial, row.serial, 1e-10) << row.why;
    }
}

TEST(DateText, ReadsNoIsoDateFromOtherTexts) {
    const char* const texts[] = {"",
                                 "2026",
                                 "2026-02-30",
                                 "2026-13-01",
                                 "2026-1-01",
                                 "0000-00-00",
                                 "20260101",
                                 "01.02.2026",
                                 "2026-01-01 ",
                                 "2026-01-01 24:00:00",
                                 "2026-01-01 10:00",
                                 "2026-01-01 10:00:00.",
                                 "2026-01-01 10:00:00.1x",
                                 "2026-01-01 10:00:00Z",
                                 "2026-01-01x10:00:00",
                                 " 2026-01-01",
                                 "2026-01-+1"};
    for (const char* text : texts) EXPECT_FALSE(read_iso_date(text)) << text;
}

TEST(DateText, WritesTheIsoFormWithEveryDigit) {
    EXPECT_EQ(iso_text({2026, 3, 5, 4, 7, 9}), "2026-03-05 04:07:09");
    EXPECT_EQ(iso_text({100, 12, 31}), "0100-12-31 00:00:00");
    EXPECT_EQ(iso_text({9999, 10, 10, 23, 59, 58}), "9999-10-10 23:59:58");
}

TEST(DateText, ReadsDaysOfJustOneForm) {
    EXPECT_EQ(read_iso_day("2026-03-05"), at(2026, 3, 5));
    EXPECT_EQ(read_german_day("05.03.2026"), at(2026, 3, 5));
    EXPECT_EQ(read_german_day("5.3.2026"), at(2026, 3, 5));
    for (const char* text : {"", "05.03.2026", "2026-3-05", "2026-03-5", "2026-02-30", "2026-03-05 00:00:00"})
        EXPECT_FALSE(read_iso_day(text)) << text;
    for (const char* text :
         {"", "2026-03-05", "005.03.2026", ".3.2026", "5.3.26", "30.02.2026", "05.03.2026 00:00:00"})
        EXPECT_FALSE(read_german_day(text)) << text;
}

}  // namespace
}  // namespace prot
