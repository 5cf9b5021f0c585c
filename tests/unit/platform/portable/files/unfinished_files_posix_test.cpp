#include "platform/portable/files/unfinished_files.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>

#include "platform/portable/files/temporary_name.h"
#include "tests/unit/support/temporary_folder.h"

namespace prot {
namespace {

namespace fs = std::filesystem;

TEST(UnfinishedFilesPosix, AreFilesAndNothingElse) {
    const TemporaryFolder folder;
    const fs::path other = folder.path() / temporary_name("ordner");
    fs::create_directory(other);
    fs::last_write_time(other, fs::file_time_type::clock::now() - std::chrono::hours(25));
    remove_unfinished_files(folder.path());
    EXPECT_TRUE(fs::exists(other));
}

TEST(UnfinishedFilesPosix, OfOtherUsersAndBehindLinksStay) {
    const TemporaryFolder folder;
    const fs::path target = folder.path() / "wichtig", link = folder.path() / temporary_name("a");
    const fs::path other = folder.path() / temporary_name("b");
    for (const fs::path& file : {target, other}) {
        write_file(file, "x");
        fs::last_write_time(file, fs::file_time_type::clock::now() - std::chrono::hours(25));
    }
    fs::create_symlink(target, link);
    constexpr uid_t nobody = 65534;
    const bool is_given_away = ::chown(other.c_str(), nobody, nobody) == 0;  // as root only
    remove_unfinished_files(folder.path());
    EXPECT_TRUE(fs::exists(target));
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(fs::exists(other), is_given_away);
}

}  // namespace
}  // namespace prot
