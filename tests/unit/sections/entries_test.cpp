#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>

#include "apps/protcsv/sample/sample_sections.h"
#include "sections/section_table.h"
#include "tests/unit/sections/shown_form.h"

/// A section stands wherever the others do, so that none is half there. docs/development.md says what goes
/// into each place.
namespace prot {
namespace {

namespace fs = std::filesystem;

const fs::path root = PROT_SOURCE_DIR;

std::string read(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

bool has_line(const std::string& text, const std::string& pattern) {
    return std::regex_search(text, std::regex("(^|\n)" + pattern + "\r?(\n|$)"));
}

class EverySection : public testing::TestWithParam<Section> {
protected:
    const Section& section = GetParam();
    const std::string number = std::to_string(section.number);
    const std::string name{section.name}, title{section.title};
};

TEST_P(EverySection, HasARowInTheSampleDatabase) {
    EXPECT_EQ(std::ranges::count(sample::section_kinds(), section.number, &sample::SectionKind::number), 1)
        << "apps/protcsv/sample/sample_sections.cpp";
}

TEST_P(EverySection, HasGoldenCases) {
    const std::regex asked("(--section |sektion:)(" + number + "|" + name + ")\\b");
    EXPECT_TRUE(std::ranges::any_of(fs::directory_iterator(root / "tests/golden"),
                                    [&asked](const fs::directory_entry& entry) {
                                        return std::regex_search(read(entry.path() / "command.txt"), asked);
                                    }));
}

TEST_P(EverySection, StandsInTheListOfTheScripts) {
    const std::string parameters = "(/[^ ]+ +){2}";
    EXPECT_TRUE(has_line(read(root / "scripts/sections.txt"),
                         number + " +" + name + " +[A-Za-z_]+ +" + parameters + title))
        << "scripts/sections.txt";
}

TEST_P(EverySection, HasAPartOfTheHandbook) {
    EXPECT_TRUE(
        has_line(read(root / "docs/handbuch.md"), "### ([^\n]* )?" + title + " \\(" + number + "\\)[^\n]*"))
        << "docs/handbuch.md";
}

TEST_P(EverySection, HasAPageOfHelp) {
    const std::optional<Form> form = test::shown_form(section);
    ASSERT_TRUE(form);
    const std::string map = read(root / "docs/hilfe/mivra_allgemein.xml");
    std::smatch found;
    ASSERT_TRUE(std::regex_search(map, found, std::regex("id=\"" + form->help_id + "\" seite=\"([^\"]+)\"")))
        << form->help_id;
    EXPECT_TRUE(fs::exists(root / "docs/hilfe" / found[1].str())) << found[1];
}

INSTANTIATE_TEST_SUITE_P(Sections, EverySection, testing::ValuesIn(section_table()),
                         [](const auto& section) { return test::test_name(section.param); });

TEST(SectionTable, IsInNumberOrderWithoutTwoOfANumberOrName) {
    const SectionTable table = section_table();
    EXPECT_TRUE(std::ranges::is_sorted(table, {}, &Section::number));
    for (const Section& section : table) {
        EXPECT_EQ(std::ranges::count(table, section.number, &Section::number), 1) << section.number;
        EXPECT_EQ(std::ranges::count(table, section.name, &Section::name), 1) << section.name;
    }
}

}  // namespace
}  // namespace prot
