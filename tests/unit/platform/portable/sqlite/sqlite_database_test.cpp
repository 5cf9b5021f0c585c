#include "platform/portable/sqlite/sqlite_database.h"

#include <gmock/gmock.h>

#include "platform/portable/sqlite/sqlite_cells.h"
#include "platform/portable/sqlite/sqlite_statements.h"
#include "platform/portable/tsql/tsql_refusal.h"
#include "tests/unit/platform/portable/sqlite/fake_sleep.h"
#include "tests/unit/platform/portable/sqlite/sqlite_fixture.h"

namespace prot {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr std::uint32_t base = 0x80040000;

class SqliteDatabaseTest : public SqliteFixture {
protected:
    SqliteDatabaseTest() {
        write(
            "CREATE TABLE T (id INTEGER PRIMARY KEY, name TEXT COLLATE NOCASE, exact TEXT, amount REAL, "
            "made DATETIME, noted timestamp(3), data BLOB);"
            "INSERT INTO T VALUES (1, 'Müller', 'A', 1.5, '2026-01-02 03:04:05', '2026-01-02', x'C3A4'),"
            "(2, 'meier', 'a', NULL, 'bald', NULL, NULL)");
    }
};

TEST_F(SqliteDatabaseTest, DeliversEachStorageClassAndDatesAsDates) {
    const RowSet rows = open()->query_array("SELECT * FROM T ORDER BY id");
    ASSERT_EQ(rows.rows(), 2U);
    ASSERT_EQ(rows.columns(), 7U);
    EXPECT_EQ(rows.at(0, 0).integer(), 1);
    EXPECT_EQ(rows.at(1, 0).text(), "Müller");
    EXPECT_EQ(rows.at(3, 0).real(), 1.5);
    EXPECT_EQ(to_text(rows.at(4, 0).date()), "02.01.2026 03:04:05");
    EXPECT_EQ(to_text(rows.at(5, 0).date()), "02.01.2026");
    EXPECT_EQ(rows.at(6, 0).text(), "ä") << "a blob's bytes";
    EXPECT_TRUE(rows.at(3, 1).is_null());
    EXPECT_EQ(rows.at(4, 1).text(), "bald") << "no date, so it stays a text";
}

TEST_F(SqliteDatabaseTest, GivesTheFirstValueOrNull) {
    const auto database = open();
    EXPECT_EQ(database->query_value("SELECT name, id FROM T ORDER BY id"), Value("Müller"));
    EXPECT_EQ(database->query_value("SELECT COUNT(*) FROM T"), Value(std::int64_t{2}));
    EXPECT_EQ(database->query_value("SELECT made FROM T WHERE id = 1"),
              Value(to_date("02.01.2026 03:04:05")));
    EXPECT_TRUE(is_null(database->query_value("SELECT name FROM T WHERE id = 3")));
    EXPECT_TRUE(is_null(database->query_value("SELECT amount FROM T WHERE id = 2")));
}

TEST_F(SqliteDatabaseTest, GivesNoRowsWhenNoneIsFound) {
    EXPECT_TRUE(open()->query_array("SELECT * FROM T WHERE id = 3").empty());
}

TEST_F(SqliteDatabaseTest, ComparesAsTheColumnsDeclare) {
    const auto database = open();
    EXPECT_THAT(lines(database->query_array("SELECT id FROM T WHERE name = 'MEIER'")), ElementsAre("2"));
    EXPECT_THAT(lines(database->query_array("SELECT id FROM T WHERE exact = 'a'")), ElementsAre("2"));
    EXPECT_THAT(lines(database->query_array("SELECT id FROM T WHERE id = '2'")), ElementsAre("2"));
    EXPECT_THAT(lines(database->query_array("SELECT id FROM T WHERE name LIKE 'M_LLER'")), ElementsAre("1"))
        << "the underscore is one character, not one byte";
}

TEST_F(SqliteDatabaseTest, UsesOneShapeForManyValues) {
    const auto database = open();
    for (std::int64_t id = 1; id <= 2; ++id)
        EXPECT_EQ(database->query_value("SELECT id FROM T WHERE id = " + std::to_string(id)), Value(id));
    EXPECT_EQ(database->query_value("SELECT id FROM T WHERE name LIKE 'mei%'"), Value(std::int64_t{2}));
    EXPECT_EQ(database->query_value("SELECT id FROM T WHERE name LIKE 'M%r'"), Value(std::int64_t{1}));
}

TEST_F(SqliteDatabaseTest, WritesDateLiterals) {
    const auto database = open();
    EXPECT_EQ(database->date_literal(to_date("02.01.2026 03:04:05")), "'2026-01-02 03:04:05'");
    EXPECT_EQ(database->date_literal(to_date("02.01.2026")), "'2026-01-02 00:00:00'");
    EXPECT_EQ(database->date_literal(Date{1.0 + 0.4 / 86400}), "'1899-12-31 00:00:00'") << "nearest second";
    EXPECT_EQ(database->date_literal(Date{1.0 + 0.6 / 86400}), "'1899-12-31 00:00:01'") << "nearest second";
    EXPECT_EQ(database->date_literal(Date{2.0 - 0.4 / 86400}), "'1900-01-01 00:00:00'")
        << "into the next day";
    EXPECT_EQ(database->query_value("SELECT id FROM T WHERE made >= " +
                                    database->date_literal(to_date("02.01.2026 03:04:05")) + " AND id = 1"),
              Value(std::int64_t{1}));
    EXPECT_EQ(database->like_wildcard(), "%");
}

TEST_F(SqliteDatabaseTest, ReportsSqlitesErrorWithTheStatement) {
    const AutomationError error = error_of([&] { open()->query_value("SELECT a FROM tX"); });
    EXPECT_EQ(static_cast<std::uint32_t>(error.number()), base + SQLITE_ERROR);
    EXPECT_EQ(error.source(), "SQLite");
    EXPECT_EQ(error.description(), "Die Tabelle „tX“ gibt es nicht. Anweisung: SELECT a FROM tX");
}

TEST_F(SqliteDatabaseTest, TakesNoUnknownNameForAText) {
    const auto database = open();
    for (const char* sql : {"SELECT nothing FROM T", "SELECT \"nothing\" FROM T", "SELECT [nothing] FROM T",
                            "SELECT id FROM T WHERE name = \"nothing\""})
        EXPECT_THAT(error_of([&] { database->query_array(sql); }).description(),
                    HasSubstr("Die Spalte „nothing“ gibt es nicht"))
            << sql;
}

TEST_F(SqliteDatabaseTest, RunsNothingOfABatchThatItDoesNotUnderstand) {
    const auto database = open(SqliteAccess::read_write);
    EXPECT_EQ(error_of([&] { database->execute("DELETE T WHERE id = 1; UPDATE T SET id = 2"); }).number(),
              statement_refused);
    EXPECT_EQ(database->query_value("SELECT COUNT(*) FROM T"), Value(std::int64_t{2}));
}

TEST_F(SqliteDatabaseTest, EndsAUserNameWithAnApostropheAsErrorAndDeletesNothing) {
    const auto database = open(SqliteAccess::read_write);
    for (const char* sql :
         {"DELETE T WHERE name = 'O'Brien' AND id = 1", "DELETE T WHERE name = 'O'B'rien' AND id = 1",
          "DELETE T WHERE name = 'x' ' AND id = '1'"})
        EXPECT_EQ(error_of([&] { database->execute(sql); }).number(), statement_refused) << sql;
    EXPECT_EQ(database->query_value("SELECT COUNT(*) FROM T"), Value(std::int64_t{2}));
}

TEST_F(SqliteDatabaseTest, TakesExactlyOneSelectAsAQuery) {
    const auto database = open(SqliteAccess::read_write);
    for (const char* sql :
         {"SELECT 1; SELECT 2", "DELETE T", "SELECT id INTO #t FROM T", "DROP TABLE IF EXISTS #t"}) {
        EXPECT_EQ(error_of([&] { database->query_value(sql); }).number(), statement_refused) << sql;
        EXPECT_EQ(error_of([&] { database->query_array(sql); }).number(), statement_refused) << sql;
    }
    EXPECT_EQ(database->query_value("SELECT COUNT(*) FROM T"), Value(std::int64_t{2}));
}

TEST_F(SqliteDatabaseTest, DeletesOnlyWithWriteAccess) {
    EXPECT_EQ(
        static_cast<std::uint32_t>(error_of([&] { open()->execute("DELETE T WHERE id = 1"); }).number()),
        base + SQLITE_READONLY);
    open(SqliteAccess::read_write)->execute("DELETE T WHERE id = 1");
    EXPECT_THAT(lines(open()->query_array("SELECT id FROM T")), ElementsAre("2"));
}

TEST_F(SqliteDatabaseTest, TreatsALockAsAnErrorOfTheStatementOnly) {
    const FakeSleep no_waiting;
    const auto database = open(SqliteAccess::read_write);
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(path().c_str(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
    const AutomationError error = error_of([&] { database->execute("DELETE T"); });
    EXPECT_EQ(static_cast<std::uint32_t>(error.number()), base + SQLITE_BUSY);
    sqlite3_close(other);
    EXPECT_NO_THROW(database->require_connection());
    EXPECT_NO_THROW(database->execute("DELETE T"));
}

TEST_F(SqliteDatabaseTest, AnswersEverythingWithTheErrorOfAFailedConnection) {
    std::string filler;
    for (int i = 0; i < 200; ++i) filler += "INSERT INTO U VALUES (hex(randomblob(500)));";
    write("CREATE TABLE U (a);" + filler);
    const auto database = open();
    const auto size = static_cast<std::size_t>(std::filesystem::file_size(path()));
    std::fstream file(path(), std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(4096 * 3);  // the schema and the first pages stay whole
    file << std::string(size - 4096 * 3, '\xFF');
    file.close();

    EXPECT_NO_THROW(database->require_connection());
    const AutomationError first = error_of([&] { database->query_array("SELECT * FROM U"); });
    EXPECT_EQ(static_cast<std::uint32_t>(first.number()) & 0xFFU, std::uint32_t{SQLITE_CORRUPT});
    for (const AutomationError& later :
         {error_of([&] { database->query_value("SELECT 1"); }),
          error_of([&] { database->query_array("nonsense"); }),
          error_of([&] { database->execute("DROP TABLE IF EXISTS #t"); }),
          error_of([&] { database->begin_lookups(); }), error_of([&] { database->require_connection(); })}) {
        EXPECT_EQ(later.number(), first.number());
        EXPECT_EQ(later.description(), first.description());
    }
}

TEST_F(SqliteDatabaseTest, IsItsOwnServerByTheNameOfItsFile) {
    EXPECT_EQ(open()->server_name(), path_text(text_path(path()).filename()));
}

TEST_F(SqliteDatabaseTest, LookupsSeeOneStateAndHoldWritersOff) {
    write("CREATE TABLE Stand (a); INSERT INTO Stand VALUES (1)");
    const auto database = open();
    sqlite3* writer = nullptr;
    ASSERT_EQ(sqlite3_open(path().c_str(), &writer), SQLITE_OK);
    const auto change = [&] {
        return sqlite3_exec(writer, "UPDATE Stand SET a = a + 1", nullptr, nullptr, nullptr);
    };
    database->begin_lookups();
    EXPECT_EQ(database->query_value("SELECT a FROM Stand"), Value(std::int64_t{1}));
    EXPECT_EQ(change(), SQLITE_BUSY);
    EXPECT_EQ(database->query_value("SELECT a FROM Stand"), Value(std::int64_t{1}));
    database->end_lookups();
    EXPECT_EQ(change(), SQLITE_OK);
    EXPECT_EQ(database->query_value("SELECT a FROM Stand"), Value(std::int64_t{2}));
    sqlite3_close(writer);
}

TEST_F(SqliteDatabaseTest, LookupsDoNotBeginInALockedDatabase) {
    write("CREATE TABLE Stand (a)");
    const FakeSleep no_waiting;
    const auto database = open();
    sqlite3* writer = nullptr;
    ASSERT_EQ(sqlite3_open(path().c_str(), &writer), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(writer, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_EQ(error_of([&] { database->begin_lookups(); }).description(),
              "Die Datenbank ist gesperrt, ein anderes Programm schreibt gerade hinein");
    sqlite3_close(writer);
    EXPECT_NO_THROW(database->require_connection());
    EXPECT_NO_THROW(database->begin_lookups());
    database->end_lookups();
}

TEST_F(SqliteDatabaseTest, LooksUpBesideOthersThatDo) {
    const auto first = open(SqliteAccess::read_write);
    const auto second = open(SqliteAccess::read_write);
    first->begin_lookups();
    EXPECT_NO_THROW(second->begin_lookups());
    EXPECT_EQ(first->query_value("SELECT name FROM T WHERE id = 1"), Value("Müller"));
    EXPECT_EQ(second->query_value("SELECT name FROM T WHERE id = 1"), Value("Müller"));
    first->end_lookups();
    second->end_lookups();
}

TEST_F(SqliteDatabaseTest, DeletesForGoodBehindLookupsThatDidNotBegin) {
    const FakeSleep no_waiting;
    const auto database = open(SqliteAccess::read_write);
    sqlite3* writer = nullptr;
    ASSERT_EQ(sqlite3_open(path().c_str(), &writer), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(writer, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_LT(error_of([&] { database->begin_lookups(); }).number(), 0);
    sqlite3_close(writer);
    database->execute("DELETE T WHERE id = 1");
    EXPECT_THAT(lines(open()->query_array("SELECT id FROM T")), ElementsAre("2"))
        << "no transaction was left open";
}

TEST_F(SqliteDatabaseTest, DeliversNumbersAndOddTextsOfADateColumnAsTheyAre) {
    write("INSERT INTO T (id, made, noted) VALUES (3, 46024, 1.5), (4, '2026-02-30', '2026-01-02 03:04')");
    EXPECT_THAT(lines(open()->query_array("SELECT made, noted FROM T WHERE id > 2 ORDER BY id")),
                ElementsAre("46024|1,5", "2026-02-30|2026-01-02 03:04"));
    const RowSet rows = open()->query_array("SELECT made FROM T WHERE id = 3");
    EXPECT_EQ(rows.at(0, 0).type(), Cell::Type::integer);
}

TEST_F(SqliteDatabaseTest, DeliversAndFindsNumbersOfSixtyFourBits) {
    write("INSERT INTO T (id) VALUES (9223372036854775807), (-5000000000)");
    const auto database = open();
    for (const std::int64_t id : {std::int64_t{9223372036854775807}, std::int64_t{-5000000000}})
        EXPECT_EQ(database->query_value("SELECT id FROM T WHERE id = " + std::to_string(id)), Value(id));
}

TEST_F(SqliteDatabaseTest, DeliversEveryByteOfATextOrBlobAndTheEmptyOnesAsEmpty) {
    write("INSERT INTO T (id, exact, data) VALUES (3, 'a' || char(0) || 'b', x'00FF00'), (4, '', x'')");
    const RowSet rows = open()->query_array("SELECT exact, data FROM T WHERE id > 2 ORDER BY id");
    ASSERT_EQ(rows.rows(), 2U);
    EXPECT_EQ(rows.at(0, 0).text(), std::string_view("a\0b", 3));
    EXPECT_EQ(rows.at(1, 0).text(), std::string_view("\0\xFF\0", 3));
    for (const std::size_t column : {0U, 1U}) {
        ASSERT_EQ(rows.at(column, 1).type(), Cell::Type::text) << "empty, not Null";
        EXPECT_EQ(rows.at(column, 1).text(), "");
    }
}

TEST_F(SqliteDatabaseTest, RunsAStatementToItsEndAlsoWhenNobodyReadsItsRows) {
    write(
        "CREATE VIEW Late AS SELECT CASE id WHEN 2 THEN abs(-9223372036854775807 - 1) ELSE id END AS n "
        "FROM T");
    const auto database = open();
    EXPECT_EQ(database->query_value("SELECT n FROM Late"), Value(std::int64_t{1})) << "a good first row";
    EXPECT_EQ(error_of([&] { database->execute("SELECT n FROM Late"); }).description(),
              "SQLite meldet: integer overflow. Anweisung: SELECT n FROM Late");
}

TEST_F(SqliteDatabaseTest, NamesThePlaceOfWhatIsNoQuery) {
    const auto database = open();
    const struct {
        const char* sql;
        const char* place;
    } cases[] = {
        {"\n  DELETE T WHERE id = 1", "Zeile 2, Spalte 3, bei „DELETE T WHERE id = 1“"},
        {" SELECT id INTO #t FROM T ;", "Zeile 1, Spalte 2, bei „SELECT id INTO #t FROM T“"},
        {"SELECT 1; DELETE T", "Zeile 1, Spalte 1, bei „SELECT 1“"},
    };
    for (const auto& [sql, place] : cases)
        EXPECT_EQ(error_of([&, sql = sql] { database->query_array(sql); }).description(),
                  std::string("Die Anweisung wird nicht verstanden (") + place +
                      "): eine Abfrage ist genau ein SELECT ohne INTO. Anweisung: " + sql);
}

TEST_F(SqliteDatabaseTest, TakesNoBlobForEmptyThatMemoryDidNotSufficeFor) {
    SqliteConnection connection(path(), SqliteAccess::read_only);
    const PreparedStatement statement = prepare(connection, "SELECT zeroblob(500000 * id) FROM T", "");
    SqliteRun run(connection, statement.get(), {}, "");
    ASSERT_TRUE(run.next_row());
    const SqliteCells cells(statement.get());
    sqlite3_hard_heap_limit64(sqlite3_memory_used() + 100000);
    EXPECT_THROW(cells.read(0), std::bad_alloc) << "SQLite fills in the bytes when they are read";
    sqlite3_hard_heap_limit64(0);
}

TEST_F(SqliteDatabaseTest, TakesNoTextForEmptyThatMemoryDidNotSufficeFor) {
    std::filesystem::remove(text_path(path()));
    write("PRAGMA encoding='UTF-16'; CREATE TABLE L (t TEXT); INSERT INTO L VALUES (hex(zeroblob(500000)))");
    SqliteConnection connection(path(), SqliteAccess::read_only);
    const PreparedStatement statement = prepare(connection, "SELECT t FROM L", "");
    SqliteRun run(connection, statement.get(), {}, "");
    ASSERT_TRUE(run.next_row());
    const SqliteCells cells(statement.get());
    sqlite3_hard_heap_limit64(sqlite3_memory_used() + 100000);
    EXPECT_THROW(cells.read(0), std::bad_alloc) << "SQLite converts the text when it is read";
    sqlite3_hard_heap_limit64(0);
}

}  // namespace
}  // namespace prot
