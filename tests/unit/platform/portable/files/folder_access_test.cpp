#include "platform/portable/files/folder_access.h"

#include <gtest/gtest.h>

#include "tests/unit/support/current_folder.h"
#include "tests/unit/support/temporary_folder.h"

namespace prot {
namespace {

TEST(FolderAccess, IsGrantedInAFolderOfOnesOwn) {
    const TemporaryFolder folder;
    EXPECT_FALSE(folder_refusal(folder.path()));
    EXPECT_EQ(folder.entries(), 0U);
}

TEST(FolderAccess, TakesTheEmptyPathForTheCurrentFolder) {
    const TemporaryFolder folder;
    const CurrentFolder in(folder.path());
    EXPECT_FALSE(folder_refusal({}));
}

TEST(FolderAccess, IsRefusedWhereThereIsNoFolder) {
    const TemporaryFolder folder;
    EXPECT_EQ(folder_refusal(folder / "no"), std::errc::no_such_file_or_directory);
}

}  // namespace
}  // namespace prot
