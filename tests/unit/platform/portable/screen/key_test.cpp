#include "platform/portable/screen/key.h"

#include <gtest/gtest.h>

namespace prot {
namespace {

using Kind = Key::Kind;

TEST(KeyDecoder, KnowsTheSequencesOfCommonTerminals) {
    const struct {
        std::string bytes;
        Key key;
        const char* why;
    } rows[] = {
        {"a", {Kind::character, U'a'}, "a letter"},
        {"ß", {Kind::character, U'ß'}, "two bytes"},
        {"€", {Kind::character, U'€'}, "three bytes"},
        {"\r", {Kind::enter}, "Enter"},
        {"\n", {Kind::enter}, "Enter where the terminal translates it"},
        {"\x1BOM", {Kind::enter}, "Enter of the number block"},
        {"\t", {Kind::tab}, "Tab"},
        {"\x1B[Z", {.kind = Kind::tab, .shift = true}, "Shift-Tab"},
        {"\x7F", {Kind::backspace}, "most terminals"},
        {"\b", {Kind::backspace}, "some terminals"},
        {"\x03", {.kind = Kind::character, .character = U'c', .control = true}, "Ctrl-C"},
        {"\x1B[A", {Kind::up}, "cursor keys"},
        {"\x1BOB", {Kind::down}, "cursor keys in application mode"},
        {"\x1B[H", {Kind::home}, "xterm"},
        {"\x1B[1~", {Kind::home}, "screen, Linux console"},
        {"\x1B[4~", {Kind::end}, "screen, Linux console"},
        {"\x1B[8~", {Kind::end}, "rxvt"},
        {"\x1B[3~", {Kind::remove}, "delete"},
        {"\x1B[6~", {Kind::page_down}, "page down"},
        {"\x1BOP", {Kind::function, 1}, "F1, xterm"},
        {"\x1B[11~", {Kind::function, 1}, "F1, rxvt"},
        {"\x1B[[A", {Kind::function, 1}, "F1, Linux console"},
        {"\x1B[1;2P", {.kind = Kind::function, .character = 1, .shift = true}, "Shift-F1"},
        {"\x1B[1;5D", {.kind = Kind::left, .control = true}, "Ctrl with a cursor key"},
        {"\x1Bv", {.kind = Kind::character, .character = U'v', .alt = true}, "Alt with a letter"},
        {"\x1Bä", {.kind = Kind::character, .character = U'ä', .alt = true}, "Alt with an umlaut"},
        {"\x1B[99~", {}, "a sequence nobody knows is one key"},
        {"\xE2", {}, "a character that breaks off"},
        {"\xFF", {}, "a byte that begins no character"},
    };
    for (const auto& row : rows) {
        KeyDecoder decoder;
        decoder.feed(row.bytes + "x");
        EXPECT_EQ(decoder.next(true), row.key) << row.why;
        EXPECT_EQ(decoder.next(true), (Key{Kind::character, U'x'})) << row.why << ": takes no more";
        EXPECT_FALSE(decoder.waits());
    }
}

TEST(KeyDecoder, WaitsForTheRestOfAKey) {
    for (const std::string start : {"\x1B", "\x1B[", "\x1B[1;2", "\x1BO", "\xE2\x82"}) {
        KeyDecoder decoder;
        decoder.feed(start);
        EXPECT_EQ(decoder.next(true), std::nullopt);
        EXPECT_TRUE(decoder.waits());
    }
}

TEST(KeyDecoder, TakesALoneEscapeForTheKeyWhenNothingFollows) {
    KeyDecoder decoder;
    decoder.feed("\x1B");
    EXPECT_EQ(decoder.next(false), Key{Kind::escape});
    EXPECT_FALSE(decoder.waits());
}

TEST(KeyDecoder, TakesTheFirstOfTwoEscapesAtOnce) {
    KeyDecoder decoder;
    decoder.feed("\x1B\x1B[A");
    EXPECT_EQ(decoder.next(true), Key{Kind::escape});
    EXPECT_EQ(decoder.next(true), Key{Kind::up});
}

TEST(KeyStroke, HasTheVirtualKeyCodes) {
    EXPECT_EQ(key_stroke({Kind::function, 1}).code, key_f1);
    EXPECT_EQ(key_stroke({Kind::escape}).code, 27);
    EXPECT_EQ(key_stroke({Kind::down}).code, 40);
    EXPECT_EQ(key_stroke({Kind::character, U'a'}).code, 65);
    EXPECT_EQ(key_stroke({Kind::character, U'ä'}).code, 0);
    EXPECT_TRUE(key_stroke({.kind = Kind::function, .character = 1, .shift = true}).shift);
}

}  // namespace
}  // namespace prot
