// Tables that only repeat the rows of a subquery, in a real database: the same rows are selected, by less
// work.

#include <random>

#include "platform/portable/sqlite/sqlite_statements.h"
#include "tests/unit/platform/portable/sqlite/framework_condition.h"
#include "tests/unit/platform/portable/sqlite/sqlite_fixture.h"

namespace prot {
namespace {

class CrossProduct : public SqliteFixture {
protected:
    /// The first column of what SQLite itself makes of `sql`.
    static std::vector<std::string> by_sqlite(SqliteConnection& connection, const std::string& sql) {
        const PreparedStatement statement = prepare(connection, sql, sql);
        SqliteRun run(connection, statement.get(), {}, sql);
        std::vector<std::string> rows;
        while (run.next_row())
            rows.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), 0)));
        return rows;
    }
};

// Conditions that mean the same in both dialects.
constexpr const char* random_conditions[] = {
    "x IN (SELECT A.x FROM A, B)",
    "x NOT IN (SELECT A.x FROM A, B)",
    "x NOT IN (SELECT A.y FROM B, A WHERE A.x > 1)",
    "x IN (SELECT A.x FROM A, B, C WHERE A.y = C.y)",
    "x IN (SELECT B.y FROM A, B, C WHERE B.x = S.y)",
    "x IN (SELECT 2 FROM A, B)",
    "x IN (SELECT A.x FROM A, B WHERE A.y IN (SELECT B.y FROM B, C))",
    "x IN (SELECT A.x FROM A, B WHERE A.y NOT IN (SELECT B.y FROM B WHERE B.x = A.x))",
    "x IN (SELECT A.x FROM A, B WHERE EXISTS (SELECT 1 FROM C WHERE C.y = A.y))",
    "x IN (SELECT A.x FROM A, B WHERE EXISTS (SELECT 1 FROM C WHERE C.y = B.y))",
    "x IN (SELECT A.x FROM A, B) OR y IN (SELECT C.y FROM A, C)",
    "x IN (SELECT (SELECT SUM(A.x) FROM C) FROM A, B)",
    "x IN (SELECT COUNT(A.x) FROM A, B)",
};

// Few values, some of them Null; every fourth of the tables A, B and C is empty.
TEST_F(CrossProduct, SelectsWhatSqliteSelectsFromTheStatementAsWritten) {
    std::mt19937 chance(4711);
    const auto value = [&] { return chance() % 8 == 0 ? std::string("NULL") : std::to_string(chance() % 5); };
    std::size_t selected = 0;
    for (int round = 0; round < 40; ++round) {
        std::string data = "BEGIN;";
        for (const std::string table : {"S", "A", "B", "C"}) {
            data += "DROP TABLE IF EXISTS " + table + "; CREATE TABLE " + table +
                    " (id INTEGER PRIMARY KEY, x INTEGER, y INTEGER);";
            for (auto rows = table == "S" ? 8 : chance() % 4; rows > 0; --rows)
                data += "INSERT INTO " + table + " (x, y) VALUES (" + value() + ", " + value() + ");";
        }
        write(data + "COMMIT");
        SqliteConnection plain(path(), SqliteAccess::read_only);
        const auto database = open();
        for (const char* const condition : random_conditions) {
            const std::string sql = std::string("SELECT id FROM S WHERE ") + condition + " ORDER BY id";
            const std::vector<std::string> rows = lines(database->query_array(sql));
            EXPECT_EQ(rows, by_sqlite(plain, sql)) << sql << "\n" << data;
            selected += rows.size();
        }
    }
    EXPECT_GT(selected, 500U) << "the data give the conditions something to select";
}

