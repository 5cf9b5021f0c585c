#include <chrono>

#include "tests/unit/platform/portable/odbc/double_fixture.h"

namespace prot {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

using OdbcRowsOnDouble = OdbcOnDouble;

std::vector<std::string> all_lines(RowStream& stream) {
    std::vector<std::string> all;
    for (;;) {
        const RowSet& batch = stream.next_batch();
        if (batch.empty()) return all;
        for (std::string& line : lines(batch)) all.push_back(std::move(line));
    }
}

TEST_F(OdbcRowsOnDouble, ComeInBlocksWhenNoColumnIsLong) {
    const auto database = connect();
    const auto stream = database->query_rows("SELECT id, name FROM T ORDER BY id");
    const auto all = all_lines(*stream);
    ASSERT_EQ(all.size(), std::size_t{rows_of_table});
    for (int id = 1; id <= rows_of_table; ++id)
        ASSERT_EQ(all[static_cast<std::size_t>(id) - 1], std::to_string(id) + "|Name " + std::to_string(id));
    EXPECT_THAT(journal(), Contains("1: [rows 256]"));
}

TEST_F(OdbcRowsOnDouble, ComeInBlocksOfAMegabyteAtMost) {
    script("when\tFROM W\ncolumns\ta nvarchar(4000)\tb nvarchar(4000)\nrow\tx\ty\n");
    const auto database = connect();
    EXPECT_THAT(lines(database->query_array("SELECT a, b FROM W")), ElementsAre("x|y"));
    EXPECT_THAT(journal(), Contains("1: [rows 65]"));
}

TEST_F(OdbcRowsOnDouble, ComeOneByOneWithALongColumn) {
    run_directly("CREATE TABLE M (id INTEGER, memo TEXT); INSERT INTO M VALUES (1, 'a'), (2, NULL), (3, '')");
    const auto database = connect();
    const RowSet rows = database->query_array("SELECT id, memo FROM M ORDER BY id");
    EXPECT_THAT(lines(rows), ElementsAre("1|a", "2|", "3|"));
    EXPECT_TRUE(rows.at(1, 1).is_null());
    EXPECT_FALSE(rows.at(1, 2).is_null());
    EXPECT_THAT(journal(), Contains("1: [rows 1]"));
    EXPECT_THAT(journal(), Not(Contains("1: [rows 256]")));
}

TEST_F(OdbcRowsOnDouble, HaveTheirLongTextInTheMiddleOfFourteenColumns) {
    run_directly(
        "CREATE TABLE L (a INTEGER, b NVARCHAR(30), c NVARCHAR(30), d NVARCHAR(30), e DATETIME, f INTEGER,"
        " dmData TEXT, h NVARCHAR(30), i NVARCHAR(30), j INTEGER, k INTEGER, l REAL, m DATETIME, n INTEGER);"
        "INSERT INTO L VALUES (1, 'b', 'c', 'd', '2026-01-02 03:04:05', 6, '<doc/>', 'h', 'i', 10, 11, 1.5,"
        " '2026-01-03 00:00:00', 14);"
        "INSERT INTO L VALUES (2, NULL, '', NULL, NULL, NULL, NULL, NULL, '', NULL, 11, NULL, NULL, 14)");
    const auto database = connect();
    const std::string query = "SELECT a, b, c, d, e, f, dmData, h, i, j, k, l, m, n FROM L ORDER BY a";
    const RowSet rows = database->query_array(query);
    EXPECT_THAT(lines(rows), ElementsAre("1|b|c|d|02.01.2026 03:04:05|6|<doc/>|h|i|10|11|1,5|03.01.2026|14",
                                         "2||||||||||11|||14"));
    EXPECT_EQ(rows.at(12, 0).type(), Cell::Type::date);
    EXPECT_TRUE(rows.at(6, 1).is_null());
    EXPECT_FALSE(rows.at(8, 1).is_null());
    const auto stream = database->query_rows(query);
    EXPECT_EQ(all_lines(*stream), lines(rows));
}

TEST_F(OdbcRowsOnDouble, HaveLongTextsWholeWhereverAPieceEnds) {
    const std::string clef = "\xF0\x9D\x84\x9E";
    std::string even;
    for (int i = 0; i < 60000; ++i) even += clef;
    // A piece that ends in the middle of the pairs of one of them ends between those of the other.
    const std::string odd = "a" + even;
    run_directly("CREATE TABLE M (id INTEGER, memo TEXT); INSERT INTO M VALUES (1, '" + even + "'), (2, '" +
                 odd + "'), (3, 'ß')");
    const auto database = connect();
    const RowSet rows = database->query_array("SELECT memo FROM M ORDER BY id");
    ASSERT_EQ(rows.rows(), 3U);
    EXPECT_TRUE(rows.at(0, 0).text() == even);
    EXPECT_TRUE(rows.at(0, 1).text() == odd);
    EXPECT_EQ(rows.at(0, 2).text(), "ß");
}

TEST_F(OdbcRowsOnDouble, HaveLongTextsWholeOfEveryLengthAroundThatOfAPiece) {
    constexpr std::size_t units = 16383;
    const auto database = connect();
    for (const std::size_t size : {units - 1, units, units + 1, 2 * units - 1, 2 * units, 2 * units + 1}) {
        const std::string text(size, 'x');
        script("when\tFROM W\ncolumns\tmemo nvarchar(max)\tbehind int\nrow\t" + text + "\t7\n");
        const RowSet rows = database->query_array("SELECT memo, behind FROM W");
        EXPECT_TRUE(rows.at(0, 0).text() == text) << size;
        EXPECT_EQ(rows.at(1, 0).value(), Value(std::int64_t{7}));
    }
}

TEST_F(OdbcRowsOnDouble, AreCountedByTheServerWithoutTheirOrder) {
    const auto database = connect();
    const auto stream = database->query_rows("SELECT id, name FROM T WHERE id > 100 ORDER BY id");
    EXPECT_EQ(stream->expected_rows(), rows_of_table - 100);
    EXPECT_THAT(
        sent(),
        ElementsAre("1: SELECT COUNT_BIG(*) FROM (SELECT id, name FROM T WHERE id > 100) AS counted"));
    EXPECT_EQ(all_lines(*stream).size(), std::size_t{rows_of_table - 100});
}

TEST_F(OdbcRowsOnDouble, AreOfUnknownNumberWhereCountingTakesLong) {
    script("when\tCOUNT_BIG\nhang\t60000\n");
    const auto database = connect();
    const auto stream = database->query_rows("SELECT id FROM T");
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(stream->expected_rows(), 0);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10));
    EXPECT_EQ(all_lines(*stream).size(), std::size_t{rows_of_table});
}

