#include "platform/portable/sqlite/sqlite_first_rows.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>

#include "tests/unit/platform/portable/sqlite/sqlite_fixture.h"

namespace prot {
namespace {

/// A query for key and bound, as TsqlTranslations tells it.
TsqlStatement query(std::string bound, TsqlParameter key = std::int64_t{1}) {
    TsqlStatement statement;
    statement.text = "q";
    statement.parameters = {std::move(key), std::move(bound)};
    statement.bound = 1;
    return statement;
}

class SqliteFirstRowsTest : public testing::Test {
protected:
    void ask(const TsqlStatement& query, const Value& answer, std::string_view place) {
        ASSERT_EQ(rows_.find(query), nullptr);
        rows_.remember(query, answer, place);
    }
    void ask_in_vain(const TsqlStatement& query) {
        ASSERT_EQ(rows_.find(query), nullptr);
        rows_.remember_none(query);
    }

    SqliteFirstRows rows_;
};

TEST_F(SqliteFirstRowsTest, AnAnswerHoldsFromItsBoundUpToItsPlace) {
    ask(query("2026-01-05 10:00:00"), Value("a"), "2026-01-07 12:30:00");
    for (const char* bound : {"2026-01-05 10:00:00", "2026-01-06", "2026-01-07 12:30:00"}) {
        const Value* const known = rows_.find(query(bound));
        ASSERT_NE(known, nullptr) << bound;
        EXPECT_EQ(*known, Value("a"));
    }
    EXPECT_EQ(rows_.find(query("2026-01-05 09:59:59")), nullptr);
    EXPECT_EQ(rows_.find(query("2026-01-07 12:30:00.001")), nullptr);
}

TEST_F(SqliteFirstRowsTest, NoAnswerHoldsForAllLaterBounds) {
    ask_in_vain(query("2026-01-05"));
    const Value* const known = rows_.find(query("2999-01-01"));
    ASSERT_NE(known, nullptr);
    EXPECT_TRUE(is_null(*known));
    EXPECT_EQ(rows_.find(query("2026-01-04")), nullptr);
}

TEST_F(SqliteFirstRowsTest, AnAnswerIsThatOfOneQueryAlone) {
    const TsqlParameter keys[] = {std::int64_t{1}, std::int64_t{-1}, std::int64_t{256}, 1.0,
                                  1.0000001,       std::string("1"), std::string("")};
    for (const TsqlParameter& key : keys) ask(query("2026-01-05", key), Value("a"), "2026-01-07");
    TsqlStatement other = query("2026-01-05");
    other.text = "p";
    EXPECT_EQ(rows_.find(other), nullptr);
}

TEST_F(SqliteFirstRowsTest, TextsThatACollationMayOrderOtherwiseAreNotKept) {
    ask(query("2026-01-05"), Value("a"), "morgen");
    ask(query("2026-01-05"), Value("a"), "");
    ask(query("2026-01-05"), Value("a"), "2026-01-07 ");
    ask_in_vain(query("heute"));
    ask_in_vain(query("heute"));
    ask(query("2026-01-05"), Value("a"), "2026-01-07");
    EXPECT_EQ(rows_.find(query("2026-01-05 nachts")), nullptr);
}

TEST_F(SqliteFirstRowsTest, KeepsNoMoreThanItsBounds) {
    const std::string longest(SqliteFirstRows::longest, 'x');
    ask(query("2026-01-05"), Value(longest + "x"), "2026-01-07");
    ask(query("2026-01-05"), Value(longest), "2026-01-07");
    for (std::size_t i = 1; i < SqliteFirstRows::capacity; ++i)
        ask_in_vain(query("2026-01-05", static_cast<std::int64_t>(i + 1)));
    EXPECT_NE(rows_.find(query("2026-01-05")), nullptr) << "all that fit";
    ask_in_vain(query("2026-01-05", 0.5));
    EXPECT_EQ(rows_.find(query("2026-01-05")), nullptr) << "one more";
    EXPECT_NE(rows_.find(query("2026-01-05", 0.5)), nullptr);
}

using SqliteFirstRowsOfDatabaseTest = SqliteFixture;

std::string search(std::int64_t key, const std::string& bound) {
    return "SELECT TOP 1 dmData FROM T WHERE k = " + std::to_string(key) + " AND ddDatum >= '" + bound +
           "' AND dmData LIKE '%a%' ORDER BY ddDatum ASC";
}

TEST_F(SqliteFirstRowsOfDatabaseTest, AnswersAreThoseThatEachQueryAloneGets) {
    std::mt19937 random(1);  // NOLINT(cert-msc51-cpp): the same rows each time
    const auto below = [&random](int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); };
    const auto moment = [&] {
        const int day = 10 + below(20);
        return "2026-01-" + std::to_string(day) +
               (below(2) == 0   ? " 12:00:00"
                : below(2) == 0 ? " 12:00:00.500"
                                : "");
    };
    std::string rows = "CREATE TABLE T (id INTEGER PRIMARY KEY, k INTEGER, ddDatum DATETIME, dmData TEXT);";
    for (int i = 0; i < 100; ++i)
        rows += "INSERT INTO T (k, ddDatum, dmData) VALUES (" + std::to_string(below(3)) + ", '" + moment() +
                "', '" + (below(2) == 0 ? "a" : "b") + std::to_string(i) + "');";
    write(rows);
    const std::unique_ptr<Database> database = open();
    const std::unique_ptr<Database> alone = open();
    database->begin_lookups();
    for (int i = 0; i < 2000; ++i) {
        const std::string sql = search(below(4), moment());
        EXPECT_EQ(database->query_value(sql), alone->query_value(sql)) << sql;
    }
    database->end_lookups();
}

TEST_F(SqliteFirstRowsOfDatabaseTest, AnswersAreForgottenWhenTheLookUpsEnd) {
    write(
        "CREATE TABLE T (k INTEGER, ddDatum DATETIME, dmData TEXT);"
        "INSERT INTO T VALUES (1, '2026-01-05', 'a1')");
    const std::unique_ptr<Database> database = open();
    const auto both = [&] {
        database->begin_lookups();
        const Value first = database->query_value(search(1, "2026-01-01"));
        EXPECT_EQ(database->query_value(search(1, "2026-01-02")), first);
        database->end_lookups();
        return first;
    };
    EXPECT_EQ(both(), Value("a1"));
    write("UPDATE T SET dmData = 'a2'");
    EXPECT_EQ(database->query_value(search(1, "2026-01-03")), Value("a2"));
    EXPECT_EQ(both(), Value("a2"));
}

TEST_F(SqliteFirstRowsOfDatabaseTest, OtherMethodsSeeTheOneColumnThatWasAskedFor) {
    write(
        "CREATE TABLE T (k INTEGER, ddDatum DATETIME, dmData TEXT);"
        "INSERT INTO T VALUES (1, '2026-01-05', 'a1')");
    const std::unique_ptr<Database> database = open();
    database->begin_lookups();
    EXPECT_EQ(database->query_array(search(1, "2026-01-01")).columns(), 1U);
    EXPECT_EQ(database->query_value(search(1, "2026-01-01")), Value("a1"));
    EXPECT_EQ(database->query_array(search(1, "2026-01-01")).columns(), 1U);
    database->end_lookups();
}

}  // namespace
}  // namespace prot
