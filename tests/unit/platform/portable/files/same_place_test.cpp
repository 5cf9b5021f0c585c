#include "platform/portable/files/same_place.h"

#include <gtest/gtest.h>

#include "tests/unit/support/temporary_folder.h"

namespace prot {
namespace {

TEST(SamePlace, IsThatOfAFileWhateverLeadsThere) {
    const TemporaryFolder folder;
    write_file(folder / "a", "x");
    EXPECT_TRUE(is_same_place(folder / "a", folder / "fehlt/../a"));
    EXPECT_FALSE(is_same_place(folder / "a", folder / "b"));
}

TEST(SamePlace, IsThatOfAFileThatIsStillToBeMade) {
    const TemporaryFolder folder;
    EXPECT_TRUE(is_same_place(folder / "neu", folder / "./neu"));
    EXPECT_FALSE(is_same_place(folder / "neu", folder / "anders"));
    EXPECT_FALSE(is_same_place("", ""));
    EXPECT_FALSE(is_same_place(folder / "neu", ""));
}

}  // namespace
}  // namespace prot
