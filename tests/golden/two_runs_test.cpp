#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "tests/golden/program.h"

/// Two runs of the program at the same time.
namespace {

namespace fs = std::filesystem;

std::string read(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

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

}  // namespace
