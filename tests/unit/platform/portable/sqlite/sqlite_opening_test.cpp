#include "platform/portable/sqlite/sqlite_opening.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

#include "tests/unit/platform/portable/sqlite/fake_sleep.h"
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
    const FakeSleep no_waiting;
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

TEST_F(SqliteOpening, SaysWhatIsWrongWithTheFileAndWhatHelps) {
    write_bytes("x");
    const struct {
        int code;
        const char* text;
        const char* why;
    } cases[] = {
        {SQLITE_BUSY,
         "ist gesperrt: ein anderes Programm schreibt gerade hinein. Bitte später noch einmal versuchen",
         "a lock"},
        {SQLITE_BUSY_RECOVERY,
         "ist gesperrt: ein anderes Programm schreibt gerade hinein. Bitte später noch einmal versuchen",
         "a lock of another kind"},
        {SQLITE_LOCKED,
         "ist gesperrt: ein anderes Programm schreibt gerade hinein. Bitte später noch einmal versuchen",
         "a lock of the same program"},
        {SQLITE_NOTADB, "ist keine SQLite-Datenbank, oder sie ist verschlüsselt", "another kind of file"},
        {SQLITE_CORRUPT, "ist beschädigt. Bitte aus einer Sicherung wiederherstellen", "damaged"},
        {SQLITE_READONLY_ROLLBACK,
         "wurde beim Schreiben unterbrochen und muss erst von einem Programm geöffnet werden, das in sie "
         "schreiben darf",
         "an extended code with words of its own"},
        {SQLITE_READONLY, "ist schreibgeschützt. Bitte die Zugriffsrechte der Datei und ihres Ordners prüfen",
         "no right to write"},
        {SQLITE_READONLY_CANTINIT,
         "ist schreibgeschützt. Bitte die Zugriffsrechte der Datei und ihres Ordners prüfen",
         "an extended code without"},
        {SQLITE_CANTOPEN,
         "lässt sich nicht öffnen. Bitte die Zugriffsrechte der Datei und ihres Ordners prüfen",
         "no right to read"},
        {SQLITE_PERM, "lässt sich nicht öffnen. Bitte die Zugriffsrechte der Datei und ihres Ordners prüfen",
         "no right to look"},
        {SQLITE_AUTH, "lässt sich nicht öffnen. Bitte die Zugriffsrechte der Datei und ihres Ordners prüfen",
         "no right to use"},
        {SQLITE_IOERR_READ, "lässt sich nicht lesen. Bitte den Datenträger oder die Netzverbindung prüfen",
         "a disk that fails"},
        {SQLITE_NOLFS, "lässt sich nicht öffnen", "anything else"},
    };
    for (const auto& [code, text, why] : cases) {
        const AutomationError error =
            error_of([&, code = code] { refuse_sqlite_file(path(), code, "own text"); });
        EXPECT_EQ(static_cast<std::uint32_t>(error.number()), 0x80040000U + static_cast<std::uint32_t>(code))
            << why;
        EXPECT_EQ(error.description(),
                  "Die Datenbank „" + path() + "“ " + text + " (SQLite meldet: own text).")
            << why;
    }
}

// The bytes at offsets 18 and 19: 2 where the file is written, or read, with a write-ahead log.
TEST_F(SqliteOpening, NamesTheWriteAheadLogOnlyWhereReadingNeedsIt) {
    const struct {
        const char* bytes;
        int code;
        bool named;
        const char* why;
    } cases[] = {
        {"", SQLITE_CANTOPEN, true, "its log cannot be made"},
        {"", SQLITE_CANTOPEN_FULLPATH, true, "an extended code"},
        {"", SQLITE_READONLY_CANTINIT, true, "its log cannot be read"},
        {"", SQLITE_READONLY_DIRECTORY, true, "nor made in the folder"},
        {"", SQLITE_CANTOPEN, false, "only writing needs the log"},
        {"", SQLITE_CANTOPEN, true, "only reading needs it"},
        {"", SQLITE_CANTOPEN, false, "no log"},
        {"", SQLITE_CANTOPEN, false, "a later kind of file"},
        {"", SQLITE_READONLY, false, "the file itself is write-protected"},
        {"", SQLITE_READONLY_ROLLBACK, false, "a write was broken off"},
        {"", SQLITE_IOERR_READ, false, "the disk fails"},
    };
    for (const auto& [bytes, code, named, why] : cases) {
        write_bytes(std::string(18, 'x') + bytes + std::string(80, 'x'));
        const AutomationError error = error_of([&, code = code] { refuse_sqlite_file(path(), code, ""); });
        EXPECT_EQ(error.description().find("(WAL)") != std::string::npos, named) << why;
    }
}

}  // namespace
}  // namespace prot
