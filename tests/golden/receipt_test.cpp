#include <gtest/gtest.h>

#include "tests/golden/program.h"

/// The receipt of a deletion, read by a program that is not ours: check_receipt.py. The CSV file beside it is
/// that of an export of the same selection before.
namespace {

class Receipt : public testing::TestWithParam<std::string> {
protected:
    /// way: what stands before the database's name.
    static std::string problems(const std::string& way) {
        const std::string selection = " --db '" + way + "log.db' " + GetParam();
        return prot::test::problems_of_script(
            "umask 000; PROGRAM sample log.db >/dev/null; cp log.db before.db; PROGRAM export" + selection +
            " --quiet --output before.csv >/dev/null; PROGRAM delete" + selection +
            " --yes --quiet --archive archive >folder; python3 'SOURCE/tests/golden/check_receipt.py'"
            " \"$(cat folder)\" before.db log.db; cmp before.csv archive/*/*.csv");
    }
};

TEST_P(Receipt, AgreesWithTheArchiveAndWithWhatIsGone) { EXPECT_EQ(problems(""), ""); }

TEST_P(Receipt, AgreesWithThemThroughOdbc) { EXPECT_EQ(problems("odbc:Driver=SQLite3;Database="), ""); }

INSTANTIATE_TEST_SUITE_P(Sections, Receipt,
                         testing::Values("--section 15 --to 2026-12-31 --events changed --params /autostart",
                                         "--section 10 --params /autostart",
                                         "--section 6 --params /autostart/vonkonto:1/biskonto:999999999",
                                         "--section 8 --params /autostart/mandant:1",
                                         "--section 9 --params /autostart/mandant:1"));

}  // namespace
