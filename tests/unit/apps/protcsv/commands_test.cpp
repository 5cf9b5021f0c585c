#include "apps/protcsv/commands.h"

#include "tests/unit/apps/protcsv/program_fixture.h"

namespace prot::test {
namespace {

TEST(Commands, ListSectionsInColumns) {
    constexpr Section sections[] = {{9, "customers", "Kunden", nullptr},
                                    {15, "rates", "Devisenkurse", nullptr}};
    std::istringstream in;
    std::ostringstream out, err;
    EXPECT_EQ(print_sections({in, out, err}, sections), exit_done);
    EXPECT_EQ(out.str(), " 9  customers  Kunden\n15  rates      Devisenkurse\n");
}

TEST(Commands, SayThatStandardOutputDoesNotTakeTheText) {
    std::istringstream in;
    std::ostringstream out, err;
    out.setstate(std::ios::badbit);
    EXPECT_EQ(print({in, out, err}, "x\n"), exit_error);
    EXPECT_EQ(err.str(), "protcsv: Die Standardausgabe lässt sich nicht beschreiben.\n");
}

/// Takes every byte and fails when they are to go on, as the standard output does whose disk is full.
class LateBuffer : public std::stringbuf {
    int sync() override { return -1; }
};

TEST(Commands, SayThatStandardOutputTookTheTextButDidNotHandItOn) {
    std::istringstream in;
    LateBuffer late;
    std::ostream out(&late);
    std::ostringstream err;
    EXPECT_EQ(print({in, out, err}, "x\n"), exit_error);
    EXPECT_EQ(late.str(), "x\n");
    EXPECT_EQ(err.str(), "protcsv: Die Standardausgabe lässt sich nicht beschreiben.\n");
}

TEST_F(ProgramTest, ASampleShowsOnATerminalHowFarItIs) {
    err_is_terminal = true;
    EXPECT_EQ(run({"sample", path("s.db"), "--rows", "2000"}), 0);
    EXPECT_TRUE(errors.starts_with("\r[........................................] 0 %, 0 von 2 000"))
        << errors;
    EXPECT_TRUE(errors.ends_with(" \r")) << "wiped at the end";
    err_is_terminal = false;
    EXPECT_EQ(run({"sample", path("t.db")}), 0);
    EXPECT_EQ(errors, "");
}

TEST_F(ProgramTest, WritesASampleDatabaseAndPrintsItsPath) {
    EXPECT_EQ(run({"sample", path("s.db")}), 0);
    EXPECT_EQ(output, path("s.db") + "\n");
    EXPECT_EQ(errors, "");
    EXPECT_EQ(read("s.db").substr(0, 15), "SQLite format 3");
    EXPECT_EQ(files(), 1u);
}

TEST_F(ProgramTest, ReplacesAnExistingFileByASampleOnlyWhenAsked) {
    write("s.db", "wichtig");
    EXPECT_EQ(run({"sample", path("s.db")}), 1);
    EXPECT_EQ(errors, "protcsv: Die Datei „" + path("s.db") + "“ gibt es schon; --overwrite ersetzt sie.\n");
    EXPECT_EQ(read("s.db"), "wichtig");
    EXPECT_EQ(run({"sample", path("s.db"), "--overwrite"}), 0);
    EXPECT_EQ(read("s.db").substr(0, 15), "SQLite format 3");
}

TEST_F(ProgramTest, ReplacesAnEmptyFileAndAnEarlierSampleUnasked) {
    write("s.db", "");
    EXPECT_EQ(run({"sample", path("s.db")}), 0);
    const std::string first = read("s.db");
    EXPECT_EQ(run({"sample", path("s.db"), "--seed", "2"}), 0);
    EXPECT_NE(read("s.db"), first);
    write("kurz.db", "SQLite format 3");
    EXPECT_EQ(run({"sample", path("kurz.db")}), 1) << "too short to bear the mark";
}

TEST_F(ProgramTest, NeverReplacesAFolderByASample) {
    EXPECT_EQ(run({"sample", path(""), "--overwrite"}), 1);
    EXPECT_EQ(errors, "protcsv: „" + path("") + "“ ist keine gewöhnliche Datei.\n");
}

TEST_F(ProgramTest, LeavesNothingWhenASampleCannotBeWritten) {
    EXPECT_EQ(run({"sample", path("fehlt/s.db")}), 1);
    EXPECT_EQ(errors.find("protcsv: "), 0u);
    EXPECT_EQ(output, "");
    EXPECT_EQ(files(), 0u);
}

TEST_F(ProgramTest, ListsTheSections) {
    EXPECT_EQ(run({"sections"}), 0);
    EXPECT_TRUE(output.starts_with(" 1  file        Datei\n 2  error       Fehler\n")) << output;
    EXPECT_EQ(errors, "");
}

TEST_F(ProgramTest, NamesTheFolderThatIsMissingForASample) {
    EXPECT_EQ(run({"sample", path("fehlt/s.db")}), 1);
    EXPECT_EQ(errors, "protcsv: Den Ordner „" + path("fehlt") + "“ gibt es nicht.\n");
}

TEST_F(ProgramTest, TellsOfASampleWhoseNameDoesNotReachStandardOutput) {
    std::istringstream in;
    std::ostringstream out, err;
    out.setstate(std::ios::badbit);
    const std::vector<std::string> arguments = {"sample", path("s.db")};
    EXPECT_EQ(run_program(arguments, {in, out, err}, scripted_sections()), 1);
    EXPECT_EQ(err.str(), "protcsv: Die Standardausgabe lässt sich nicht beschreiben.\n");
}

}  // namespace
}  // namespace prot::test
