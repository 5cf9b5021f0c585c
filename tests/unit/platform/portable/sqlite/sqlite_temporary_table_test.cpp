#include "platform/portable/sqlite/sqlite_temporary_table.h"

#include <gmock/gmock.h>

#include "tests/unit/platform/portable/sqlite/sqlite_fixture.h"

namespace prot {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class SqliteTemporaryTable : public SqliteFixture {
protected:
    SqliteTemporaryTable() {
        write(
            "CREATE TABLE T (id INTEGER, name TEXT COLLATE NOCASE, made DATETIME, price DECIMAL(10,2));"
            "CREATE TABLE \"#t\" (id); INSERT INTO \"#t\" VALUES (99);"
            "CREATE VIEW V AS SELECT name AS label, made FROM T;"
            "INSERT INTO T VALUES (1, 'Eins', '2026-01-01 00:00:00', 1.5), (2, 'zwei', '2026-01-02 "
            "12:00:00', 2)");
        database_ = open();
    }

    std::vector<std::string> rows(std::string_view sql) const { return lines(database_->query_array(sql)); }

    std::unique_ptr<Database> database_;
};

TEST_F(SqliteTemporaryTable, IsFilledOnAReadOnlyConnection) {
    database_->execute("SELECT id, name INTO #t FROM T WHERE id BETWEEN 2 AND 3");
    EXPECT_THAT(rows("SELECT * FROM #t"), ElementsAre("2|zwei"));
}

TEST_F(SqliteTemporaryTable, KeepsDatesAndCollations) {
    database_->execute("SELECT name AS n, made, price INTO #t FROM T");
    EXPECT_THAT(rows("SELECT made, price FROM #t WHERE n = 'ZWEI'"), ElementsAre("02.01.2026 12:00:00|2"));
    database_->execute("SELECT label, made INTO #v FROM V");
    EXPECT_THAT(rows("SELECT made FROM #v WHERE label = 'ZWEI'"), ElementsAre("02.01.2026 12:00:00"))
        << "from a view";
    database_->execute("SELECT n INTO #copy FROM #t");
    EXPECT_THAT(rows("SELECT n FROM #copy WHERE n = 'ZWEI'"), ElementsAre("zwei"))
        << "from a temporary table";
}

TEST_F(SqliteTemporaryTable, NeverTouchesARealTableOfItsName) {
    EXPECT_THAT(error_of([&] { database_->query_array("SELECT * FROM #t"); }).description(),
                HasSubstr("Die Tabelle „#t“ gibt es nicht"));
    database_->execute("DROP TABLE IF EXISTS #t SELECT id INTO #t FROM T DROP TABLE #t");
    EXPECT_THAT(error_of([&] { database_->execute("DROP TABLE #t"); }).description(),
                HasSubstr("Die Tabelle „#t“ gibt es nicht"));
    sqlite3* handle = nullptr;
    ASSERT_EQ(sqlite3_open(path().c_str(), &handle), SQLITE_OK);
    EXPECT_EQ(sqlite3_table_column_metadata(handle, "main", "#t", "id", nullptr, nullptr, nullptr, nullptr,
                                            nullptr),
              SQLITE_OK);
    sqlite3_close(handle);
}

TEST_F(SqliteTemporaryTable, IsAnErrorWhenItExists) {
    database_->execute("SELECT id INTO #t FROM T WHERE id = 1");
    EXPECT_THAT(error_of([&] { database_->execute("SELECT id INTO #T FROM T"); }).description(),
                HasSubstr("table \"#T\" already exists"));
    EXPECT_THAT(rows("SELECT id FROM #t"), ElementsAre("1")) << "the first one stays";
}

TEST_F(SqliteTemporaryTable, CanChangeItsColumnsFromRunToRun) {
    database_->execute("DROP TABLE IF EXISTS #t SELECT id INTO #t FROM T");
    EXPECT_THAT(rows("SELECT * FROM #t ORDER BY 1"), ElementsAre("1", "2"));
    database_->execute("DROP TABLE IF EXISTS #t SELECT made, id INTO #t FROM T");
    EXPECT_THAT(rows("SELECT * FROM #t ORDER BY 1"), ElementsAre("01.01.2026|1", "02.01.2026 12:00:00|2"));
}

TEST_F(SqliteTemporaryTable, TakesItsColumnsFromUnionsAndLimitedSelects) {
    database_->execute(
        "SELECT TOP 1 id INTO #t FROM T ORDER BY id DESC "
        "SELECT id INTO #u FROM T UNION SELECT 7");
    EXPECT_THAT(rows("SELECT id FROM #t"), ElementsAre("2"));
    EXPECT_THAT(rows("SELECT id FROM #u ORDER BY id"), ElementsAre("1", "2", "7"));
}

TEST_F(SqliteTemporaryTable, ComparesAsTheTypesOfItsColumnsSay) {
    write(
        "CREATE TABLE Typed (code VARCHAR(10), size NUMERIC, note [odd \"type\"; --], plain, price "
        "DECIMAL(10,2), weight DOUBLE PRECISION, kind LONG_TEXT, width GRÖSSENTEXT);"
        "INSERT INTO Typed VALUES ('7', 8, '9', '10', 1.5, 2.5, '3', '4')");
    database_->execute("SELECT code, size, note, plain, price, weight, kind, width INTO #typed FROM Typed");
    const struct {
        const char* condition;
        bool found;
        const char* why;
    } cases[] = {
        {"code = 7", true, "a text column compares as text"},
        {"code = '7'", true, "likewise"},
        {"size = '8'", true, "a number column compares as number"},
        {"note = 9", true, "a type that is no type of words is left out"},
        {"plain = '10'", true, "without a type"},
        {"price = '1.5'", true, "a type with two sizes"},
        {"weight = '2.5'", true, "a type of two words"},
        {"kind = 3", true, "a type with an underscore"},
        {"width = 4", true, "a type with an umlaut"},
        {"plain = 10", false, "a text is no number then"},
    };
    for (const auto& [condition, found, why] : cases)
        EXPECT_EQ(rows(std::string("SELECT code FROM #typed WHERE ") + condition).size(), found ? 1U : 0U)
            << why;
}

TEST_F(SqliteTemporaryTable, TakesAnyName) {
    database_->execute("SELECT id AS [a\"b], name AS [x]]y] INTO [#t\"1 ä] FROM T WHERE id = 2");
    EXPECT_THAT(rows("SELECT [a\"b], [x]]y] FROM [#t\"1 ä]"), ElementsAre("2|zwei"));
    EXPECT_NO_THROW(database_->execute("DROP TABLE [#t\"1 ä]"));
}

TEST_F(SqliteTemporaryTable, IsGoneWhenItCouldNotBeFilled) {
    write("CREATE TABLE Big (n INTEGER); INSERT INTO Big VALUES (9223372036854775807), (1)");
    const char* const sql = "SELECT SUM(n) AS s INTO #t FROM Big";
    EXPECT_EQ(error_of([&] { database_->execute(sql); }).description(),
              "SQLite meldet: integer overflow. Anweisung: " + std::string(sql));
    EXPECT_NO_THROW(database_->execute("SELECT id INTO #t FROM T WHERE id = 1"));
    EXPECT_THAT(rows("SELECT id FROM #t"), ElementsAre("1"));
}

TEST_F(SqliteTemporaryTable, TellsTheStatementAsItWasWrittenWhenItCannotBeMade) {
    const struct {
        const char* sql;
        const char* problem;
    } cases[] = {
        {"SELECT fehlt INTO #t FROM T", "Die Spalte „fehlt“ gibt es nicht"},
        {"SELECT id INTO #t FROM Fehlt", "Die Tabelle „Fehlt“ gibt es nicht"},
    };
    for (const auto& [sql, problem] : cases)
        EXPECT_EQ(error_of([&, sql = sql] { database_->execute(sql); }).description(),
                  std::string(problem) + ". Anweisung: " + sql);
}

TEST_F(SqliteTemporaryTable, IsKeptWhenItWasMadeWithinLookups) {
    database_->begin_lookups();
    database_->execute("SELECT id INTO #t FROM T WHERE id = 1");
    database_->end_lookups();
    EXPECT_THAT(rows("SELECT id FROM #t"), ElementsAre("1"));
}

TEST_F(SqliteTemporaryTable, BelongsToItsConnection) {
    database_->execute("SELECT id INTO #t FROM T");
    EXPECT_THAT(error_of([&] { open()->query_value("SELECT COUNT(*) FROM #t"); }).description(),
                HasSubstr("Die Tabelle „#t“ gibt es nicht"));
}

}  // namespace
}  // namespace prot
