#include <gtest/gtest.h>

#include "tests/golden/program.h"

/// The report of a run, read by a program that is not ours: check_report.py.
namespace {

class Report : public testing::TestWithParam<std::string> {};

TEST_P(Report, AgreesWithFileStatementsAndDatabase) {
    EXPECT_EQ(prot::test::problems_of_script(
                  "PROGRAM sample log.db >/dev/null; PROGRAM export --db log.db " + GetParam() +
                  " --quiet --report report.json --sql-log sql.json --output file.csv >/dev/null;"
                  " python3 'SOURCE/tests/golden/check_report.py' report.json sql.json log.db "
                  "'SOURCE/docs/handbuch.md'"),
              "");
}

INSTANTIATE_TEST_SUITE_P(Sections, Report,
                         testing::Values("--section 15 --params /autostart",
                                         "--section 10 --params /autostart",
                                         "--section 6 --params /autostart/vonkonto:1/biskonto:999999999",
                                         "--section 8 --params /autostart/mandant:1",
                                         "--section 9 --params /autostart/mandant:1",
                                         "--section 15 --from 2050-01-01 --params /autostart"));

}  // namespace
