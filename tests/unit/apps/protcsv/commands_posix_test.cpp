#include "apps/protcsv/commands.h"

#include <csignal>
#include <cstdlib>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "apps/protcsv/console/interruption.h"
#include "tests/unit/apps/protcsv/program_fixture.h"
#include "tests/unit/support/current_folder.h"
#include "tests/unit/support/ordinary_user.h"

namespace prot::test {
namespace {

/// Files of this process take `most` bytes while it lives, as on a full disk.
class SmallFiles {
public:
    explicit SmallFiles(rlim_t most) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit small{most, before_.rlim_max};
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    }
    ~SmallFiles() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    SmallFiles(const SmallFiles&) = delete;
    SmallFiles& operator=(const SmallFiles&) = delete;

private:
    sighandler_t handler_;
    rlimit before_{};
};

TEST_F(ProgramTest, LeavesNothingOfASampleThatFillsTheDisk) {
    write("s.db", "");
    int status = 0;
    {
        const SmallFiles small(4096);
        status = run({"sample", path("s.db")});
    }
    EXPECT_EQ(status, 1);
    EXPECT_EQ(output, "");
    EXPECT_TRUE(errors.starts_with("protcsv: ")) << errors;
    EXPECT_EQ(files(), 1U);
    EXPECT_EQ(read("s.db"), "") << "the earlier file is as it was";
}

TEST_F(ProgramTest, SaysThatASampleMayNotBeWrittenIntoAFolder) {
    const std::string folder = path("zu");
    ASSERT_EQ(mkdir(folder.c_str(), 0555), 0);
    const OrdinaryUser ordinary;
    EXPECT_EQ(run({"sample", folder + "/s.db"}), 1);
    EXPECT_EQ(errors, "protcsv: In den Ordner „" + folder + "“ darf nicht geschrieben werden.\n");
}

TEST_F(ProgramTest, DoesNotTakeAFolderForMissingThatItMayNotSee) {
    const std::string folder = path("zu");
    ASSERT_EQ(mkdir(folder.c_str(), 0700), 0);
    ASSERT_EQ(mkdir((folder + "/da").c_str(), 0777), 0);
    ASSERT_EQ(chmod(folder.c_str(), 0), 0);
    {
        const OrdinaryUser ordinary;
        EXPECT_EQ(run({"sample", folder + "/da/s.db"}), 1);
    }
    chmod(folder.c_str(), 0700);
    EXPECT_EQ(errors, "protcsv: In den Ordner „" + folder + "/da“ darf nicht geschrieben werden.\n");
}

TEST_F(ProgramTest, CallsTheCurrentFolderByAPointWhenASampleMayNotBeWrittenIntoIt) {
    const std::string folder = path("zu");
    ASSERT_EQ(mkdir(folder.c_str(), 0555), 0);
    const CurrentFolder in(text_path(folder));
    const OrdinaryUser ordinary;
    EXPECT_EQ(run({"sample", "s.db"}), 1);
    EXPECT_EQ(errors, "protcsv: In den Ordner „.“ darf nicht geschrieben werden.\n");
}

TEST_F(ProgramTest, TakesALinkToAFileForThatFileWhenASampleIsToReplaceIt) {
    write("wichtig", "wichtig");
    write("leer", "");
    std::filesystem::create_symlink("wichtig", path("a.db"));
    std::filesystem::create_symlink("leer", path("b.db"));
    EXPECT_EQ(run({"sample", path("a.db")}), 1);
    EXPECT_EQ(errors, "protcsv: Die Datei „" + path("a.db") + "“ gibt es schon; --overwrite ersetzt sie.\n");
    EXPECT_EQ(run({"sample", path("b.db")}), 0) << errors;
    EXPECT_EQ(read("wichtig"), "wichtig");
    EXPECT_EQ(read("b.db").substr(0, 15), "SQLite format 3");
}

/// Every connection is stopped, as by Ctrl-C, when it is about to close its transaction.
int stop_at_commit(sqlite3* database, char** /*message*/, const sqlite3_api_routines* /*api*/) {
    const auto stop = [](void*) {
        std::raise(SIGINT);
        return 0;
    };
    sqlite3_commit_hook(database, stop, nullptr);
    return SQLITE_OK;
}

TEST_F(ProgramTest, LeavesNothingOfASampleThatIsStopped) {
    write("s.db", "");
    EXPECT_EXIT(
        {
            std::signal(SIGINT, SIG_DFL);
            handle_interruptions();
            sqlite3_auto_extension(reinterpret_cast<void (*)()>(stop_at_commit));
            run({"sample", path("s.db")});
            std::_Exit(0);
        },
        testing::ExitedWithCode(130), "");
    EXPECT_EQ(files(), 1U);
    EXPECT_EQ(read("s.db"), "") << "the earlier file is as it was";
}

TEST_F(ProgramTest, LeavesNothingOfASampleThatMayNotTakeItsPlace) {
    if (geteuid() != 0) GTEST_SKIP() << "only root can make a file of somebody else's";
    const std::string folder = path("klebrig");
    ASSERT_EQ(mkdir(folder.c_str(), 0700), 0);
    ASSERT_EQ(chmod(folder.c_str(), 01777), 0);  // in it nobody replaces a file of another's
    write("klebrig/s.db", "");
    ASSERT_EQ(chmod((folder + "/s.db").c_str(), 0644), 0);
    const OrdinaryUser ordinary;
    EXPECT_EQ(run({"sample", folder + "/s.db"}), 1);
    EXPECT_EQ(errors, "protcsv: Die Datei „" + folder + "/s.db“ lässt sich nicht anlegen.\n");
    EXPECT_EQ(output, "");
    EXPECT_EQ(read("klebrig/s.db"), "");
    const std::filesystem::directory_iterator all(text_path(folder));
    EXPECT_EQ(std::distance(begin(all), end(all)), 1);
}

}  // namespace
}  // namespace prot::test
