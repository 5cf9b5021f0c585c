#include "platform/portable/sqlite/sqlite_cells.h"

#include <gtest/gtest.h>

namespace prot {
namespace {

TEST(SqliteCells, ReadsIsoDates) {
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

TEST(SqliteCells, ReadsNoDateFromOtherTexts) {
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

TEST(SqliteCells, KnowsTheDeclaredTypesOfDates) {
    for (const char* type :
         {"DATETIME", "DATE", "TIMESTAMP", "datetime", "Date", "TIMESTAMP(6)", "DATETIME (3)"})
        EXPECT_TRUE(is_date_type(type)) << type;
    for (const char* type : {"", "TEXT", "DATETIMES", "TIME", "DATETIME2", "(DATE)"})
        EXPECT_FALSE(is_date_type(type)) << type;
    EXPECT_FALSE(is_date_type(nullptr));
}

}  // namespace
}  // namespace prot
