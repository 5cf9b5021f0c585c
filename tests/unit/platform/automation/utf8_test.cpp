#include "platform/automation/utf8.h"

#include <gtest/gtest.h>

namespace prot {
namespace {

constexpr const char* invalid_texts[] = {"\xC3",     "\xC3z",        "\xE2\x82",         "\xF0\x9F\x98",
                                         "\x80",     "\xC0\x80",     "\xC1\xBF",         "\xE0\x9F\xBF",
                                         "\xED\xA0", "\xED\xBF\xBF", "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80",
                                         "\xF5",     "\xFF\xBF\xBF"};

TEST(Utf8, EncodesWhatItDecoded) {
    for (const char* text : {"", "aé€😀", "a\x80z"}) EXPECT_EQ(encode_utf8(decode_utf8(text)), text);
    for (const char* text : invalid_texts) EXPECT_EQ(encode_utf8(decode_utf8(text)), text);
}

TEST(Utf8, DecodesEveryCodePointThatItEncodes) {
    for (char32_t c = 0; c <= 0x10FFFF; c += c == 0xD7FF ? 0x801 : 1) {
        const std::string text = encode_utf8(std::u32string(1, c));
        ASSERT_EQ(decode_utf8(text), std::u32string(1, c));
        ASSERT_EQ(text.size(), c < 0x80 ? 1U : c < 0x800 ? 2U : c < 0x10000 ? 3U : 4U);
    }
}

TEST(Utf8, KnowsValidText) {
    EXPECT_TRUE(is_valid_utf8(""));
    EXPECT_TRUE(is_valid_utf8("aé€😀\xEF\xBF\xBF"));
    for (const char* text : invalid_texts) EXPECT_FALSE(is_valid_utf8(text)) << text;
}

TEST(Utf8, FindsAnInvalidByteWhereverItStands) {
    for (std::size_t before = 0; before < 20; ++before) {
        const std::string start(before, 'a');
        EXPECT_TRUE(is_valid_utf8(start + "ä"));
        EXPECT_FALSE(is_valid_utf8(start + "\xFF"));
        EXPECT_FALSE(is_valid_utf8(start + "\xFF" + std::string(20, 'a')));
    }
}

TEST(Utf8, CountsCharactersInsteadOfBytes) {
    EXPECT_EQ(count_characters(""), 0U);
    EXPECT_EQ(count_characters("aé€😀"), 4U);
}

TEST(Utf8, ShortensATextBetweenTwoCharacters) {
    EXPECT_EQ(whole_characters("aé€", 6), "aé€");
    EXPECT_EQ(whole_characters("aé€", 7), "aé€");
    EXPECT_EQ(whole_characters("aé€", 5), "aé");
    EXPECT_EQ(whole_characters("aé€", 3), "aé");
    EXPECT_EQ(whole_characters("aé€", 2), "a");
    EXPECT_EQ(whole_characters("😀", 3), "");
}

TEST(Utf8, TellsTheBeginningOfACharacter) {
    for (const char* text : {"\xC2", "\xE2", "\xE2\x82", "\xF4", "\xF0\x9F", "\xF0\x9F\x98"})
        EXPECT_TRUE(begins_character(text)) << text;
    for (const char* text : {"", "a", "\x80", "\xC1", "\xF5", "é", "€", "\xE2z", "\xF0\x9Fz"})
        EXPECT_FALSE(begins_character(text)) << text;
}

}  // namespace
}  // namespace prot