TEST_F(OdbcRowsOnDouble, AreNotReadOnWhereCountingLostTheConnection) {
    script("when\tCOUNT_BIG\nlost\n");
    const auto database = connect();
    const auto stream = database->query_rows("SELECT id FROM T");
    EXPECT_EQ(stream->expected_rows(), 0);
    EXPECT_THAT(error_of([&] { stream->next_batch(); }).description(), testing::HasSubstr("08S01"));
}

TEST_F(OdbcRowsOnDouble, FailInTheMiddleWithStateAndStatement) {
    script("when\tFROM T\nown\t300\nfail\t40001\t1205\tchosen as the deadlock victim\n");
    const auto database = connect();
    const std::string query = "SELECT id FROM T ORDER BY id";
    const auto stream = database->query_rows(query);
    EXPECT_EQ(stream->next_batch().rows(), 256U);
    const AutomationError error = error_of([&] {
        while (!stream->next_batch().empty()) {
        }
    });
    EXPECT_THAT(error.description(), testing::HasSubstr("[40001, 1205: chosen as the deadlock victim]"));
    EXPECT_THAT(error.description(), testing::EndsWith(". Anweisung: " + query));
    EXPECT_EQ(error_of([&] { database->query_array(query); }).description(), error.description());
    EXPECT_NO_THROW(database->require_connection());
}

TEST_F(OdbcRowsOnDouble, FailWhereTheLastOneHasArrived) {
    const auto database = connect();
    const std::string rows = "when\tFROM W\ncolumns\tid int\nrow\t1\nrow\t2\n";
    for (const char* const end : {"", "next\n"}) {
        script(rows + end + "fail\t22012\t8134\tDivide by zero error encountered.\n");
        EXPECT_THAT(error_of([&] { database->query_array("SELECT id FROM W"); }).description(),
                    testing::HasSubstr("22012, 8134"));
        EXPECT_THAT(error_of([&] { database->query_stored("SELECT id FROM W"); }).description(),
                    testing::HasSubstr("22012, 8134"));
        const auto stream = database->query_rows("SELECT id FROM W");
        EXPECT_THAT(error_of([&] { all_lines(*stream); }).description(), testing::HasSubstr("22012, 8134"));
    }
    script(rows);
    EXPECT_THAT(lines(database->query_array("SELECT id FROM W")), ElementsAre("1", "2"));
}

}  // namespace
}  // namespace prot
