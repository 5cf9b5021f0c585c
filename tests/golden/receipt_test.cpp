#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "tests/golden/program.h"

/// The receipt of a deletion, read by a program that is not ours: check_receipt.py. The CSV file beside it is
/// that of an export of the same selection before.
namespace {

namespace fs = std::filesystem;

std::string bytes_of(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

class Receipt : public testing::TestWithParam<std::string> {};

TEST_P(Receipt, AgreesWithTheArchiveAndWithWhatIsGone) {
    const fs::path work = fs::temp_directory_path() / ("receipt-" + std::to_string(getpid()));
    fs::create_directories(work);
    const std::string program = prot::test::program_command();
    const std::string source = PROT_SOURCE_DIR;
    std::ofstream(work / "script")
        << "set -e; umask 000; cd '" << work.string() << "'; " << program << " sample log.db >/dev/null; "
        << "cp log.db before.db; " << program << " export --db log.db " << GetParam()
        << " --quiet --output before.csv >/dev/null; " << program << " delete --db log.db " << GetParam()
        << " --yes --quiet --archive archive >folder; python3 '" << source
        << "/tests/golden/check_receipt.py' \"$(cat folder)\" before.db log.db >problems; "
        << "cmp before.csv archive/*/*.csv >>problems";
    EXPECT_EQ(
        std::system(
            ("bash '" + (work / "script").string() + "' 2>'" + (work / "errors").string() + "'").c_str()),
        0)
        << bytes_of(work / "problems") << bytes_of(work / "errors");
    fs::remove_all(work);
}

INSTANTIATE_TEST_SUITE_P(Sections, Receipt,
                         testing::Values("--section 15 --to 2026-12-31 --events changed --params /autostart",
                                         "--section 10 --params /autostart",
                                         "--section 6 --params /autostart/vonkonto:1/biskonto:999999999",
                                         "--section 8 --params /autostart/mandant:1",
                                         "--section 9 --params /autostart/mandant:1"));

}  // namespace
