#include "platform/portable/screen/columns.h"

#include <gtest/gtest.h>

namespace prot {
namespace {

using Lines = std::vector<std::string>;

TEST(Columns, CountCharactersNotBytes) { EXPECT_EQ(columns("Währung"), 7); }

TEST(Columns, ATextThatIsTooWideEndsWithAnEllipsis) {
    EXPECT_EQ(cut_to("Währung", 7), "Währung");
    EXPECT_EQ(cut_to("Währung", 6), "Währu…");
    EXPECT_EQ(cut_to("Währung", 0), "");
}

TEST(Columns, WhatATerminalWouldObeyBecomesAQuestionMark) {
    EXPECT_EQ(printable("a\x1B[2Jb\tc\xC2\x9B"
                        "d\xFF"),
              "a?[2Jb?c?d?");
}

TEST(Wrapped, BreaksAtBlanksAndWithinAWordThatIsTooLong) {
    EXPECT_EQ(wrapped("ein Wort zu viel", 8), (Lines{"ein Wort", "zu viel"}));
    EXPECT_EQ(wrapped("Währungscode", 5), (Lines{"Währu", "ngsco", "de"}));
}

TEST(Wrapped, KeepsLinesAndTheirIndentation) {
    EXPECT_EQ(wrapped("eins\r\n\r\nzwei\n", 20), (Lines{"eins", "", "zwei"}));
    EXPECT_EQ(wrapped("  ein Wort zu viel", 10), (Lines{"  ein Wort", "  zu viel"}));
    EXPECT_EQ(wrapped("", 20), Lines{""});
}

}  // namespace
}  // namespace prot
