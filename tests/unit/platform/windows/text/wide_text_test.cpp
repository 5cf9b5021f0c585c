#include "platform/windows/text/wide_text.h"

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

TEST(WideText, AConverterKeepsNothingOfTheTextBefore) {
    Utf8Converter converter;
    EXPECT_EQ(converter.convert(L"\xD83D\xDE00\u20AC\u00E4z"), "\xF0\x9F\x98\x80\xE2\x82\xAC\xC3\xA4z");
    EXPECT_EQ(converter.convert(L"ab"), "ab");
    EXPECT_EQ(converter.convert(L""), "");
    EXPECT_EQ(converter.convert(std::wstring(5000, L'\u20AC')).size(), 15000U);
}

TEST(WideText, ACharacterBeyondAsciiMayStandAnywhere) {
    for (std::size_t length = 0; length < 12; ++length) {
        EXPECT_EQ(to_utf8(std::wstring(length, L'a')), std::string(length, 'a'));
        for (std::size_t at = 0; at <= length; ++at) {
            std::wstring wide(length, L'a');
            std::string utf8(length, 'a');
            EXPECT_EQ(to_utf8(wide.insert(at, L"\u0080")), utf8.insert(at, "\xC2\x80"))
                << length << " " << at;
            EXPECT_EQ(to_utf8(wide.insert(at, L"\u0100")), utf8.insert(at, "\xC4\x80"))
                << length << " " << at;
        }
    }
}

TEST(WideText, ABrokenByteBecomesTheReplacementCharacter) { EXPECT_EQ(to_wide("a\xFFz"), L"a\xFFFDz"); }

}  // namespace
}  // namespace prot
