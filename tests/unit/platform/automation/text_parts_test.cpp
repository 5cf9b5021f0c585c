#include "platform/automation/text_parts.h"

#include <gtest/gtest.h>

namespace prot {
namespace {

using Parts = std::vector<std::string>;

TEST(TextParts, TrimTakesBlanksOnly) {
    EXPECT_EQ(trim_blanks("  a b  "), "a b");
    EXPECT_EQ(trim_blanks("\ta\n"), "\ta\n");
    EXPECT_EQ(trim_blanks("   "), "");
    EXPECT_EQ(trim_blanks(""), "");
}

TEST(TextParts, SplitKeepsEmptyParts) {
    EXPECT_EQ(split("", '/'), Parts{""});
    EXPECT_EQ(split("a", '/'), Parts{"a"});
    EXPECT_EQ(split("/a//b/", '/'), (Parts{"", "a", "", "b", ""}));
}

TEST(TextParts, AppendsEachDelimiterTwice) {
    std::string text = "x";
    append_doubled(text, "a\"b\"\"", '"');
    EXPECT_EQ(text, "xa\"\"b\"\"\"\"");
    append_doubled(text, "", '"');
    EXPECT_EQ(text, "xa\"\"b\"\"\"\"");
}

TEST(TextParts, QuotesBehindWhatIsThere) {
    std::string text = "N";
    append_quoted(text, "it's", '\'');
    EXPECT_EQ(text, "N'it''s'");
}

}  // namespace
}  // namespace prot
