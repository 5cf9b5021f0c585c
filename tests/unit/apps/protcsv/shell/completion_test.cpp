#include <gtest/gtest.h>

#include <string>

#include "apps/protcsv/options/option_table.h"
#include "apps/protcsv/shell/value_kinds.h"
#include "tests/unit/apps/protcsv/program_fixture.h"

/// What the shells make of these texts is tested in tests/products/shells.
namespace prot::test {
namespace {

using Completion = ProgramTest;

struct ShellRow {
    const char* shell;
    const char* option;  ///< what an option begins with
    const char* words;   ///< the words of an option's list
};

constexpr ShellRow shells[] = {
    {"bash", "--", "_protcsv_words \"utf-8-bom utf-8 windows-1252\""},
    {"zsh", "'--", ":KODIERUNG:(utf-8-bom utf-8 windows-1252)'"},
    {"fish", " -l ", " -x -a 'utf-8-bom utf-8 windows-1252'"},
};

TEST_F(Completion, NamesEveryCommandOptionAndListedValue) {
    for (const ShellRow& row : shells) {
        ASSERT_EQ(run({"completion", row.shell}), 0) << errors;
        for (const CommandRow& command : command_table())
            EXPECT_NE(output.find(command.name), std::string::npos) << row.shell << ' ' << command.name;
        for (const OptionRow& option : option_table()) {
            if (option.is_positional() || option.group.empty()) continue;
            const std::string name = row.option + std::string(option.name.substr(2));
            EXPECT_NE(output.find(name), std::string::npos) << row.shell << ' ' << name;
        }
        EXPECT_NE(output.find(row.words), std::string::npos) << row.shell;
        EXPECT_NE(output.find(sections.front().name), std::string::npos) << row.shell;
    }
}

TEST_F(Completion, KnowsTheValuesOfEveryOption) {
    for (const OptionRow& option : option_table()) {
        if (option.is_flag()) continue;
        EXPECT_EQ(values_called(option.value_name).value_name, option.value_name) << option.name;
    }
}

TEST_F(Completion, IsRefusedForAnotherShell) {
    EXPECT_EQ(run({"completion", "tcsh"}), 2);
    EXPECT_EQ(errors,
              "protcsv: SHELL: „tcsh“ ist keine Shell, für die es eine Vervollständigung gibt; erwartet wird "
              "bash, zsh oder fish (Hilfe: protcsv completion --help)\n");
}

TEST_F(Completion, ManualPageNamesEverySection) {
    ASSERT_EQ(run({"man"}), 0) << errors;
    for (const Section& section : sections)
        EXPECT_NE(
            output.find("\n" + std::string(section.title) + " (" + std::to_string(section.number) + ")\n"),
            std::string::npos)
            << section.name;
}

}  // namespace
}  // namespace prot::test
