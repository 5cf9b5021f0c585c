#include <gtest/gtest.h>

#include "platform/portable/files/paths.h"

namespace prot {
namespace {

namespace fs = std::filesystem;

TEST(PathsWindows, OfASharedFolderAreAbsolute) {
    for (const wchar_t* path : {LR"(\\server\share\a.csv)", L"//server/share/a.csv", LR"(\\?\C:\a.csv)"}) {
        EXPECT_TRUE(is_absolute_path(path)) << fs::path(path);
        EXPECT_EQ(joined_path(LR"(C:\out)", path).native(), path);
        EXPECT_NE(absolute_path(path).native().find(L"a.csv"), std::wstring::npos);
    }
    EXPECT_EQ(absolute_path(LR"(\\server\share\x\..\a.csv)").native(), LR"(\\server\share\a.csv)");
    EXPECT_EQ(joined_path(LR"(\\server\share)", "a.csv").native(), LR"(\\server\share\a.csv)");
}

TEST(PathsWindows, KeepTheServersNameWhenTheyAreMadeShort) {
    struct {
        const wchar_t* path;
        const wchar_t* shortest;
        const char* why;
    } const rows[] = {
        {LR"(\\server\share\.\x\..\a.csv)", LR"(\\server\share\a.csv)", "two separators begin it"},
        {L"//server/share/a.csv", LR"(\\server\share\a.csv)", "separators of both kinds"},
        {LR"(\\?\C:\x\..\a.csv)", LR"(\\?\C:\x\..\a.csv)", "literal: the file's name may be .."},
        {LR"(\\.\NUL)", LR"(\\.\NUL)", "the point names the devices"},
        {L"C:/x/./a.csv", LR"(C:\x\a.csv)", "a drive"},
    };
    for (const auto& row : rows) EXPECT_EQ(shortest_path(row.path).native(), row.shortest) << row.why;
}

TEST(PathsWindows, HoldWhatIsNotUtf8AsAReplacementCharacter) {
    EXPECT_EQ(path_text(text_path("a\xFF.csv")), "a\uFFFD.csv");
}

}  // namespace
}  // namespace prot
