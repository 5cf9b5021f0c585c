#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "tests/golden/program.h"

/// The report of a run, read by a program that is not ours: check_report.py.
namespace {

namespace fs = std::filesystem;

std::string text_of(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

class Report : public testing::TestWithParam<std::string> {};

TEST_P(Report, AgreesWithFileStatementsAndDatabase) {
    const fs::path work = fs::temp_directory_path() / ("report-" + std::to_string(getpid()));
    fs::create_directories(work);
    const std::string program = prot::test::program_command();
    const std::string source = PROT_SOURCE_DIR;
    std::ofstream(work / "script")
        << "set -e; cd '" << work.string() << "'; " << program << " sample log.db >/dev/null; " << program
        << " export --db log.db " << GetParam()
        << " --quiet --report report.json --sql-log sql.json --output file.csv >/dev/null; "
        << "python3 '" << source << "/tests/golden/check_report.py' report.json sql.json log.db '" << source
        << "/docs/handbuch.md' >problems";
    EXPECT_EQ(
        std::system(
            ("bash '" + (work / "script").string() + "' 2>'" + (work / "errors").string() + "'").c_str()),
        0)
        << text_of(work / "problems") << text_of(work / "errors");
    fs::remove_all(work);
}

INSTANTIATE_TEST_SUITE_P(Sections, Report,
                         testing::Values("--section 15 --params /autostart",
                                         "--section 10 --params /autostart",
                                         "--section 6 --params /autostart/vonkonto:1/biskonto:999999999",
                                         "--section 8 --params /autostart/mandant:1",
                                         "--section 9 --params /autostart/mandant:1",
                                         "--section 15 --from 2050-01-01 --params /autostart"));

}  // namespace
