#include "apps/protcsv/program.h"

#include <algorithm>

#include "apps/protcsv/options/options.h"
#include "tests/unit/apps/protcsv/program_fixture.h"

namespace prot::test {
namespace {

TEST_F(ProgramTest, ShowsTheShortHelpOnStandardErrorWithoutArguments) {
    EXPECT_EQ(run({}), 2);
    EXPECT_EQ(output, "");
    EXPECT_EQ(errors, short_help());
    EXPECT_TRUE(
        errors.starts_with("Exportiert das Stammdatenprotokoll in CSV-Dateien.\n\nAufruf: protcsv BEFEHL"));
}

TEST_F(ProgramTest, AnswersAWrongUseWithOneLineAndStatusTwo) {
    EXPECT_EQ(run({"export", "--db", "x", "--section", "99"}), 2);
    EXPECT_EQ(output, "");
    EXPECT_EQ(errors.find("protcsv: --section: „99“ ist kein Bereich; es gibt: 1 file, 2 error"), 0u);
    EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 1);
}

TEST_F(ProgramTest, ShowsHelpAndVersionOnStandardOutput) {
    EXPECT_EQ(run({"--version"}), 0);
    EXPECT_EQ(output, "protcsv " PROT_VERSION "\n");
    EXPECT_EQ(run({"export", "--help"}), 0);
    EXPECT_NE(output.find("Aufruf: protcsv export --db ZIEL"), std::string::npos);
    EXPECT_EQ(errors, "");
}

TEST_F(ProgramTest, AnswersAMissingDatabaseWithOneLineAndNeverCreatesIt) {
    EXPECT_EQ(run({"export", "--db", path("fehlt.db"), "--section", "file", "--params", "x"}), 1);
    EXPECT_EQ(output, "");
    EXPECT_EQ(errors.find("protcsv: "), 0u);
    EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 1);
    EXPECT_EQ(files(), 0u);
}

}  // namespace
}  // namespace prot::test
