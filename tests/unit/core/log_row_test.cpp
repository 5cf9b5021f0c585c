#include "core/log_row.h"

#include <gtest/gtest.h>

#include "platform/automation/error.h"
#include "tests/unit/support/log_record.h"

namespace prot {
namespace {

using test::LogRecord;

/// A record whose column ddDatum, or another, holds any value.
class LogRowTest : public testing::Test {
protected:
    RowSet rows{log_columns};
    std::string scratch;

    LogRow row_with(LogColumn column, const Value& value) {
        rows = RowSet(log_columns);
        test::add_record(rows, {});
        rows.set(static_cast<std::size_t>(column), value);
        return {rows, 0};
    }
};

TEST_F(LogRowTest, ReadsEachColumnAtItsPlace) {
    const LogRecord record({.id = 5, .table = "T", .date = Date{46000}, .event = 2, .document = "d"});
    const LogRow& row = record.row();
    EXPECT_EQ(row.id(), 5);
    const struct {
        LogColumn column;
        const char* text;
    } columns[] = {
        {LogColumn::id, "5"},
        {LogColumn::dcTable, "T"},
        {LogColumn::dcWorkstation, "PC-7"},
        {LogColumn::dcUser, "Anna"},
        {LogColumn::ddDatum, "09.12.2025"},
        {LogColumn::dlEvent, "2"},
        {LogColumn::dmData, "d"},
        {LogColumn::dcSystemUser, "dbo"},
        {LogColumn::dcApplication, "Fibu"},
        {LogColumn::dlPrimaryKey1, "11"},
        {LogColumn::dlSuchId1, "12"},
        {LogColumn::dlSuchId2, "13"},
        {LogColumn::dlSuchId3, "14"},
        {LogColumn::dlSuchId4, "15"},
    };
    std::size_t index = 0;
    for (const auto& [column, text] : columns) {
        EXPECT_EQ(static_cast<std::size_t>(column), index++) << "the place in the statement";
        EXPECT_EQ(row.text(column, scratch), text) << index;
    }
    EXPECT_EQ(index, log_columns);
}

TEST_F(LogRowTest, NumbersOfCells) {
    const struct {
        Value value;
        std::int32_t number;
        const char* why;
    } cases[] = {
        {Value(), 0, "Null"},
        {std::int64_t{2147483647}, 2147483647, "the largest"},
        {std::int64_t{-2147483648LL}, -2147483647 - 1, "the smallest"},
        {std::string("71 "), 71, "a text that begins with a number"},
        {std::string("abc"), 0, "a text without one"},
        {2.6, 2, "a fraction, whose comma ends the number"},
    };
    for (const auto& [value, number, why] : cases)
        EXPECT_EQ(row_with(LogColumn::dlSuchId1, value).number(LogColumn::dlSuchId1), number) << why;
    for (const std::int64_t beyond : {std::int64_t{2147483648LL}, std::int64_t{-2147483649LL}}) {
        const LogRow row = row_with(LogColumn::dlSuchId1, beyond);
        EXPECT_THROW(row.number(LogColumn::dlSuchId1), AutomationError) << beyond;
    }
}

TEST_F(LogRowTest, NumbersOfTextsEndAt32Bits) {
    const struct {
        const char* text;
        std::optional<std::int32_t> number;
    } cases[] = {
        {"2147483647", 2147483647},    {"2147483648", std::nullopt},  {"-2147483648", -2147483647 - 1},
        {"-2147483649", std::nullopt}, {"99999999999", std::nullopt}, {"", 0},
    };
    for (const auto& [text, number] : cases) EXPECT_EQ(number_in_range(text), number) << text;
}

TEST_F(LogRowTest, AKeyThatIsNoWholeNumberIsNone) {
    EXPECT_EQ(row_with(LogColumn::id, std::int64_t{1} << 40).id(), std::int64_t{1} << 40);
    EXPECT_EQ(row_with(LogColumn::id, std::string("A7")).id(), 0);
    EXPECT_EQ(row_with(LogColumn::id, Value()).id(), 0);
}

TEST_F(LogRowTest, AMomentMayBeTextOrMissing) {
    const Date noon = to_date(CivilTime{2026, 3, 5, 12});
    const struct {
        Value value;
        std::optional<Date> moment;
        bool without_date;
        const char* why;
    } cases[] = {
        {noon, noon, false, "a date"},
        {std::string("05.03.2026 12:00:00"), noon, false, "a text that is one"},
        {Value(), std::nullopt, true, "Null"},
        {std::string(), std::nullopt, true, "the empty text"},
    };
    for (const auto& [value, moment, without_date, why] : cases) {
        const LogRow row = row_with(LogColumn::ddDatum, value);
        EXPECT_EQ(row.moment(), moment) << why;
        EXPECT_EQ(row.without_date(), without_date) << why;
        EXPECT_EQ(row.has_moment(), moment.has_value()) << why;
    }
}

TEST_F(LogRowTest, ATextThatIsNoDateIsNoMoment) {
    const LogRow row = row_with(LogColumn::ddDatum, std::string("gestern"));
    EXPECT_FALSE(row.has_moment());
    EXPECT_FALSE(row.without_date());
    EXPECT_THROW(row.moment(), AutomationError);
}

TEST_F(LogRowTest, EachTextIsWrittenAnewIntoTheScratch) {
    const LogRow row = row_with(LogColumn::dlSuchId2, 2.5);
    EXPECT_EQ(row.text(LogColumn::dlSuchId2, scratch), "2,5");
    EXPECT_EQ(row.text(LogColumn::dlSuchId3, scratch), "14");
    EXPECT_EQ(row_with(LogColumn::dmData, Value()).text(LogColumn::dmData, scratch), "");
}

}  // namespace
}  // namespace prot
