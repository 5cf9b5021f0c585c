#include "platform/portable/files/paths.h"

#include <gtest/gtest.h>

namespace prot {
namespace {

namespace fs = std::filesystem;

TEST(Paths, KeepEveryCharacterOfTheirText) {
    for (const char* text : {"", "a.csv", "Ä/Übersicht €.csv", "𝄞"})
        EXPECT_EQ(path_text(text_path(text)), text);
}

TEST(Paths, AreSeenFromAFolderUnlessTheyAreAbsolute) {
    const fs::path absolute = fs::current_path() / "a.csv";
    EXPECT_EQ(joined_path("folder", "a.csv"), fs::path("folder") / "a.csv");
    EXPECT_EQ(joined_path("", "a.csv"), "a.csv");
    EXPECT_EQ(joined_path("folder", absolute), absolute);
    EXPECT_TRUE(is_absolute_path(absolute));
    EXPECT_FALSE(is_absolute_path("folder/a.csv"));
    EXPECT_EQ(absolute_path("a.csv"), absolute);
    EXPECT_EQ(absolute_path(absolute), absolute);
}

TEST(Paths, LoseWhatLeadsNowhere) {
    EXPECT_EQ(shortest_path("./x/../a.csv"), "a.csv");
    EXPECT_EQ(shortest_path("x/./a.csv"), fs::path("x") / "a.csv");
}

}  // namespace
}  // namespace prot
