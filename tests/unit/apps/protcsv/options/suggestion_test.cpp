#include "apps/protcsv/options/suggestion.h"

#include <gtest/gtest.h>

namespace prot {
namespace {

const std::vector<std::string_view> names = {"export", "delete", "--db", "--section", "Übertrag", "mandant"};

TEST(Suggestion, IsTheNameThatWasMistyped) {
    const struct {
        const char* text;
        const char* name;
        const char* why;
    } rows[] = {
        {"exprot", "export", "two letters in the wrong order"},
        {"expot", "export", "a letter too few"},
        {"expport", "export", "one too many"},
        {"exxort", "export", "a wrong one"},
        {"EXPORT", "export", "in capitals"},
        {"xepotr", "export", "two mistypings of six letters"},
        {"übertag", "Übertrag", "an umlaut is one letter"},
        {"--dv", "--db", "one of four letters"},
        {"sektion", "", "too far from --section"},
        {"mandnat", "mandant", "in the last of the list"},
        {"deport", "export", "the nearer of two"},
        {"xpotrs", "", "three mistypings of six letters"},
        {"zzzz", "", "nothing like it"},
        {"", "", "nothing at all"},
    };
    for (const auto& row : rows) EXPECT_EQ(likely_meant(row.text, names), row.name) << row.why;
}

TEST(Suggestion, IsTheFirstOfTwoThatAreEquallyNear) {
    EXPECT_EQ(likely_meant("ac", {"ab", "bc"}), "ab");
    EXPECT_EQ(likely_meant("ac", {"bc", "ab"}), "bc");
}

TEST(Suggestion, IsAQuestion) {
    EXPECT_EQ(suggestion("exprot", names), "; meinten Sie export?");
    EXPECT_EQ(suggestion("nichts", names), "");
}

}  // namespace
}  // namespace prot
