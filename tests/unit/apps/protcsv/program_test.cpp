#include "apps/protcsv/program.h"

#include <algorithm>
#include <exception>
#include <new>
#include <streambuf>

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

TEST_F(ProgramTest, FailsWhateverItIsAskedToPrintWhenStandardOutputTakesNothing) {
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"sections"}, {"--version"}, {"--help"}, {"export", "--help"}}) {
        std::istringstream in;
        FullBuffer full;
        std::ostream out(&full);
        std::ostringstream err;
        EXPECT_EQ(run_program(arguments, {in, out, err}, scripted_sections()), 1) << arguments[0];
        EXPECT_EQ(err.str(), "protcsv: Die Standardausgabe lässt sich nicht beschreiben.\n");
    }
}

/// Fails at the first byte that is read or written, with an error of type `Error`.
template <typename Error>
class BrokenBuffer : public std::streambuf {
    int_type underflow() override { throw Error(); }
    int_type overflow(int_type) override { throw Error(); }
};

class Surprise : public std::exception {
public:
    const char* what() const noexcept override { return "Das war nicht vorgesehen."; }
};

TEST_F(ProgramTest, NamesALackOfMemoryWhileItReadsTheAnswers) {
    BrokenBuffer<std::bad_alloc> broken;
    std::istream in(&broken);
    std::ostringstream out, err;
    const std::vector<std::string> arguments = {"export", "--db",      database(), "--section",
                                                "form",   "--answers", "-"};
    EXPECT_EQ(run_program(arguments, {in, out, err}, scripted_sections()), 1);
    EXPECT_EQ(out.str(), "");
    EXPECT_EQ(err.str(), "protcsv: Der Arbeitsspeicher reicht nicht aus.\n");
}

TEST_F(ProgramTest, SaysThatAnErrorWasUnexpectedAndWhatItWas) {
    BrokenBuffer<Surprise> broken;
    std::istringstream in;
    std::ostream out(&broken);
    out.exceptions(std::ios::badbit);
    std::ostringstream err;
    const std::vector<std::string> arguments = {"--version"};
    EXPECT_EQ(run_program(arguments, {in, out, err}, scripted_sections()), 1);
    EXPECT_EQ(err.str(), "protcsv: Unerwarteter Fehler:\nprotcsv: Das war nicht vorgesehen.\n");
}

}  // namespace
}  // namespace prot::test
