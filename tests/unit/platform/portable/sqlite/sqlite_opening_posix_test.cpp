#include <sys/stat.h>

#include <filesystem>

#include "tests/unit/platform/portable/sqlite/sqlite_opening_fixture.h"
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

TEST_F(SqliteOpeningPosix, ReportsAReadOnlyFileWhenItIsToBeWritten) {
    write("CREATE TABLE T (a)");
    std::filesystem::permissions(path(),
                                 std::filesystem::perms::owner_read | std::filesystem::perms::others_read);
    const OrdinaryUser user;
    EXPECT_NO_THROW(open());
    expect_problem(path(), SQLITE_READONLY, "ist schreibgeschützt", SqliteAccess::read_write);
}

TEST_F(SqliteOpeningPosix, ReportsAWriteAheadLogInAFolderWithoutWritePermission) {
    write("PRAGMA journal_mode=WAL; CREATE TABLE T (a)");
    std::filesystem::permissions(
        folder_.path(), std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec |
                            std::filesystem::perms::others_read | std::filesystem::perms::others_exec);
    {
        const OrdinaryUser user;
        expect_problem(path(), SQLITE_READONLY_DIRECTORY, "arbeitet mit einem Schreibprotokoll (WAL)");
    }
    std::filesystem::permissions(folder_.path(), std::filesystem::perms::owner_all);
}

}  // namespace
}  // namespace prot
