#include <gmock/gmock.h>

#include "tests/unit/platform/portable/sqlite/sqlite_fixture.h"

namespace prot {
namespace {

constexpr const char* numbers =
    "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 1000) ";

class SqliteRowStreamTest : public SqliteFixture, public testing::WithParamInterface<SqliteReading> {
protected:
    SqliteRowStreamTest() {
        write(std::string("CREATE TABLE T (id INTEGER PRIMARY KEY, kind INTEGER, made TEXT, text TEXT);") +
              "INSERT INTO T " + numbers + "SELECT i, i % 2, 1000 - i, 'x' FROM n");
        database_ = open(SqliteAccess::read_only, GetParam());
    }

    std::vector<std::size_t> sizes_of_batches(const char* query) {
        const auto stream = database_->query_rows(query);
        std::vector<std::size_t> sizes;
        do sizes.push_back(stream->next_batch().rows());
        while (sizes.back() > 0);
        return sizes;
    }

    std::unique_ptr<Database> database_;
};

TEST_P(SqliteRowStreamTest, ReadsBatchesOf256Rows) {
    EXPECT_EQ(sizes_of_batches("SELECT id FROM T"), (std::vector<std::size_t>{256, 256, 256, 232, 0}));
    EXPECT_EQ(sizes_of_batches("SELECT id FROM T WHERE id <= 256"), (std::vector<std::size_t>{256, 0}));
}

TEST_P(SqliteRowStreamTest, EndsABatchThatHoldsAMegabyteOfText) {
    write("UPDATE T SET text = printf('%.*c', 200000, 'x') WHERE id < 100");
    for (const std::size_t size : sizes_of_batches("SELECT id, text FROM T WHERE id < 100"))
        EXPECT_LE(size, 6U + 8U) << "a thread that reads ahead takes eight rows at a time";
}

TEST_P(SqliteRowStreamTest, CountsTheRowsThatAProgressMayExpect) {
    const struct {
        const char* query;
        std::int64_t rows;
        const char* why;
    } cases[] = {
        {"SELECT id FROM T WHERE kind = 1 ORDER BY made", 500, "counted"},
        {"SELECT id FROM T WHERE id IN (SELECT id FROM T WHERE kind = 1)", 500, "likewise"},
        {"SELECT TOP 300 id FROM T ORDER BY id", 300, "a limit counts"},
        {"SELECT kind FROM T GROUP BY kind ORDER BY kind", 2, "groups count"},
        {"SELECT id FROM T WHERE kind = 7", 0, "none"},
    };
    for (const auto& [query, rows, why] : cases) {
        SCOPED_TRACE(query);
        EXPECT_EQ(database_->query_rows(query)->expected_rows(), rows) << why;
    }
}

TEST_P(SqliteRowStreamTest, ExpectsTheRowsOfTheTableWhereCountingWouldTakeLong) {
    write(
        "CREATE TABLE L (id INTEGER PRIMARY KEY, kind INTEGER, made INTEGER);"
        "INSERT INTO L SELECT 100 + a.id * 50 + b.id, a.id % 2, 100 - b.id FROM T a, T b WHERE b.id <= 50");
    const struct {
        const char* query;
        std::int64_t exact;
        const char* why;
    } cases[] = {
        {"SELECT id FROM L WHERE id IN (SELECT id FROM L WHERE kind = 1) ORDER BY id", 25000, "a large set"},
        {"SELECT id FROM L WHERE kind = 1 ORDER BY made", 25000, "a sort"},
    };
    for (const auto& [query, exact, why] : cases) {
        SCOPED_TRACE(why);
        const auto stream = database_->query_rows(query);
        stream->next_batch();
        EXPECT_EQ(stream->expected_rows(), 50000);
        std::int64_t rows = 256;
        while (const std::size_t more = stream->next_batch().rows()) rows += static_cast<std::int64_t>(more);
        EXPECT_EQ(rows, exact);
    }
}

TEST_P(SqliteRowStreamTest, ExpectsExactlyTheRowsOfTheFirstBatchWhenThereAreNoMore) {
    const auto stream = database_->query_rows("SELECT TOP 3 id FROM T");
    stream->next_batch();
    EXPECT_EQ(stream->expected_rows(), 3);
    write("DELETE FROM T WHERE id > 2");
    EXPECT_EQ(stream->expected_rows(), 3) << "they are there, whatever becomes of the table";
    stream->release();
    EXPECT_EQ(stream->expected_rows(), 2);
}

TEST_P(SqliteRowStreamTest, ExpectsWhateverTheConditionsWhileRowsAreRead) {
    const auto stream = database_->query_rows("SELECT id FROM T WHERE kind = 1 ORDER BY id");
    stream->next_batch();
    EXPECT_EQ(stream->expected_rows(), 500);
    EXPECT_EQ(stream->next_batch().at(0, 0).integer(), 513) << "counting does not disturb the reading";
}

TEST_P(SqliteRowStreamTest, TellsTheStatementThatFailedInTheMiddle) {
    write(
        "CREATE TABLE D (id INTEGER PRIMARY KEY, text TEXT);"
        "INSERT INTO D SELECT id, printf('%.*c', 3000, 'x') FROM T");
    const auto size = std::filesystem::file_size(text_path(path()));
    database_ = open(SqliteAccess::read_only, GetParam());
    const auto stream = database_->query_rows("SELECT id, text FROM D");
    EXPECT_FALSE(stream->next_batch().empty());
    std::filesystem::resize_file(text_path(path()), size / 2);
    const AutomationError error = error_of([&] {
        while (!stream->next_batch().empty()) {
        }
    });
    EXPECT_LT(error.number(), 0);
    EXPECT_THAT(error.description(), testing::EndsWith(". Anweisung: SELECT id, text FROM D"));
    EXPECT_EQ(error_of([&] { database_->require_connection(); }).description(), error.description());
}

INSTANTIATE_TEST_SUITE_P(Each, SqliteRowStreamTest,
                         testing::Values(SqliteReading::on_demand, SqliteReading::ahead),
                         [](const auto& reading) {
                             return reading.param == SqliteReading::ahead ? "Ahead" : "OnDemand";
                         });

}  // namespace
}  // namespace prot
