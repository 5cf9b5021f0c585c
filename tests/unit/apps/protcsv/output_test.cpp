#include <algorithm>

#include "tests/unit/apps/protcsv/program_fixture.h"

/// Where an export writes to: --output, --no-clobber.
namespace prot::test {
namespace {

class Output : public ProgramTest {
protected:
    int export_to(const std::string& output_name, std::vector<std::string> more = {},
                  const std::string& section = "file") {
        more.insert(more.end(), {"--output", output_name, "--out", path(""), "--encoding", "utf-8"});
        return run_section("export", section, more);
    }
    int export_batch_to(const std::string& output_name, std::vector<std::string> more = {}) {
        more.insert(more.end(), {"--params", "/autostart"});
        return export_to(output_name, more);
    }
    const std::string line = "1;;00:00:00;00:00:00;7;/autostart;exportieren\r\n";
};

TEST_F(Output, IsTheFileOfThatNameWhichIsReplacedWhole) {
    write("kurse.csv", std::string(10'000, 'x'));
    EXPECT_EQ(export_batch_to("kurse.csv"), 0);
    EXPECT_EQ(output, path("kurse.csv") + "\n");
    EXPECT_EQ(read("kurse.csv"), line);
    EXPECT_EQ(files(), 2U) << "the database and the file";
}

TEST_F(Output, AsksNoPersonForAName) {
    EXPECT_EQ(export_to("kurse.csv"), 0) << errors;
    EXPECT_EQ(errors, "");
    EXPECT_EQ(read("kurse.csv"), "1;;00:00:00;00:00:00;7;;exportieren\r\n");
}

TEST_F(Output, OfAnUnattendedRunIsThatFileToo) {
    EXPECT_EQ(run({"run", "--db", database(), "--params", "/sektion:1/autostart/mandant:k7", "--output",
                   path("neu/{section}-{client}.csv")}),
              0)
        << errors;
    EXPECT_EQ(output, path("neu/file-k7.csv") + "\n") << "its folder is made";
}

TEST_F(Output, GetsAnEndingWhereItHasNone) {
    EXPECT_EQ(export_batch_to("{section}"), 0);
    EXPECT_EQ(output, path("file.csv") + "\n");
}

TEST_F(Output, IsRefusedBeforeTheRunWhenItIsNotToReplaceTheFile) {
    write("kurse.csv", "alt");
    EXPECT_EQ(export_batch_to("kurse", {"--no-clobber", "--sql-log", path("log")}), 1);
    EXPECT_EQ(errors, "protcsv: Die Datei „" + path("kurse.csv") +
                          "“ gibt es schon; ohne --no-clobber wird sie ersetzt.\n");
    EXPECT_EQ(read("kurse.csv"), "alt");
    EXPECT_FALSE(std::filesystem::exists(text_path(path("log")))) << "before any statement";
    EXPECT_EQ(export_batch_to("neu.csv", {"--no-clobber"}), 0);
    EXPECT_EQ(read("neu.csv"), line);
}

TEST_F(Output, NeverTakesThePlaceOfAnotherFileOfTheRun) {
    write("antworten", "\n");
    const std::string log = path("x.db"), answers = path("antworten");
    const struct {
        std::string output;
        const char* what;
    } cases[] = {{"x.db", "die Datenbank selbst"},
                 {"antworten.txt", "die Datei der Antworten"},
                 {"log.csv", "die Datei von --sql-log"},
                 {"bericht.json", "die Datei von --report"}};
    write("antworten.txt", "\n");
    const std::string before = (database(), read("x.db"));
    for (const auto& row : cases) {
        EXPECT_EQ(export_batch_to(row.output, {"--answers", path("antworten.txt"), "--sql-log",
                                               path("log.csv"), "--report", path("bericht.json")}),
                  2)
            << row.output;
        EXPECT_EQ(errors, "protcsv: --output: „" + path(row.output) + "“ ist " + row.what + "\n");
    }
    EXPECT_EQ(read("x.db"), before);
    EXPECT_EQ(read("antworten.txt"), "\n");
}

TEST_F(Output, NamesAClientOnlyWhereTheParametersDo) {
    EXPECT_EQ(export_to("{client}.csv"), 2);
    EXPECT_EQ(errors, "protcsv: --output: {client} braucht --params mit autostart\n");
    EXPECT_EQ(export_batch_to("{client}.csv"), 0);
    EXPECT_EQ(output, path("alle.csv") + "\n");
}

TEST_F(Output, IsStandardOutputWithNothingBesideTheFile) {
    EXPECT_EQ(export_batch_to("-"), 0);
    EXPECT_EQ(output, line);
    EXPECT_EQ(files(), 1U) << "only the database";
    EXPECT_EQ(export_to("-", {"--params", "/autostart"}, "half"), 1);
    EXPECT_EQ(export_to("-", {"--params", "/autostart"}, "lookups"), 4);
}

TEST_F(Output, FailsWhenStandardOutputTakesNothing) {
    std::istringstream in;
    FullBuffer full;
    std::ostream out(&full);
    std::ostringstream err;
    const std::vector<std::string> arguments = {"export",   "--db",       database(), "--section", "file",
                                                "--params", "/autostart", "--output", "-"};
    EXPECT_EQ(run_program(arguments, {in, out, err}, scripted_sections()), 1);
    EXPECT_NE(err.str().find("Die Standardausgabe lässt sich nicht beschreiben."), std::string::npos)
        << err.str();
}

}  // namespace
}  // namespace prot::test
