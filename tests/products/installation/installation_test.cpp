#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <regex>
#include <string>
#include <vector>

#include "tests/unit/support/temporary_folder.h"

/// `cmake --install` to a folder of the test's own.
namespace prot {
namespace {

namespace fs = std::filesystem;

class Installation : public testing::Test {
protected:
    Installation() {
        run(PROT_CMAKE " --install '" PROT_BINARY_DIR "' --prefix '" + installed_.string() + "'");
    }

    /// With standard output and standard error in output.txt.
    void run(const std::string& command) const {
        EXPECT_EQ(std::system((command + " >'" + folder_.text("output.txt") + "' 2>&1").c_str()), 0)
            << command << '\n'
            << content_of(folder_ / "output.txt");
    }

    std::vector<std::string> files() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::recursive_directory_iterator(installed_))
            if (entry.is_regular_file()) names.push_back(fs::relative(entry, installed_).string());
        return names;
    }

    const TemporaryFolder folder_;
    const fs::path installed_ = folder_ / "Ziel mit Leerzeichen";
};

std::vector<std::string> expected_files() {
    std::vector<std::string> names{"bin/protcsv",
                                   "share/doc/protcsv/handbuch.md",
                                   "share/doc/protcsv/sql-server.md",
                                   "share/doc/protcsv/CHANGELOG.md",
                                   "share/man/de/man1/protcsv.1",
                                   "share/bash-completion/completions/protcsv",
                                   "share/zsh/site-functions/_protcsv",
                                   "share/fish/vendor_completions.d/protcsv.fish"};
    const fs::path documents = fs::path(PROT_SOURCE_DIR) / "docs";
    for (const auto& entry : fs::directory_iterator(documents / "hilfe"))
        if (entry.path().extension() != ".txt")
            names.push_back("share/protcsv/hilfe/" + entry.path().filename().string());
    for (const auto& entry : fs::directory_iterator(documents / "bilder"))
        names.push_back("share/doc/protcsv/bilder/" + entry.path().filename().string());
    return names;
}

TEST_F(Installation, PutsProgramHelpAndDocumentsWhereTheyBelong) {
    EXPECT_THAT(files(), testing::UnorderedElementsAreArray(expected_files()));
    EXPECT_EQ(content_of(installed_ / "bin/protcsv"), content_of(PROT_PROGRAM)) << "as it was built";
}

TEST_F(Installation, TheHandbookFindsItsPictures) {
    const fs::path documents = installed_ / "share/doc/protcsv";
    const std::string handbook = content_of(documents / "handbuch.md");
    const std::regex link("\\]\\(([^)]*)\\)");
    const std::sregex_iterator links(handbook.begin(), handbook.end(), link), end;
    EXPECT_NE(links, end);
    std::for_each(links, end, [&](const std::smatch& match) {
        EXPECT_TRUE(fs::is_regular_file(documents / match[1].str())) << match[1];
    });
}

TEST_F(Installation, TheInstalledProgramFindsItsHelp) {
    const fs::path program = installed_ / "bin/protcsv";
    run("cd '" + folder_.path().string() + "' && '" + program.string() + "' sample log.db");
    // Help is for persons: it is shown at a terminal alone. Ctrl-D ends the questions, and the run as
    // cancelled.
    run("cd '" + folder_.path().string() +
        "' && printf '??\\n\\004' | script --quiet --return --command \"'" + program.string() +
        "' export --plain --db log.db --section 15 || [ \\$? -eq 3 ]\" typescript");
    EXPECT_THAT(content_of(folder_ / "typescript"), testing::HasSubstr("Das Formular wählt die Währungen"));
}

}  // namespace
}  // namespace prot
