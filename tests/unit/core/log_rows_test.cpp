#include "core/log_rows.h"

#include <gtest/gtest.h>

#include "tests/unit/support/log_record.h"
#include "tests/unit/support/scripted_rows.h"

namespace prot {
namespace {

using Calls = std::vector<std::string>;

class LogRowsTest : public testing::Test {
protected:
    Calls calls;

    static RowSet records(std::initializer_list<std::int64_t> ids) {
        RowSet rows(log_columns);
        for (const std::int64_t id : ids) test::add_record(rows, {.id = id});
        return rows;
    }
    std::unique_ptr<RowStream> stream(std::initializer_list<std::initializer_list<std::int64_t>> batches,
                                      std::int64_t expected = 0) {
        std::vector<test::ScriptedRows::Batch> prepared;
        for (const auto& batch : batches) prepared.push_back({records(batch)});
        return std::make_unique<test::ScriptedRows>(std::move(prepared), calls, expected);
    }
    static std::vector<std::int64_t> rest_of(LogRows& rows) {
        std::vector<std::int64_t> ids;
        while (const LogRow* const row = rows.next()) ids.push_back(row->id());
        return ids;
    }
};

TEST_F(LogRowsTest, HandsOverEachRecordOnceInOrderAcrossBatches) {
    LogRows rows(stream({{5, 6}, {7}, {8, 9}}));
    EXPECT_FALSE(rows.empty());
    EXPECT_EQ(rest_of(rows), (std::vector<std::int64_t>{5, 6, 7, 8, 9}));
    EXPECT_EQ(rows.next(), nullptr) << "and stays at the end";
}

TEST_F(LogRowsTest, FetchesTheFirstRowsAtOnceAndTheOthersWhenTheyAreDue) {
    LogRows rows(stream({{5}, {6}}));
    EXPECT_EQ(calls, (Calls{"batch"}));
    rows.next();
    EXPECT_EQ(calls, (Calls{"batch"})) << "the first batch is not read twice";
    rows.next();
    EXPECT_EQ(calls, (Calls{"batch", "batch"}));
}

TEST_F(LogRowsTest, KnowsThatThereIsNoRecordWithoutAskingHowManyAreExpected) {
    EXPECT_TRUE(LogRows(stream({}, 1000)).empty());
    EXPECT_EQ(calls, (Calls{"batch", "rows end"}));
}

TEST_F(LogRowsTest, ReadsFromTheFirstRecordAgainAfterARelease) {
    LogRows rows(stream({{5, 6}, {7}}));
    rows.release();
    EXPECT_EQ(calls, (Calls{"batch", "release"}));
    EXPECT_EQ(rest_of(rows), (std::vector<std::int64_t>{5, 6, 7}));
}

TEST_F(LogRowsTest, CountsInTheHostsNumbersEvenBehindARelease) {
    RowSet whole = records({5, 6});
    whole.set_first_row(-3);
    LogRows rows(std::make_unique<ArrayStream>(std::move(whole)));
    rows.release();
    EXPECT_EQ(rows.first_number(), -3);
    EXPECT_EQ(rows.expected_count(), 2);
    EXPECT_EQ(rest_of(rows), (std::vector<std::int64_t>{5, 6}));
}

TEST_F(LogRowsTest, RefusesRecordsThatLackAColumnOfTheLog) {
    RowSet narrow(log_columns - 1);
    narrow.add_row();
    const LogRows rows(std::make_unique<ArrayStream>(std::move(narrow)));
    EXPECT_THROW(rows.require_log_columns(), AutomationError);
}

TEST(ArrayStream, IsOneBatchUntilItIsReleased) {
    RowSet whole(1);
    whole.add_row();
    ArrayStream stream(std::move(whole));
    EXPECT_EQ(stream.expected_rows(), 1);
    EXPECT_EQ(stream.next_batch().rows(), 1U);
    EXPECT_TRUE(stream.next_batch().empty());
    EXPECT_TRUE(stream.next_batch().empty());
    stream.release();
    EXPECT_EQ(stream.next_batch().rows(), 1U);
}

}  // namespace
}  // namespace prot
