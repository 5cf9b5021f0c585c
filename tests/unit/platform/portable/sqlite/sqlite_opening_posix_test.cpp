#include <sys/stat.h>

#include <filesystem>

#include "tests/unit/platform/portable/sqlite/sqlite_opening_fixture.h"
#include "tests/unit/support/current_folder.h"
#include "tests/unit/support/ordinary_user.h"

namespace prot {
namespace {

using SqliteOpeningPosix = SqliteOpening;

TEST_F(SqliteOpeningPosix, ReportsAPipeWithoutWaitingForIt) {
    ASSERT_EQ(mkfifo(path().c_str(), 0600), 0);
    expect_problem(path(), SQLITE_CANTOPEN, "ist keine gewöhnliche Datei.");
}

TEST_F(SqliteOpeningPosix, ReportsAFileWithoutPermission) {
    write("CREATE TABLE T (a)");
    std::filesystem::permissions(path(), std::filesystem::perms::none);
    const OrdinaryUser user;
    expect_problem(path(), SQLITE_CANTOPEN, "lässt sich nicht öffnen. Bitte die Zugriffsrechte");
}

TEST_F(SqliteOpeningPosix, ReportsAFileInAFolderThatItMayNotLookInto) {
    std::filesystem::create_directory(folder_ / "closed");
    write_file(folder_ / "closed" / "x.db", "x");
    std::filesystem::permissions(folder_ / "closed", std::filesystem::perms::none);
    {
        const OrdinaryUser user;
        expect_problem(
            path("closed/x.db"), SQLITE_PERM,
            "lässt sich nicht öffnen. Bitte die Zugriffsrechte der Datei und ihres Ordners prüfen");
    }
    std::filesystem::permissions(folder_ / "closed", std::filesystem::perms::owner_all);
}

TEST_F(SqliteOpeningPosix, ReportsAReadOnlyFileWhenItIsToBeWritten) {
    write("CREATE TABLE T (a)");
    std::filesystem::permissions(path(),
                                 std::filesystem::perms::owner_read | std::filesystem::perms::others_read);
    const OrdinaryUser user;
    EXPECT_NO_THROW(open());
    expect_problem(
        path(), SQLITE_READONLY,
        "ist schreibgeschützt. Bitte die Zugriffsrechte der Datei und ihres Ordners prüfen (SQLite "
        "meldet: attempt to write a readonly database).",
        SqliteAccess::read_write);
}

TEST_F(SqliteOpeningPosix, ReportsAWriteAheadLogInAFolderWithoutWritePermission) {
    write("PRAGMA journal_mode=WAL; CREATE TABLE T (a)");
    std::filesystem::permissions(path(),
                                 std::filesystem::perms::owner_read | std::filesystem::perms::others_read);
    std::filesystem::permissions(
        folder_.path(), std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec |
                            std::filesystem::perms::others_read | std::filesystem::perms::others_exec);
    {
        const OrdinaryUser user;
        expect_problem(path(), SQLITE_READONLY_DIRECTORY, "arbeitet mit einem Schreibprotokoll (WAL)");
    }
    std::filesystem::permissions(folder_.path(), std::filesystem::perms::owner_all);
}

TEST_F(SqliteOpeningPosix, OpensAFileThatBearsASpecialName) {
    write("CREATE TABLE T (a); INSERT INTO T VALUES (7)");
    const CurrentFolder in(folder_.path());
    for (const char* name : {"x.db", ":memory:", "file:x.db?mode=memory"}) {
        if (!std::filesystem::exists(name)) std::filesystem::copy_file("x.db", name);
        EXPECT_EQ(open_sqlite_database(name, SqliteAccess::read_only)->query_value("SELECT a FROM T"),
                  Value(std::int64_t{7}))
            << name;
    }
}

}  // namespace
}  // namespace prot
