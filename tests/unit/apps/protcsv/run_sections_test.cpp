#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <regex>

#include "sections/section_table.h"
#include "tests/unit/apps/protcsv/program_fixture.h"

/// An export of several sections, on the sample database.
namespace prot::test {
namespace {

using testing::HasSubstr;

class RunSections : public ProgramTest {
protected:
    RunSections() { sections = section_table(); }

    int export_sections(const std::string& list, std::vector<std::string> more) {
        more.insert(more.begin(), {"export", "--db", database(), "--section", list, "--quiet"});
        return run(more);
    }
    bool exists(const std::string& name) const { return std::filesystem::exists(text_path(path(name))); }
};

TEST_F(RunSections, WritesAFileOfEachAndPrintsItsPathInTheirOrder) {
    EXPECT_EQ(export_sections("Devisenkurse, 10", {"--params", "/autostart", "--out", path("aus")}), 0);
    const std::regex paths("[^\n]*Prot_Devisenkurse_[^\n]*\n[^\n]*Prot_Auswertungs_Rahmen_[^\n]*\n");
    EXPECT_TRUE(std::regex_match(output, paths)) << output;
}

TEST_F(RunSections, TakesAllThereAre) {
    for (const char* all : {"all", "alle"}) {
        EXPECT_EQ(export_sections(all, {"--params", "/autostart/mandant:123", "--out", path("aus")}), 0);
        EXPECT_EQ(std::ranges::count(output, '\n'), static_cast<std::ptrdiff_t>(section_table().size()));
    }
}

TEST_F(RunSections, RefusesATextThatDoesNotFitOneBeforeTheFirstFile) {
    EXPECT_EQ(export_sections("15,9", {"--params", "/autostart", "--out", path("aus")}), 2);
    EXPECT_EQ(errors, "protcsv: --params: der Text passt nicht zum Bereich Kunden\n");
    EXPECT_FALSE(exists("aus"));
}

TEST_F(RunSections, EndsWithTheGravestStatusAndGoesOnBehindAnError) {
    const std::vector<std::string> named = {"--params",        "/autostart",  "--from", "2090-01-01",
                                            "--fail-on-empty", "--out",       path(""), "--output",
                                            "{section}",       "--no-clobber"};
    EXPECT_EQ(export_sections("10,15", named), 5);
    std::filesystem::remove(text_path(path("exchange-rates.csv")));
    EXPECT_EQ(export_sections("10,15", named), 1) << "the first file is there already";
    EXPECT_TRUE(exists("exchange-rates.csv"));
}

TEST_F(RunSections, HasFilesOfEachOnly) {
    const struct {
        std::vector<std::string> options;
        const char* line;
    } rows[] = {
        {{"--output", "kurse.csv"}, "--output braucht bei mehreren Bereichen {section} im Namen"},
        {{"--output", "-"}, "--output - gilt nur für einen Bereich"},
        {{"--report", "bericht.json"}, "--report braucht bei mehreren Bereichen {section} im Namen"},
        {{"--report", "-"}, "--report - gilt nur für einen Bereich"},
        {{"--sql-log", "sql.json"}, "--sql-log braucht bei mehreren Bereichen {section} im Namen"},
        {{"--answers", "-"}, "--answers gilt nur für einen Bereich"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(export_sections("10,15", row.options), 2) << row.line;
        EXPECT_THAT(errors, HasSubstr(row.line));
    }
    EXPECT_EQ(export_sections("10,15", {"--params", "/autostart", "--out", path("aus"), "--report",
                                        path("{section}.json"), "--sql-log", path("{section}.sql")}),
              0);
    for (const char* name :
         {"report-frameworks.json", "exchange-rates.json", "report-frameworks.sql", "exchange-rates.sql"})
        EXPECT_TRUE(exists(name)) << name;
}

TEST_F(RunSections, DeletesOneOnly) {
    EXPECT_EQ(run({"delete", "--db", database(), "--section", "6,15", "--params", "/autostart", "--yes"}), 2);
    EXPECT_THAT(errors, HasSubstr("„6,15“ ist kein Bereich"));
}

TEST_F(RunSections, AreNamedOnce) {
    EXPECT_EQ(export_sections("15,Devisenkurse", {"--params", "/autostart"}), 2);
    EXPECT_THAT(errors, HasSubstr("nennt einen Bereich zweimal"));
}

TEST_F(RunSections, EndBehindOneThatAPersonCancels) {
    in_is_terminal = err_is_terminal = true;
    input = "";
    EXPECT_EQ(run({"export", "--db", database(), "--section", "10,15", "--out", path("aus"), "--plain"}), 3);
    EXPECT_EQ(errors.find("Währungscode"), std::string::npos) << errors;
}

}  // namespace
}  // namespace prot::test
