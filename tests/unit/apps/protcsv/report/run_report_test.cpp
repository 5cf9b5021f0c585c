#include <nlohmann/json.hpp>

#include "apps/protcsv/report/report_text.h"
#include "platform/portable/files/sha256.h"
#include "tests/unit/apps/protcsv/program_fixture.h"

namespace prot::test {
namespace {

using Json = nlohmann::json;

class RunReportTest : public ProgramTest {
protected:
    int export_batch(const std::string& section, std::vector<std::string> more = {}) {
        more.insert(more.end(), {"--params", "/autostart", "--out", path("out"), "--report", path("r.json")});
        return run_section("export", section, more);
    }
    Json report() const { return Json::parse(read("r.json")); }
};

TEST_F(RunReportTest, SaysWhatWasAskedWhatWasReadAndWhatWasWritten) {
    EXPECT_EQ(export_batch("records", {"--user", "O'Brien", "--from", "2026-01-31", "--events", "5",
                                       "--encoding", "utf-8"}),
              0)
        << errors;
    const Json written = report();
    EXPECT_EQ(written["report"], 1);
    EXPECT_EQ(written["program"], "protcsv");
    EXPECT_EQ(written["version"], PROT_VERSION);
    EXPECT_EQ(written["command"], "export");
    EXPECT_EQ(written["status"], 0);
    EXPECT_EQ(written["outcome"], "written");
    EXPECT_EQ(written["message"], "");
    EXPECT_EQ(written["section"], Json::parse(R"({"number": 19, "name": "records", "title": "Sätze"})"));
    EXPECT_EQ(written["asked"], Json::parse(R"({"user": "O'Brien", "from": "2026-01-31", "to": null,
        "events": ["created", "deleted"], "parameters": "/autostart"})"));
    EXPECT_EQ(written["understood"], "Alles von Max");
    EXPECT_EQ(written["statements"], 1);
    EXPECT_EQ(written["records"], 2);
    EXPECT_EQ(written["lines"], 3);
    EXPECT_EQ(written["records_without_line"],
              Json::parse(
                  R"({"count": 1, "reasons": [{"reason": "without_changes", "count": 1, "records": [2]}]})"));
    EXPECT_EQ(written["listed_at_most"], 1000);
    const std::string file = read("out/Prot.csv");
    EXPECT_EQ(written["file"]["bytes"], file.size());
    Sha256 sum;
    sum.add(file);
    EXPECT_EQ(written["file"]["sha256"], sum.hexadecimal());
    EXPECT_TRUE(std::filesystem::equivalent(text_path(written["file"]["path"].get<std::string>()),
                                            text_path(path("out/Prot.csv"))));
    EXPECT_TRUE(std::filesystem::equivalent(text_path(written["database"].get<std::string>()),
                                            text_path(database())));
}

TEST_F(RunReportTest, NamesWhatWasLeftOut) {
    EXPECT_EQ(export_batch("lookups", {"--encoding", "windows-1252", "--user", "Ω"}), 4);
    const Json written = report();
    EXPECT_EQ(written["status"], 4);
    EXPECT_EQ(written["outcome"], "incomplete");
    EXPECT_EQ(written["message"], "Geschrieben, aber unvollständig.");
    EXPECT_EQ(
        written["fields_without_caption"],
        Json::parse(R"({"count": 1, "columns": 1, "first": [{"table": "T", "column": "f", "count": 1}]})"));
    EXPECT_EQ(written["failed_lookups"], Json::parse(R"({"count": 1, "first": "Es fehlt tX."})"));
    EXPECT_EQ(written["records_without_line"]["reasons"][0]["reason"], "unreadable_document");
    EXPECT_EQ(written["records_without_line"]["reasons"][0]["records"], Json::parse("[5]"));
    EXPECT_EQ(written["replaced_characters"],
              Json::parse(R"({"count": 1, "first": [{"line": 1, "column": 2, "character": "Ω"}]})"));
}

TEST_F(RunReportTest, IsWrittenForEveryOutcome) {
    const struct {
        const char* section;
        std::vector<std::string> more;
        int status;
        const char* outcome;
        const char* message;
    } cases[] = {
        {"box", {}, 0, "no_data", "Keine Daten vorhanden!"},
        {"box", {"--fail-on-empty"}, 5, "no_data", "Keine Daten vorhanden!"},
        {"error", {}, 1, "failed", "Es ging nicht."},
        {"report", {}, 1, "failed", "Hinweis"},
        {"half", {}, 1, "failed", "Es ging nicht."},
        {"surprise", {}, 1, "failed", "Interner Fehler: Das war nicht vorgesehen."},
        {"records",
         {"--separator", "→", "--encoding", "windows-1252"},
         2,
         "refused",
         "--separator: windows-1252 kennt das Zeichen „→“ nicht"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(export_batch(row.section, row.more), row.status) << row.section;
        EXPECT_EQ(report()["status"], row.status) << row.section;
        EXPECT_EQ(report()["outcome"], row.outcome) << row.section;
        EXPECT_EQ(report()["message"], row.message) << row.section;
        const bool wrote_file = std::string_view(row.section) == "report";
        EXPECT_EQ(report()["file"] != nullptr, wrote_file) << row.section;
    }
}

TEST_F(RunReportTest, IsWrittenForARunThatWasCancelledOrCouldNotAsk) {
    input = "EUR";
    EXPECT_EQ(run_section("export", "form", {"--answers", "-", "--report", path("r.json")}), 3);
    EXPECT_EQ(report()["outcome"], "cancelled");
    EXPECT_EQ(report()["asked"]["parameters"], nullptr);
    EXPECT_EQ(run_section("export", "form", {"--report", path("r.json")}), 2);
    EXPECT_EQ(report()["outcome"], "refused");
    EXPECT_TRUE(report()["message"].get<std::string>().starts_with("Dieser Lauf muss etwas fragen"));
}

TEST_F(RunReportTest, IsWrittenWhenTheDatabaseOrTheParametersCannotBeRead) {
    EXPECT_EQ(run({"export", "--db", path("fehlt.db"), "--section", "file", "--report", path("r.json")}), 1);
    EXPECT_EQ(report()["outcome"], "failed");
    EXPECT_NE(report()["message"], "");
    EXPECT_EQ(
        run({"run", "--db", database(), "--params", "/sektion:1/datbis:bald", "--report", path("r.json")}),
        2);
    EXPECT_EQ(report()["command"], "run");
    EXPECT_EQ(report()["section"], nullptr) << "nothing was understood";
    EXPECT_TRUE(report()["message"].get<std::string>().starts_with("--params: datbis: „bald“"));
}

TEST_F(RunReportTest, TakesThePlaceOfThePathOnStandardOutput) {
    EXPECT_EQ(
        run_section("export", "records", {"--params", "/autostart", "--out", path("out"), "--report", "-"}),
        0);
    EXPECT_EQ(Json::parse(output)["records"], 2);
    EXPECT_EQ(files(), 2U) << "the database and the folder";
}

TEST_F(RunReportTest, KnowsTheBytesThatWentToStandardOutput) {
    EXPECT_EQ(export_batch("records", {"--output", "-"}), 0);
    EXPECT_EQ(report()["file"]["path"], "-");
    EXPECT_EQ(report()["file"]["bytes"], output.size());
    Sha256 sum;
    sum.add(output);
    EXPECT_EQ(report()["file"]["sha256"], sum.hexadecimal());
}

TEST_F(RunReportTest, ReplacesAnEarlierReportAndNothingElse) {
    EXPECT_EQ(export_batch("records"), 0);
    EXPECT_EQ(export_batch("error"), 1);
    EXPECT_EQ(report()["status"], 1) << "the later run's";
    write("r.json", "{\"wichtig\": true}");
    EXPECT_EQ(export_batch("records"), 2);
    EXPECT_EQ(errors, "protcsv: --report: die Datei „" + path("r.json") +
                          "“ gibt es schon, und sie ist kein früherer Bericht\n");
    EXPECT_EQ(read("r.json"), "{\"wichtig\": true}");
}

TEST_F(RunReportTest, NeverTakesThePlaceOfAnotherFileOfTheRun) {
    write("antworten", "");
    const std::string before = (database(), read("x.db"));
    const struct {
        std::string report;
        const char* what;
    } cases[] = {{path("x.db"), "die Datenbank selbst"},
                 {path("antworten"), "die Datei der Antworten"},
                 {path("log"), "die Datei von --sql-log"}};
    for (const auto& row : cases) {
        EXPECT_EQ(
            run_section("export", "form",
                        {"--answers", path("antworten"), "--sql-log", path("log"), "--report", row.report}),
            2);
        EXPECT_EQ(errors, "protcsv: --report: „" + row.report + "“ ist " + row.what + "\n");
    }
    EXPECT_EQ(read("x.db"), before);
    EXPECT_EQ(read("antworten"), "");
}

TEST_F(RunReportTest, KeepsTheFileOfAPersonFromItsPlace) {
    input = "EUR\nr.json\n";
    EXPECT_EQ(
        run_section("export", "form", {"--answers", "-", "--out", path(""), "--report", path("r.json")}), 1);
    EXPECT_EQ(report()["outcome"], "failed");
    EXPECT_EQ(report()["message"],
              "Die Datei „" + path("r.json") +
                  "“ kann nicht geschrieben werden: der Lauf selbst braucht diese Datei.");
}

TEST_F(RunReportTest, EndsTheRunBeforeItBeginsWhereItCannotBeWritten) {
    EXPECT_EQ(run_section("export", "records",
                          {"--params", "/autostart", "--out", path("out"), "--sql-log", path("log"),
                           "--report", path("fehlt/r.json")}),
              1);
    EXPECT_EQ(errors, "protcsv: Die Datei „" + path("fehlt/r.json") +
                          "“ kann nicht geschrieben werden: der Ordner ist nicht vorhanden.\n");
    EXPECT_EQ(files(), 1U) << "only the database";
}

TEST_F(RunReportTest, SaysOfARunThatHasNotEndedThatItHasNot) {
    Options options;
    options.command = Command::run;
    options.database.file = database();
    RunAccount account;
    const Json running = Json::parse(report_text(options, scripted_sections(), account, std::nullopt));
    EXPECT_EQ(running["status"], nullptr);
    EXPECT_EQ(running["ended"], nullptr);
    EXPECT_EQ(running["outcome"], "running");
}

TEST_F(RunReportTest, HoldsNoPassword) {
    EXPECT_EQ(run({"run", "--db", database(), "--params", "/sektion:19/PWD:geheim/autostart/pwd:", "--out",
                   path("out"), "--report", path("r.json")}),
              0)
        << errors;
    EXPECT_EQ(report()["asked"]["parameters"], "/sektion:19/PWD:***/autostart/pwd:***");
    EXPECT_EQ(read("r.json").find("geheim"), std::string::npos);
}

TEST_F(RunReportTest, ListsAThousandOfAKindAndCountsTheOthers) {
    RunAccount account;
    for (int i = 0; i < 1001; ++i) {
        account.notices.field_without_caption("T", std::to_string(i));
        account.notices.record_read(i, 0, NoLine::no_field_exported);
    }
    const Json written = Json::parse(report_text({}, scripted_sections(), account, 0));
    EXPECT_EQ(written["fields_without_caption"]["columns"], 1001);
    EXPECT_EQ(written["fields_without_caption"]["first"].size(), 1000U);
    EXPECT_EQ(written["records_without_line"]["reasons"][0]["count"], 1001);
    EXPECT_EQ(written["records_without_line"]["reasons"][0]["records"].size(), 1000U);
}

TEST(Passwords, StandInNoReport) {
    const struct {
        const char* parameters;
        const char* shown;
    } cases[] = {{"", ""},
                 {"/autostart", "/autostart"},
                 {"pwd:x", "pwd:***"},
                 {"/autostart/pwd:x/mandant:1/", "/autostart/pwd:***/mandant:1/"}};
    for (const auto& row : cases) EXPECT_EQ(without_passwords(row.parameters), row.shown);
}

}  // namespace
}  // namespace prot::test
