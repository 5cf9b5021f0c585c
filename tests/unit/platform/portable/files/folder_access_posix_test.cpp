#include <gtest/gtest.h>

#include "platform/portable/files/folder_access.h"
#include "tests/unit/support/ordinary_user.h"
#include "tests/unit/support/temporary_folder.h"

namespace prot {
namespace {

namespace fs = std::filesystem;

TEST(FolderAccessPosix, NeedsTheRightsToWriteAndToEnter) {
    const TemporaryFolder folder;
    const struct {
        fs::perms rights;
        bool granted;
    } cases[] = {
        {fs::perms::owner_write | fs::perms::owner_exec | fs::perms::others_write | fs::perms::others_exec,
         true},
        {fs::perms::owner_all | fs::perms::others_all, true},
        {fs::perms::owner_write | fs::perms::others_write, false},
        {fs::perms::owner_exec | fs::perms::others_exec, false},
        {fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read | fs::perms::others_exec,
         false},
    };
    for (const auto& [rights, granted] : cases) {
        fs::permissions(folder.path(), rights);
        const OrdinaryUser user;
        EXPECT_EQ(folder_refusal(folder.path()), granted ? std::errc() : std::errc::permission_denied)
            << static_cast<int>(rights);
    }
    fs::permissions(folder.path(), fs::perms::owner_all);
}

}  // namespace
}  // namespace prot
