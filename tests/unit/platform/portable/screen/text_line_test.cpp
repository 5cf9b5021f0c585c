#include "platform/portable/screen/text_line.h"

#include <gtest/gtest.h>

#include "scripted_screen.h"

namespace prot {
namespace {

using Kind = Key::Kind;
using test::key;
using test::letter;

constexpr std::size_t longest = 10;

TEST(TextLine, TheFirstCharacterReplacesATextThatIsSelected) {
    TextLine line;
    line.set("früher");
    line.select_all();
    EXPECT_TRUE(line.press(letter(U'ö'), longest));
    EXPECT_EQ(line.text(), "ö");
    EXPECT_TRUE(line.press(letter(U'l'), longest));
    EXPECT_EQ(line.text(), "öl");
}

TEST(TextLine, AnArrowKeepsTheTextThatIsSelected) {
    TextLine line;
    line.set("abc");
    line.select_all();
    EXPECT_FALSE(line.press(key(Kind::left), longest));
    EXPECT_FALSE(line.selected());
    EXPECT_TRUE(line.press(letter(U'x'), longest));
    EXPECT_EQ(line.text(), "xabc");
}

TEST(TextLine, DeletingTakesWholeCharacters) {
    TextLine line;
    line.set("aäö");
    EXPECT_TRUE(line.press(key(Kind::backspace), longest));
    EXPECT_EQ(line.text(), "aä");
    line.press(key(Kind::home), longest);
    EXPECT_TRUE(line.press(key(Kind::remove), longest));
    EXPECT_EQ(line.text(), "ä");
    EXPECT_FALSE(line.press(key(Kind::backspace), longest)) << "nothing before the cursor";
}

TEST(TextLine, DeletingTakesAllThatIsSelected) {
    for (const Kind kind : {Kind::backspace, Kind::remove}) {
        TextLine line;
        line.set("abc");
        line.select_all();
        EXPECT_TRUE(line.press(key(kind), longest));
        EXPECT_EQ(line.text(), "");
    }
}

TEST(TextLine, TakesNoMoreThanTheLongestText) {
    TextLine line;
    line.set("ääääääääää");
    EXPECT_FALSE(line.press(letter(U'x'), longest));
    EXPECT_EQ(line.text(), "ääääääääää");
}

TEST(TextLine, ShowsThePartAroundTheCursor) {
    TextLine line;
    line.set("0123456789");
    EXPECT_EQ(line.view(11).text, "0123456789");
    EXPECT_EQ(line.view(11).cursor, 10);
    EXPECT_EQ(line.view(5).text, "6789");
    EXPECT_EQ(line.view(5).cursor, 4) << "the cursor stands behind the text";
    line.press(key(Kind::home), longest);
    EXPECT_EQ(line.view(5).text, "01234");
    EXPECT_EQ(line.view(5).cursor, 0);
}

}  // namespace
}  // namespace prot
