#include <gtest/gtest.h>

#include "tests/golden/program.h"

/// Every statement that the golden cases send, held against an independent parser of T-SQL and the tables of
/// the sample script: check_statements.py.
namespace {

// The parser is a module of the system's own Python.
const std::string check =
    "PROGRAM sample script.sql --sql >/dev/null; /usr/bin/python3 "
    "'SOURCE/tests/golden/check_statements.py' script.sql ";

TEST(Statements, AreTransactSqlAboutColumnsThatExist) {
    EXPECT_EQ(prot::test::problems_of_script(check + "SOURCE/tests/golden/*/expected.sql"), "");
}

TEST(Statements, AreNotJudgedByAnybodyWhoTakesEverything) {
    const std::string wrong[] = {
        "SELECT dcFehlt FROM tProtokoll",
        "SELECT dcUser FROM tFehlt",
        "SELECT dcUser FROM tProtokoll WHERE dcUser = 'O'Brien'",
        "SELECT dcUser FROM tProtokoll WHERE (dlEvent = 1",
        "SELECT dcUser FROM tProtokoll; SELECT dcUser FROM tProtokoll",
        "DELETE tProtokoll WHERE dcFehlt = 'x'",
        "UPDATE tProtokoll SET dlEvent = 1",
    };
    std::string lines;
    for (const std::string& statement : wrong) lines += "query: " + statement + '\n';
    const std::string problems =
        prot::test::problems_of_script("cat >wrong.sql <<'END'\n" + lines + "END\n" + check +
                                       "SOURCE/tests/golden/*/expected.sql wrong.sql");
    for (const std::string& statement : wrong)
        EXPECT_NE(problems.find("\n    " + statement + '\n'), std::string::npos) << statement << '\n'
                                                                                 << problems;
}

}  // namespace
