#include "platform/portable/sqlite/sqlite_opening.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

#include "tests/unit/platform/portable/sqlite/sqlite_opening_fixture.h"
#include "tests/unit/support/current_folder.h"

namespace prot {
namespace {

using testing::HasSubstr;

TEST_F(SqliteOpening, ReportsAMissingFileAndDoesNotMakeIt) {
    for (const SqliteAccess access : {SqliteAccess::read_only, SqliteAccess::read_write}) {
        expect_problem(path(), SQLITE_CANTOPEN, "gibt es nicht.", access);
        EXPECT_FALSE(std::filesystem::exists(text_path(path())));
    }
    expect_problem(path("nowhere/x.db"), SQLITE_CANTOPEN, "gibt es nicht.");
}

TEST_F(SqliteOpening, TakesSqlitesSpecialNamesForFileNames) {
    const CurrentFolder in(folder_.path());
    expect_problem(":memory:", SQLITE_CANTOPEN, "gibt es nicht.");
    expect_problem("", SQLITE_CANTOPEN, "gibt es nicht.");
    expect_problem("file:x.db?mode=memory", SQLITE_CANTOPEN, "gibt es nicht.");
    EXPECT_EQ(folder_.entries(), 0U);
}

TEST_F(SqliteOpening, ReportsAFolder) {
    expect_problem(path_text(folder_.path()), SQLITE_CANTOPEN_ISDIR, "ist ein Ordner, keine Datei.");
}

TEST_F(SqliteOpening, ReportsAnEmptyFile) {
    write_bytes("");
    expect_problem(path(), SQLITE_NOTADB, "ist leer und enthält keine Datenbank.");
}

TEST_F(SqliteOpening, ReportsAFileThatIsNoDatabase) {
    write_bytes(std::string(5000, 'x'));
    expect_problem(path(), SQLITE_NOTADB, "ist keine SQLite-Datenbank");
}

TEST_F(SqliteOpening, ReportsADamagedDatabase) {
    write("CREATE TABLE T (a); INSERT INTO T VALUES (1)");
    std::fstream file(text_path(path()), std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(100);  // the page header of the schema
    file << std::string(64, '\xFF');
    file.close();
    expect_problem(path(), SQLITE_CORRUPT, "ist beschädigt");
}

TEST_F(SqliteOpening, ReportsALockedDatabase) {
    write("CREATE TABLE T (a)");
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(path().c_str(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    expect_problem(path(), SQLITE_BUSY, "ist gesperrt: ein anderes Programm schreibt gerade hinein");
    sqlite3_close(other);
    EXPECT_NO_THROW(open());
}

TEST_F(SqliteOpening, ReadsAWriteAheadLogInAWritableFolder) {
    write("PRAGMA journal_mode=WAL; CREATE TABLE T (a); INSERT INTO T VALUES (7)");
    EXPECT_EQ(std::get<std::int64_t>(open()->query_value("SELECT a FROM T")), 7);
}

TEST_F(SqliteOpening, SaysHowToReadADatabaseWithAWriteAheadLogThatItCannotOpen) {
    write("PRAGMA journal_mode=WAL; CREATE TABLE T (a)");
    const AutomationError error =
        error_of([&] { refuse_sqlite_file(path(), SQLITE_CANTOPEN, "unable to open database file"); });
    EXPECT_THAT(error.description(), HasSubstr("(WAL), das sich hier nicht lesen lässt"));
    EXPECT_THAT(error.description(), HasSubstr("(SQLite meldet: unable to open database file)"));
}

TEST_F(SqliteOpening, ReportsAWriteThatWasBrokenOff) {
    write("CREATE TABLE T (a)");
    const AutomationError error =
        error_of([&] { refuse_sqlite_file(path(), SQLITE_READONLY_ROLLBACK, "attempt to write"); });
    EXPECT_THAT(error.description(), HasSubstr("wurde beim Schreiben unterbrochen"));
}

TEST_F(SqliteOpening, OpensAFileWithUmlautsInItsName) {
    write("CREATE TABLE T (a)");
    std::filesystem::rename(text_path(path()), text_path(path("Prüfung Ä.db")));
    EXPECT_NO_THROW(open_sqlite_database(path("Prüfung Ä.db"), SqliteAccess::read_only));
}

}  // namespace
}  // namespace prot
