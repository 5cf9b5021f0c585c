#pragma once

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "tests/golden/case_database.h"
#include "tests/terminal/pane.h"

namespace prot::test {

/// A section whose form a person answers at the keyboard.
class SectionForm : public testing::Test {
protected:
    /// word: the section's, in the names of files.
    SectionForm(const std::string& number, const std::string& word)
        : section(number), written_file("out/Prot_" + word + ".csv") {}

    void start_export(const std::string& option = "", const std::string& database = "beispiel.db") {
        pane.start("export --db " + database + " --section " + section + " --out out" + option);
    }

    /// The sample under the name that stands in the golden files.
    void start_export_of_the_golden_sample() {
        std::filesystem::copy_file(pane.path("beispiel.db"), pane.path("log.db"));
        start_export("", "log.db");
    }

    /// What a golden case works on takes the place of the sample.
    void use_database_of(const std::string& golden_case) {
        std::filesystem::remove(pane.path("beispiel.db"));
        make_database(pane.path("beispiel.db"), case_database(golden_cases, golden_case).sql);
    }

    /// Accepts the file name that is proposed, which `screen` shows.
    void write_file(const std::string& screen) const {
        pane.expect_screen(screen);
        pane.press({"Enter"});
        EXPECT_EQ(pane.exit_status(), 0);
        EXPECT_EQ(pane.read("stdout.txt"), written_file + "\n");
    }

    /// The file is byte for byte the one of these answers; the files are too long to be shown.
    void expect_file(const std::string& answers) const {
        const std::string expected = pane.exported_by_answers(section, answers);
        EXPECT_GT(expected.size(), 500U);
        EXPECT_TRUE(pane.read(written_file) == expected);
    }

    void expect_golden_file(const std::string& name) const {
        const std::string expected = read_file(golden_cases / name / "expected.csv");
        ASSERT_NE(expected, "");
        EXPECT_EQ(pane.read(written_file), expected);
    }

    void expect_no_file(int status = 3) const {
        EXPECT_EQ(pane.exit_status(), status);
        EXPECT_EQ(pane.read("stdout.txt"), "");
        EXPECT_FALSE(std::filesystem::exists(pane.path(written_file)));
    }

    const std::filesystem::path golden_cases = std::filesystem::path(PROT_SOURCE_DIR) / "tests" / "golden";
    const std::string section;
    const std::string written_file;
    Pane pane{80, 24};
};

}  // namespace prot::test
