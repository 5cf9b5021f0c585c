#include "platform/windows/wide_text.h"

#include <gtest/gtest.h>

namespace prot {
namespace {

TEST(WideText, CharactersOfEveryWidthComeBack) {
    const std::string text = "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80";
    EXPECT_EQ(to_wide(text), L"a\u00E4\u20AC\xD83D\xDE00");
    EXPECT_EQ(to_utf8(to_wide(text)), text);
}

TEST(WideText, HalfAPairBecomesTheReplacementCharacter) {
    EXPECT_EQ(to_utf8(L"x\xD83Dy"), "x\xEF\xBF\xBDy");
    EXPECT_EQ(to_utf8(L"\xDE00"), "\xEF\xBF\xBD");
    EXPECT_EQ(to_utf8(L"\xD83D"), "\xEF\xBF\xBD");
}

TEST(WideText, ABrokenByteBecomesTheReplacementCharacter) { EXPECT_EQ(to_wide("a\xFFz"), L"a\xFFFDz"); }

}  // namespace
}  // namespace prot
