#include "platform/portable/sqlite/sqlite_problem.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace prot {
namespace {

TEST(SqliteProblem, HasOtherWordsForEachTask) {
    EXPECT_EQ(sqlite_problem_text(SQLITE_FULL, SqliteTask::statement), "Der Datenträger ist voll");
    EXPECT_EQ(sqlite_problem_text(SQLITE_FULL, SqliteTask::opening), "");
    EXPECT_EQ(sqlite_problem_text(SQLITE_FULL, SqliteTask::creation), "der Datenträger ist voll");
}

TEST(SqliteProblem, TellsAnExtendedCodeInWordsOfItsOwnOrOfItsPrimaryCode) {
    EXPECT_EQ(sqlite_problem_text(SQLITE_READONLY_ROLLBACK, SqliteTask::opening)
                  .find("wurde beim Schreiben unterbrochen"),
              0U);
    EXPECT_EQ(sqlite_problem_text(SQLITE_READONLY_ROLLBACK, SqliteTask::statement),
              "Die Datenbank ist schreibgeschützt");
    EXPECT_EQ(sqlite_problem_text(SQLITE_IOERR_WRITE, SqliteTask::creation),
              "Fehler beim Schreiben auf den Datenträger");
}

TEST(SqliteProblem, SaysWhyADatabaseCannotBeMade) {
    const struct {
        int code;
        const char* text;
    } rows[] = {
        {SQLITE_BUSY, "die Datei wird von einem anderen Programm benutzt"},
        {SQLITE_NOTADB, "die Datei ist keine Datenbank"},
        {SQLITE_IOERR, "Fehler beim Schreiben auf den Datenträger"},
        {SQLITE_IOERR_FSYNC, "Fehler beim Schreiben auf den Datenträger"},
        {SQLITE_FULL, "der Datenträger ist voll"},
        {SQLITE_READONLY, "die Datei ist schreibgeschützt"},
        {SQLITE_CANTOPEN, "die Datei kann nicht angelegt werden"},
        {SQLITE_PERM, "der Zugriff ist nicht erlaubt"},
        {SQLITE_MISMATCH, ""},
    };
    for (const auto& [code, text] : rows)
        EXPECT_EQ(sqlite_problem_text(code, SqliteTask::creation), text) << code;
}

TEST(SqliteProblem, TellsWhatAStatementLacks) {
    EXPECT_EQ(describe_sqlite_problem(SQLITE_ERROR, "no such table: T"), "Die Tabelle „T“ gibt es nicht");
    EXPECT_EQ(describe_sqlite_problem(SQLITE_ERROR, "no such table: temp.#t"),
              "Die Tabelle „#t“ gibt es nicht");
    EXPECT_EQ(describe_sqlite_problem(SQLITE_ERROR, "no such column: a.b"), "Die Spalte „a.b“ gibt es nicht");
    EXPECT_EQ(describe_sqlite_problem(SQLITE_ERROR, "ambiguous column name: a"),
              "Die Spalte „a“ ist nicht eindeutig");
}

TEST(SqliteProblem, TellsAnUnknownOneInSqlitesWords) {
    EXPECT_EQ(describe_sqlite_problem(SQLITE_MISMATCH, "datatype mismatch"),
              "SQLite meldet: datatype mismatch");
}

TEST(SqliteProblem, NumbersAnErrorByItsExtendedCode) {
    const AutomationError error = sqlite_error(SQLITE_IOERR_READ, "x");
    EXPECT_EQ(error.number(), static_cast<std::int32_t>(0x8004010A));
    EXPECT_EQ(error.source(), "SQLite");
    EXPECT_EQ(error.description(), "x");
}

}  // namespace
}  // namespace prot
