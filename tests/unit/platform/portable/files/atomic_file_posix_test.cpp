#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <thread>

#include "tests/unit/platform/portable/files/atomic_file_fixture.h"
#include "tests/unit/support/ordinary_user.h"

namespace prot {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

using AtomicFilePosix = AtomicFile;

mode_t mode_of(const fs::path& path) {
    struct stat status = {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0);
    return status.st_mode & 07777;
}

TEST_F(AtomicFilePosix, IsItsOwnersAloneUntilCompleteAndThenFollowsTheUmask) {
    const struct {
        mode_t mask, mode;
        const char* why;
    } cases[] = {
        {022, 0644, "as most have it"},
        {027, 0640, "closed to others"},
        {077, 0600, "the owner's alone"},
        {002, 0664, "a group that works together"},
        {000, 0666, "open to all, but no program"},
    };
    for (const auto& [mask, mode, why] : cases) {
        const mode_t before = ::umask(mask);
        const auto file = system_files().prepare(folder / "a.csv");
        file->create();
        EXPECT_EQ(mode_of(file->temporary_path()), 0600U) << why;
        file->complete();
        EXPECT_EQ(mode_of(folder / "a.csv"), mode) << why;
        EXPECT_EQ(::umask(before), mask) << "the umask stays as it was";
    }
}

TEST_F(AtomicFilePosix, ReplacesTheFileBehindSymbolicLinks) {
    fs::create_directory(folder / "real");
    write_file(folder / "real" / "a.csv", "earlier");
    fs::create_symlink("real/a.csv", folder / "relative");
    fs::create_symlink(folder / "relative", folder / "link");
    EXPECT_EQ(system_files().prepare(folder / "link")->temporary_path().parent_path(), folder / "real");
    write_whole(folder / "link", "new");
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_TRUE(fs::is_symlink(folder / "relative"));
    EXPECT_EQ(content_of(folder / "real" / "a.csv"), "new");
    EXPECT_FALSE(fs::is_symlink(folder / "real" / "a.csv"));
}

TEST_F(AtomicFilePosix, FollowsNoLinkWhereItReplacesNothing) {
    write_file(folder / "real.csv", "earlier");
    fs::create_symlink("real.csv", folder / "a.csv");
    fs::create_symlink("nowhere.csv", folder / "a-2.csv");
    const auto file = system_files().prepare(folder / "a.csv", Existing::kept);
    file->create();
    file->write("new");
    file->complete();
    EXPECT_EQ(file->place(), folder / "a-3.csv");
    EXPECT_EQ(content_of(folder / "a-3.csv"), "new");
    EXPECT_EQ(content_of(folder / "real.csv"), "earlier");
    EXPECT_EQ(folder.entries(), 4U);
}

TEST_F(AtomicFilePosix, MakesTheFileThatADanglingLinkNames) {
    fs::create_symlink("a.csv", folder / "link");
    write_whole(folder / "link", "new");
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(content_of(folder / "a.csv"), "new");
}

TEST_F(AtomicFilePosix, RefusesLinksInACircle) {
    fs::create_symlink("b", folder / "a");
    fs::create_symlink("a", folder / "b");
    EXPECT_THAT(description_of([&] { write_whole(folder / "a", ""); }), HasSubstr("führen im Kreis"));
}

TEST_F(AtomicFilePosix, WritesADeviceDirectly) {
    const OrdinaryUser user;  // whom the system keeps from replacing a device, should the file layer try
    const auto file = system_files().prepare("/dev/null");
    EXPECT_TRUE(file->temporary_path().empty());
    write_whole("/dev/null", "gone");
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(AtomicFilePosix, WritesAPipeDirectly) {
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    std::string received;
    std::thread reader([&] { received = content_of(folder / "pipe"); });
    write_whole(folder / "pipe", "through");
    reader.join();
    EXPECT_EQ(received, "through");
    EXPECT_TRUE(fs::is_fifo(folder / "pipe"));
    EXPECT_EQ(folder.entries(), 1U);
}

TEST_F(AtomicFilePosix, WritesAFileThatIsReachedAsAnOpenDescriptorDirectly) {
    const int descriptor = ::open((folder / "out").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    ASSERT_GE(descriptor, 0);
    const std::string path = "/proc/self/fd/" + std::to_string(descriptor);
    EXPECT_TRUE(system_files().prepare(path)->temporary_path().empty());
    write_whole(path, "direct");
    ::close(descriptor);
    EXPECT_EQ(content_of(folder / "out"), "direct");
    EXPECT_EQ(folder.entries(), 1U);
}

TEST_F(AtomicFilePosix, TellsThePathAndThatTheDiskIsFull) {
    if (!fs::exists("/dev/full")) GTEST_SKIP() << "the system has no /dev/full";
    const OrdinaryUser user;
    EXPECT_EQ(description_of([&] { write_whole("/dev/full", "x"); }),
              "Die Datei „/dev/full“ kann nicht geschrieben werden: kein Platz mehr auf dem Datenträger.");
}

TEST_F(AtomicFilePosix, FailsInAFolderWithoutPermission) {
    fs::permissions(folder.path(), fs::perms::owner_read | fs::perms::owner_exec);
    {
        const OrdinaryUser user;
        EXPECT_THAT(description_of([&] { write_whole(folder / "a.csv", ""); }),
                    HasSubstr("keine Berechtigung"));
        EXPECT_EQ(description_of([&] { system_files().make_folder(folder.path()); }),
                  "In den Ordner „" + path_text(folder.path()) +
                      "“ kann nicht geschrieben werden: keine Berechtigung.")
            << "told before anything is written";
    }
    fs::permissions(folder.path(), fs::perms::owner_all);
}

TEST_F(AtomicFilePosix, SaysThatAFolderIsClosedThatItMayNotSee) {
    fs::create_directories(folder / "zu" / "sub");
    fs::permissions(folder / "zu", fs::perms::none);
    {
        const OrdinaryUser user;
        EXPECT_EQ(description_of([&] { system_files().make_folder(folder / "zu" / "sub"); }),
                  "In den Ordner „" + path_text(folder / "zu" / "sub") +
                      "“ kann nicht geschrieben werden: keine Berechtigung.");
    }
    fs::permissions(folder / "zu", fs::perms::owner_all);
}

TEST_F(AtomicFilePosix, FailsWhenTheFolderVanishes) {
    fs::create_directory(folder / "sub");
    const auto file = system_files().prepare(folder / "sub" / "a.csv");
    file->create();
    fs::remove_all(folder / "sub");
    file->write("x");
    EXPECT_THAT(description_of([&] { file->complete(); }), HasSubstr("der Ordner ist nicht vorhanden"));
    file->discard();
}

TEST_F(AtomicFilePosix, TellsThatTheQuotaIsExhausted) {
    EXPECT_EQ(file_error("a", std::error_code(EDQUOT, std::system_category())).description(),
              "Die Datei „a“ kann nicht geschrieben werden: das Speicherkontingent ist erschöpft.");
}

}  // namespace
}  // namespace prot
