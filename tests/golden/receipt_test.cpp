#include <gtest/gtest.h>

#include "tests/golden/program.h"

/// The receipt of a deletion, read by a program that is not ours: check_receipt.py. The CSV file beside it is
/// that of an export of the same selection before.
namespace {

class Receipt : public testing::TestWithParam<std::string> {};

TEST_P(Receipt, AgreesWithTheArchiveAndWithWhatIsGone) {
    EXPECT_EQ(
        prot::test::problems_of_script(
            "umask 000; PROGRAM sample log.db >/dev/null; cp log.db before.db; PROGRAM export --db log.db " +
            GetParam() + " --quiet --output before.csv >/dev/null; PROGRAM delete --db log.db " + GetParam() +
            " --yes --quiet --archive archive >folder; python3 'SOURCE/tests/golden/check_receipt.py'"
            " \"$(cat folder)\" before.db log.db; cmp before.csv archive/*/*.csv"),
        "");
}

INSTANTIATE_TEST_SUITE_P(Sections, Receipt,
                         testing::Values("--section 15 --to 2026-12-31 --events changed --params /autostart",
                                         "--section 10 --params /autostart",
                                         "--section 6 --params /autostart/vonkonto:1/biskonto:999999999",
                                         "--section 8 --params /autostart/mandant:1",
                                         "--section 9 --params /autostart/mandant:1"));

}  // namespace