// 500 frameworks, all of them chosen, and 50 deleted ones; for each 5 line kinds with 20 positions, every
// eleventh gone, and 2 assignments for a position. About 200 000 log rows, each of one of them.
class FrameworksOfFullSize : public CrossProduct, protected FrameworkCondition {
protected:
    FrameworksOfFullSize() {
        write(R"(
PRAGMA journal_mode = OFF; PRAGMA temp_store = MEMORY;
BEGIN;
CREATE TABLE n (i INTEGER PRIMARY KEY);
INSERT INTO n WITH RECURSIVE up (i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM up WHERE i < 200000) SELECT i FROM up;
CREATE TABLE AUSWERTUNGSRAHMEN (ARA_ID INTEGER PRIMARY KEY, ARA_ART INTEGER, ARA_TYP INTEGER);
INSERT INTO AUSWERTUNGSRAHMEN SELECT i, 1, 0 FROM n WHERE i <= 500;
CREATE TABLE AUSWERTUNGSART (AA_ID INTEGER PRIMARY KEY, ARA_ID INTEGER);
INSERT INTO AUSWERTUNGSART SELECT i, i FROM n WHERE i <= 500;
CREATE TABLE ZEILENART (ZA_ID INTEGER PRIMARY KEY, ARA_ID INTEGER);
INSERT INTO ZEILENART SELECT i, 1 + i % 550 FROM n WHERE i <= 2750 AND i % 550 < 500;
CREATE TABLE AUSWERTUNGSPOSITION (AP_ID INTEGER PRIMARY KEY, ZA_ID INTEGER);
INSERT INTO AUSWERTUNGSPOSITION SELECT i, 1 + i % 2750 FROM n WHERE i <= 55000 AND i % 11 > 0;
CREATE TABLE FORMEL_POSITION (FO_ID INTEGER PRIMARY KEY, AP_ID INTEGER);
INSERT INTO FORMEL_POSITION SELECT i, 1 + i % 50000 FROM n WHERE i <= 100000;
CREATE TABLE tProtokoll (idProtokoll INTEGER PRIMARY KEY, dcTable TEXT COLLATE NOCASE, ddDatum DATETIME,
    dlPrimaryKey1 INTEGER, dlSuchId1 INTEGER, dlSuchId2 INTEGER, dlSuchId3 INTEGER);
INSERT INTO tProtokoll SELECT i, 'AUSWERTUNGSRAHMEN', NULL, i, i, 1, 0 FROM n WHERE i <= 550;
INSERT INTO tProtokoll SELECT i, 'AUSWERTUNGSART', NULL, i - 600, i - 600, NULL, NULL FROM n
    WHERE i BETWEEN 601 AND 1150;
INSERT INTO tProtokoll SELECT i, 'ZEILENART', NULL, i - 2000, 1 + (i - 2000) % 550, NULL, NULL FROM n
    WHERE i BETWEEN 2001 AND 4750;
INSERT INTO tProtokoll SELECT i, 'AUSWERTUNGSPOSITION', NULL, i - 5000, 1 + (i - 5000) % 2750, NULL, NULL FROM n
    WHERE i BETWEEN 5001 AND 60000;
INSERT INTO tProtokoll SELECT i, 'FORMEL_POSITION', NULL, i, 7, 1 + i % 55000, NULL FROM n
    WHERE i BETWEEN 60001 AND 120000;
INSERT INTO tProtokoll SELECT i, 'AUSWERTUNGSZELLE', NULL, i, 1 + i % 55000, NULL, NULL FROM n
    WHERE i BETWEEN 120001 AND 180000;
INSERT INTO tProtokoll SELECT i, 'SPALTENFORMATE', NULL, i, NULL, 1 + i % 2750, NULL FROM n
    WHERE i BETWEEN 180001 AND 200000;
UPDATE tProtokoll SET ddDatum = datetime('2026-01-01', '+' || idProtokoll || ' minutes');
DROP TABLE n;
CREATE INDEX iRahmen ON ZEILENART (ARA_ID); CREATE INDEX iZeilenart ON AUSWERTUNGSPOSITION (ZA_ID);
CREATE INDEX iPosition ON FORMEL_POSITION (AP_ID);
CREATE INDEX iPrimaryKey1 ON tProtokoll (dcTable, dlPrimaryKey1, ddDatum);
CREATE INDEX iSuchId1 ON tProtokoll (dcTable, dlSuchId1, ddDatum);
CREATE INDEX iSuchId2 ON tProtokoll (dcTable, dlSuchId2, ddDatum);
CREATE INDEX iDatum ON tProtokoll (ddDatum);
COMMIT)");
    }

    // All but those of the deleted frameworks and their report kinds.
    static constexpr std::size_t chosen_rows = 198750;
    // The statements take at most 12 million; with the product, 260 million.
    static constexpr int most_steps = 30'000'000;

    struct Work {
        std::size_t rows = 0;
        int steps = 0;  // of SQLite's virtual machine; unlike seconds the same everywhere
    };

    Work work_for(const std::string& sql) const {
        SqliteConnection connection(path(), SqliteAccess::read_write);
        const TsqlStatement translated = translate_tsql(sql).front();
        const PreparedStatement statement = prepare(connection, translated.text, sql);
        SqliteRun run(connection, statement.get(), translated.parameters, sql);
        Work work;
        while (run.next_row()) ++work.rows;
        work.steps = sqlite3_stmt_status(statement.get(), SQLITE_STMTSTATUS_VM_STEP, 0);
        return work;
    }
};

TEST_F(FrameworksOfFullSize, AreSelectedFromTwoHundredThousandRowsInFewSteps) {
    const Work selection =
        work_for("SELECT idProtokoll, ddDatum FROM tProtokoll WHERE " + everything + " ORDER BY ddDatum");
    EXPECT_EQ(selection.rows, chosen_rows);
    EXPECT_LT(selection.steps, most_steps);
    EXPECT_LT(work_for("SELECT COUNT(*) FROM tProtokoll WHERE " + everything).steps, most_steps);
    EXPECT_LT(work_for("DELETE tProtokoll WHERE " + everything).steps, most_steps);
    EXPECT_EQ(open()->query_value("SELECT COUNT(*) FROM tProtokoll"), Value(std::int64_t{100}))
        << "chosen before the first row went";
}

}  // namespace
}  // namespace prot
