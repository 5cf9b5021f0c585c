#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <regex>
#include <string>

#include "apps/protcsv/options/option_table.h"
#include "tests/unit/support/temporary_folder.h"

/// protcsv(1) as man shows it.
namespace prot::test {
namespace {

const std::string page = std::string(PROT_SHARE) + "/man/de/man1/protcsv.1";

class ManualPage : public testing::Test {
protected:
    /// What the command says about the page, on both streams.
    std::string said_by(const std::string& command) const {
        const std::string whole =
            "LC_ALL=C.UTF-8 " + command + " '" + page + "' >'" + folder_.text("said") + "' 2>&1";
        EXPECT_EQ(std::system(whole.c_str()), 0) << whole << '\n' << content_of(folder_ / "said");
        return content_of(folder_ / "said");
    }

    /// The page without the overstriking by which a terminal shows bold letters.
    std::string shown() const {
        return std::regex_replace(said_by("mandoc -T utf8 -O width=110"), std::regex(".\x08"), "");
    }

    const TemporaryFolder folder_;
};

TEST_F(ManualPage, HasNoFaultOfFormThatMandocKnows) {
    // The page has no date, so that each build gives the same bytes.
    EXPECT_EQ(said_by("sh -c 'mandoc -T lint -W warning \"$0\" | grep -v \"missing date\" || true'"), "");
}

TEST_F(ManualPage, HasNoFaultOfFormThatGroffKnows) {
    EXPECT_EQ(said_by("groff -K utf8 -T utf8 -man -ww -z"), "");
}

TEST_F(ManualPage, ShowsEveryCommandAndOption) {
    const std::string text = shown();
    for (const CommandRow& row : command_table()) {
        EXPECT_THAT(text, testing::HasSubstr("protcsv " + std::string(row.name)));
        EXPECT_THAT(text, testing::HasSubstr(std::string(row.summary) + '.'));
    }
    for (const OptionRow& row : option_table()) {
        if (row.group.empty() || row.is_positional()) continue;
        EXPECT_THAT(text, testing::HasSubstr("\n       " + std::string(row.name) +
                                             (row.is_flag() ? "" : " " + std::string(row.value_name))));
    }
}

}  // namespace
}  // namespace prot::test
