#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>

#include "tests/golden/program.h"

/// Runs of the program at the same time.
namespace {

namespace fs = std::filesystem;

using prot::test::read;

TEST(TwoRuns, WriteTheSameFileOneAfterTheOtherAndLeaveItWhole) {
    const fs::path work = fs::temp_directory_path() / ("two-runs-" + std::to_string(getpid()));
    fs::create_directories(work);
    const std::string program = prot::test::program_command();
    const std::string run = program + " export --db log.db --section 15 --quiet --answers answers.txt --out ";
    const std::string script =
        "set -em; cd '" + work.string() + "'; " + program +
        " sample log.db --section 15 --rows 20000 >/dev/null; printf '\\n\\n\\n' >answers.txt; " + run +
        "alone >/dev/null 2>&1; " + run + "both >first & " + run + "both >second & wait %1; wait %2";
    std::ofstream(work / "script") << script;
    EXPECT_EQ(std::system(
                  ("bash '" + (work / "script").string() + "' 2>'" + (work / "err").string() + "'").c_str()),
              0)
        << read(work / "err");
    EXPECT_EQ(prot::test::with_own_paths(read(work / "first"), "both"), "both/Prot_Devisenkurse.csv\n");
    EXPECT_EQ(prot::test::with_own_paths(read(work / "second"), "both"), "both/Prot_Devisenkurse.csv\n");
    EXPECT_FALSE(read(work / "alone/Prot_Devisenkurse.csv").empty());
    EXPECT_TRUE(read(work / "both/Prot_Devisenkurse.csv") == read(work / "alone/Prot_Devisenkurse.csv"));
    EXPECT_EQ(std::distance(fs::directory_iterator(work / "both"), fs::directory_iterator()), 1)
        << "left behind";
    fs::remove_all(work);
}

TEST(ManyRuns, KeepTheirFilesWhenTheyBeginInTheSameSecond) {
    // A program of Windows takes longer to start; fewer of them meet there.
    const int runs = std::getenv("PROT_PROGRAM_COMMAND") == nullptr ? 200 : 8;
    const fs::path work = fs::temp_directory_path() / ("many-runs-" + std::to_string(getpid()));
    fs::create_directories(work);
    const std::string program = prot::test::program_command();
    std::ofstream(work / "script") << "cd '" << work.string() << "'; " << program
                                   << " sample log.db --section 15 --rows 20 >/dev/null; for i in $(seq "
                                   << runs << "); do " << program
                                   << " export --db log.db --section 15 --params /autostart --quiet --out out"
                                   << " >>told 2>>errors & done; wait";
    EXPECT_EQ(std::system(("bash '" + (work / "script").string() + "'").c_str()), 0);
    EXPECT_EQ(read(work / "errors"), "");
    std::set<std::string> told;
    std::istringstream lines(prot::test::with_own_paths(read(work / "told"), "out"));
    for (std::string line; std::getline(lines, line);) told.insert(line);
    EXPECT_EQ(told.size(), static_cast<std::size_t>(runs)) << "each tells a name of its own";
    std::set<std::string> contents;
    int files = 0;
    for (const fs::directory_entry& entry : fs::directory_iterator(work / "out")) {
        ++files;
        contents.insert(read(entry.path()));
        EXPECT_EQ(told.count("out/" + entry.path().filename().string()), 1U) << entry.path();
    }
    EXPECT_EQ(files, runs);
    EXPECT_EQ(contents.size(), 1U) << "each file is whole";
    fs::remove_all(work);
}

}  // namespace
