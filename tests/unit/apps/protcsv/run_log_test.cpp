#include <algorithm>

#include <nlohmann/json.hpp>

#include "apps/protcsv/commands.h"
#include "apps/protcsv/displays/line_displays.h"
#include "platform/portable/terminal/terminal.h"
#include "tests/unit/apps/protcsv/program_fixture.h"

namespace prot::test {
namespace {

const std::string nobody_can_answer =
    "protcsv: Dieser Lauf muss etwas fragen und braucht dazu ein Terminal oder --answers DATEI; "
    "unbeaufsichtigt geht "
    "es mit --params \"/…/autostart\".\n";

class RunLog : public ProgramTest {
protected:
    /// Exports a scripted section as a batch into this test's folder.
    int export_batch(const std::string& section, std::vector<std::string> more = {}) {
        more.insert(more.end(), {"--params", "/autostart", "--out", path("")});
        return run_section("export", section, more);
    }

    /// What is said before the answer to the question of section "delete".
    std::string question() const {
        return "[Löschen Stammdatenprotokoll] Gelöscht wird:\n  Datenbank:   " + database() +
               "\n  Bereich:     Löschen (6)\n  Zeitraum:    alle Tage\n  Mitarbeiter: alle\n"
               "  Ereignisse:  alle\n\nLöschen?\n";
    }
};

TEST_F(RunLog, HandsTheFiltersOnAndPrintsThePathOfTheFinishedFile) {
    EXPECT_EQ(
        export_batch("file", {"--user", "Weiß", "--from", "2026-01-01", "--to", "02.01.2026", "--events",
                              "created,deleted", "--encoding", "utf-8", "--separator", ","}),
        0);
    EXPECT_EQ(output, path("Prot.csv") + "\n");
    EXPECT_EQ(errors, "");
    EXPECT_EQ(read("Prot.csv"), "1,Weiß,01.01.2026,02.01.2026,5,/autostart,exportieren\r\n");
}

TEST_F(RunLog, ReadsAnUnattendedRunFromItsParameterText) {
    const std::string parameters = "/sektion:1/mitarbeiter:AB/datvon:2026-01-01/neu:1/autostart";
    EXPECT_EQ(
        run({"run", "--db", database(), "--params", parameters, "--out", path(""), "--encoding", "utf-8"}),
        0);
    EXPECT_EQ(read("Prot.csv"), "1;AB;01.01.2026;00:00:00;1;" + parameters + ";exportieren\r\n");
}

TEST_F(RunLog, HandsAUserOnSoThatAnApostropheIsPartOfTheName) {
    const std::string parameters = "/sektion:1/mitarbeiter:Seán O'Brien/autostart";
    EXPECT_EQ(
        run({"run", "--db", database(), "--params", parameters, "--out", path(""), "--encoding", "utf-8"}),
        0);
    EXPECT_EQ(read("Prot.csv"), "1;Seán O''Brien;00:00:00;00:00:00;7;" + parameters + ";exportieren\r\n");
}

TEST_F(RunLog, RefusesAnUnattendedRunWithAnUnreadableKey) {
    EXPECT_EQ(run({"run", "--db", database(), "--params", "/sektion:1/datbis:bald"}), 2);
    EXPECT_EQ(errors,
              "protcsv: --params: datbis: „bald“ ist kein Tag; erwartet wird TT.MM.JJJJ, JJJJ-MM-TT, "
              "JJJJ-MM, heute oder gestern\n");
}

TEST_F(RunLog, WarnsOfWhatItTakesOtherwiseThanItIsWritten) {
    EXPECT_EQ(run({"export", "--db", database(), "--section", "1", "--params", "/autostart", "--out",
                   path(""), "--quiet", "--events", "9"}),
              0);
    EXPECT_EQ(errors, "protcsv: --events: „9“ wird als 1 gelesen; nur 1, 2 und 4 haben eine Bedeutung\n");
    EXPECT_EQ(read("Prot.csv"),
              "\xEF\xBB\xBF"
              "1;;00:00:00;00:00:00;1;/autostart;exportieren\r\n");
}

TEST_F(RunLog, ShowsAnErrorAsAProblemReport) {
    EXPECT_EQ(export_batch("error"), 1);
    EXPECT_EQ(output, "");
    EXPECT_EQ(errors,
              "Problembericht\n"
              "Fehler-Nr: -2147221503 (0x80040001)\n"
              "Fehlerquelle: " PROT_STAMP
              "|srvprotqrbcsv|Quelle\n"
              "    Modul.Prozedur\n"
              "    ProtCsvClass.gCSVFile\n"
              "Beschreibung: Es ging nicht.\n");
}

TEST_F(RunLog, ShowsAForeignErrorAsAProblemReportToo) {
    EXPECT_EQ(export_batch("memory"), 1);
    EXPECT_EQ(output, "");
    EXPECT_EQ(errors.find("Problembericht\nFehler-Nr: "), 0u);
}

TEST_F(RunLog, LeavesNoHalfFileAfterAnError) {
    EXPECT_EQ(export_batch("half"), 1);
    EXPECT_EQ(files(), 1u) << "only the database";
}

TEST_F(RunLog, FailsWhenAProblemReportWasShownAlthoughTheCoreReturned) {
    EXPECT_EQ(export_batch("report"), 1);
    EXPECT_EQ(output, "");
    EXPECT_EQ(errors,
              "Problembericht\nFehler-Nr: -1 (0xFFFFFFFF)\nFehlerquelle: Quelle\nBeschreibung: Hinweis\n");
}

TEST_F(RunLog, ShowsMessageBoxesOnStandardError) {
    EXPECT_EQ(export_batch("box"), 0);
    EXPECT_EQ(output, "");
    EXPECT_EQ(errors, "[Protokollierung] Keine Daten vorhanden!\n");
}

TEST_F(RunLog, RefusesToAskWhenNobodyCanAnswer) {
    for (const char* section : {"form", "file"}) {
        EXPECT_EQ(run_section("export", section, {"--out", path("o")}), 2) << section;
        EXPECT_EQ(output, "");
        EXPECT_EQ(errors, nobody_can_answer);
        EXPECT_FALSE(std::filesystem::exists(path("o/Prot.csv")));
    }
}

const std::string form_begins = "Auswahl\nZeitraum: alle Tage   Mitarbeiter: alle   Ereignisse: alle\n";

TEST_F(RunLog, AsksAFormAndTheFileNameFromAnAnswersFile) {
    write("antworten", "usd\r\nMeine.csv\r\n");
    EXPECT_EQ(run_section("export", "form",
                          {"--out", path(""), "--answers", path("antworten"), "--encoding", "utf-8"}),
              0);
    EXPECT_EQ(errors, form_begins + "Währung [EUR]: usd\nDateiname [Prot.csv]: Meine.csv\n");
    EXPECT_EQ(output, path("Meine.csv") + "\n");
    EXPECT_EQ(read("Meine.csv"), "USD\r\n");
}

TEST_F(RunLog, ReadsAnswersFromStandardInput) {
    input = "\n";
    in_is_terminal = true;
    EXPECT_EQ(run_section("export", "form", {"--out", path(""), "--answers", "-"}), 0);
    EXPECT_EQ(errors, form_begins + "Währung [EUR]: \nDateiname [Prot.csv]: \n");
}

TEST_F(RunLog, IsCancelledWhenTheAnswersRunOut) {
    input = "EUR";
    EXPECT_EQ(run_section("export", "form", {"--out", path("o"), "--answers", "-"}), 3);
    EXPECT_EQ(output, "");
    EXPECT_EQ(errors,
              form_begins +
                  "Währung [EUR]: EUR\n"
                  "protcsv: Auf die Frage „Dateiname“ gab es keine Antwort; der Lauf ist abgebrochen.\n");
    EXPECT_FALSE(std::filesystem::exists(path("o/Prot.csv")));
}

TEST_F(RunLog, IsCancelledAtTheEndOfATerminalsInput) {
    in_is_terminal = err_is_terminal = true;
    EXPECT_EQ(run_section("export", "form"), 3);
    EXPECT_EQ(errors, form_begins +
                          "(Eingabetaste übernimmt den Vorschlag, ? zeigt die Auswahl, ?? die Hilfe, " +
                          std::string(cancel_hint) +
                          ")\nWährung "
                          "[EUR]: \n");
}

TEST_F(RunLog, TakesAnEmptyAnswersFileForOneEmptyAnswer) {
    write("antworten", "");
    EXPECT_EQ(run_section("export", "form", {"--answers", path("antworten")}), 3);
    EXPECT_EQ(errors,
              form_begins +
                  "Währung [EUR]: \n"
                  "protcsv: Auf die Frage „Dateiname“ gab es keine Antwort; der Lauf ist abgebrochen.\n");
}

TEST_F(RunLog, NamesAnAnswersFileThatCannotBeRead) {
    for (const std::string& file : {path("fehlt"), path("")}) {
        EXPECT_EQ(run_section("export", "form", {"--answers", file}), 1);
        EXPECT_EQ(errors, "protcsv: Die Datei „" + file + "“ lässt sich nicht lesen.\n");
    }
}

TEST_F(RunLog, DeletesNothingWithoutAnAnswer) {
    const std::string before = (database(), read("x.db"));
    EXPECT_EQ(run_section("delete", "delete", {"--answers", "-"}), 3);
    EXPECT_EQ(errors, question() +
                          "Nein\n"
                          "protcsv: Ohne Terminal ist die Antwort Nein; --yes antwortet mit Ja.\n");
    EXPECT_EQ(read("x.db"), before);
}

TEST_F(RunLog, DeletesWithYes) {
    const std::string before = (database(), read("x.db"));
    EXPECT_EQ(run_section("delete", "delete", {"--yes", "--out", path("o")}), 0);
    EXPECT_EQ(errors,
              question() +
                  "Ja\nEndgültig gelöscht, ohne Archiv (--archive): 710 Protokollsätze und 0 Memotexte.\n");
    EXPECT_NE(read("x.db"), before);
}

TEST_F(RunLog, RefusesASeparatorThatTheEncodingDoesNotHold) {
    EXPECT_EQ(run_section("export", "form", {"--separator", "→", "--encoding", "windows-1252"}), 2);
    EXPECT_EQ(errors, "protcsv: --separator: windows-1252 kennt das Zeichen „→“ nicht\n");
}

TEST_F(RunLog, AsksNobodyWhoCannotSeeTheQuestion) {
    in_is_terminal = true;
    EXPECT_EQ(run_section("export", "form"), 2);
    EXPECT_EQ(errors, nobody_can_answer);
}

TEST_F(RunLog, AsksThePersonBeforeItDeletes) {
    in_is_terminal = err_is_terminal = true;
    input = "nein\n";
    EXPECT_EQ(run_section("delete", "delete"), 3);
    EXPECT_EQ(errors, question() + "Ja/Nein [Nein]: ");
    input = "ja\n";
    EXPECT_EQ(run_section("delete", "delete"), 0);
}

TEST_F(RunLog, TellsWhatWasLeftOutAndWhenQuietOnlyWhatIsLost) {
    EXPECT_EQ(export_batch("notices"), 0);
    EXPECT_EQ(errors,
              "1 Feld ohne Beschriftung blieb weg: T.f (1)\n"
              "1 Protokollsatz mit unlesbarem Änderungsdokument: 5\n");
    EXPECT_EQ(export_batch("notices", {"--quiet"}), 0);
    EXPECT_EQ(errors, "1 Protokollsatz mit unlesbarem Änderungsdokument: 5\n");
}

TEST_F(RunLog, DrawsAProgressBarOnlyOnATerminalThatIsNotQuiet) {
    err_is_terminal = true;
    EXPECT_EQ(export_batch("file"), 0);
    EXPECT_EQ(errors.find("\r[....."), 0u);
    EXPECT_TRUE(errors.ends_with(" \r")) << "wiped at the end";
    EXPECT_NE(closing, "");
    EXPECT_EQ(export_batch("file", {"--quiet"}), 0);
    EXPECT_EQ(errors, "");
    err_is_dumb = true;
    EXPECT_EQ(export_batch("file"), 0);
    EXPECT_EQ(errors, "") << "a dumb terminal cannot go back on its line";
}

TEST_F(RunLog, WritesTheStatementsDown) {
    EXPECT_EQ(export_batch("statements", {"--sql-log", path("log")}), 0);
    std::istringstream lines(read("log"));
    std::vector<std::string> statements;
    for (std::string line; std::getline(lines, line);) {
        const nlohmann::json object = nlohmann::json::parse(line);
        statements.push_back(object["op"].get<std::string>() + ": " + object["sql"].get<std::string>());
    }
    EXPECT_EQ(statements, (std::vector<std::string>{
                              "array: SELECT idDevisenWaehr FROM tDevisenWaehr WHERE 1 = 2",
                              "value: SELECT COUNT(*) FROM tDevisenWaehr WHERE 1 = 2",
                          }));
}

TEST_F(RunLog, NeverWritesTheStatementsOverTheDatabase) {
    const std::string before = (database(), read("x.db"));
    EXPECT_EQ(export_batch("statements", {"--sql-log", path("x.db")}), 2);
    EXPECT_EQ(errors, "protcsv: --sql-log: „" + path("x.db") + "“ ist die Datenbank selbst\n");
    EXPECT_EQ(read("x.db"), before);
}

TEST_F(RunLog, NeverWritesTheStatementsOverTheAnswers) {
    write("antworten", "EUR\n");
    EXPECT_EQ(export_batch("statements", {"--sql-log", path("antworten"), "--answers", path("antworten")}),
              2);
    EXPECT_EQ(errors, "protcsv: --sql-log: „" + path("antworten") + "“ ist die Datei der Antworten\n");
    EXPECT_EQ(read("antworten"), "EUR\n");
}

TEST_F(RunLog, WritesTheStatementsOverAnEarlierLogOfThemAndOverNothingElse) {
    EXPECT_EQ(export_batch("statements", {"--sql-log", path("log")}), 0);
    EXPECT_EQ(export_batch("file", {"--sql-log", path("log")}), 0) << "an earlier log";
    EXPECT_EQ(read("log"), "");
    EXPECT_EQ(export_batch("statements", {"--sql-log", path("log")}), 0) << "an empty file";
    for (const char* text : {"wichtig", "{", "{\"report\": 1}"}) {
        write("anderes", text);
        EXPECT_EQ(export_batch("statements", {"--sql-log", path("anderes")}), 2) << text;
        EXPECT_EQ(errors, "protcsv: --sql-log: die Datei „" + path("anderes") +
                              "“ gibt es schon, und sie ist kein früheres Protokoll der Anweisungen\n");
        EXPECT_EQ(read("anderes"), text);
    }
}

TEST_F(RunLog, NamesAStatementLogThatCannotBeCreated) {
    EXPECT_EQ(export_batch("file", {"--sql-log", path("fehlt/log")}), 1);
    EXPECT_EQ(errors,
              "protcsv: Die Datei „" + path("fehlt/log") + "“ lässt sich nicht zum Schreiben öffnen.\n");
    EXPECT_EQ(output, "");
}

TEST_F(RunLog, SaysWhichCharactersTheEncodingCannotHold) {
    EXPECT_EQ(export_batch("file", {"--user", "Ω", "--encoding", "windows-1252"}), 0);
    const std::string replaced = "1 Zeichen, das die Kodierung nicht kennt, steht als ? in der Datei „" +
                                 path("Prot.csv") + "“: Ω in Zeile 1, Spalte 2\n";
    EXPECT_EQ(errors, replaced);
    EXPECT_EQ(export_batch("file", {"--user", "Ω", "--encoding", "windows-1252", "--quiet"}), 0);
    EXPECT_NE(errors.find("Ω in Zeile 1, Spalte 2\n"), std::string::npos) << "a loss is told all the same";
}

TEST_F(RunLog, OpensTheDatabaseForWritingOnlyToDelete) {
    const std::string before = (database(), read("x.db"));
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"export", "--section", "change"},
          std::vector<std::string>{"run", "--params", "/sektion:11/autostart"}}) {
        std::vector<std::string> with_database = arguments;
        with_database.insert(with_database.end(), {"--db", database()});
        EXPECT_EQ(run(with_database), 1) << arguments[0];
        EXPECT_NE(errors.find("Die Datenbank ist schreibgeschützt."), std::string::npos) << errors;
        EXPECT_EQ(read("x.db"), before) << arguments[0];
    }
    run_section("delete", "change");
    EXPECT_NE(read("x.db"), before);
}

TEST_F(RunLog, TellsTheSectionWhetherItIsToDelete) {
    EXPECT_EQ(run_section("delete", "say", {"--to", "31.12.2015"}), 0);
    EXPECT_EQ(errors, "[Aufruf] 12;;00:00:00;31.12.2015;7;;löschen\n");
    EXPECT_EQ(run_section("export", "say", {"--to", "31.12.2015"}), 0);
    EXPECT_EQ(errors, "[Aufruf] 12;;00:00:00;31.12.2015;7;;exportieren\n");
}

TEST_F(RunLog, FailsWhenTheQuestionOfADeletionCouldNotBeAsked) {
    EXPECT_EQ(run_section("delete", "nothing"), 1);
    EXPECT_EQ(errors, "protcsv: Die Löschfrage ließ sich nicht stellen; es wurde nichts gelöscht.\n");
    EXPECT_EQ(run_section("export", "nothing"), 0) << "an export asks nothing";
    EXPECT_EQ(errors, "");
    EXPECT_EQ(output, "") << "and wrote no file";
}

TEST_F(RunLog, SaysOfADeletionThatFailedNothingButItsError) {
    EXPECT_EQ(run_section("delete", "error"), 1);
    EXPECT_TRUE(errors.starts_with("Problembericht\n")) << errors;
    EXPECT_TRUE(errors.ends_with("\nBeschreibung: Es ging nicht.\n")) << errors;
}

TEST_F(RunLog, ShowsWhatNobodyForesawAsAnInternalError) {
    EXPECT_EQ(export_batch("surprise"), 1);
    EXPECT_EQ(output, "");
    EXPECT_EQ(errors,
              "Problembericht\n"
              "Fehler-Nr: -2146828237 (0x800A0033)\n"
              "Fehlerquelle: " PROT_STAMP
              "|srvprotqrbcsv|srvProtQRBCsv\n"
              "    ProtCsvClass.gCSVFile\n"
              "Beschreibung: Interner Fehler: Das war nicht vorgesehen.\n");
}

TEST_F(RunLog, TellsOfFailedLookupsEvenWhenQuiet) {
    const std::string failed =
        "Die Datei kann unvollständig sein: 1 Abfrage einer Beschriftung oder eines früheren Wertes schlug "
        "fehl, zuerst: Es fehlt tX.\n";
    EXPECT_EQ(export_batch("lookups"), 4);
    EXPECT_EQ(errors, failed +
                          "1 Feld ohne Beschriftung blieb weg: T.f (1)\n"
                          "1 Protokollsatz mit unlesbarem Änderungsdokument: 5\n");
    EXPECT_EQ(export_batch("lookups", {"--quiet"}), 4);
    EXPECT_EQ(errors, failed + "1 Protokollsatz mit unlesbarem Änderungsdokument: 5\n");
    EXPECT_EQ(output, path("Prot-2.csv") + "\n") << "beside the file of the run before";
}

TEST_F(RunLog, TellsOfAFailedRunNothingButWhatFailed) {
    EXPECT_EQ(export_batch("left-out"), 1);
    EXPECT_TRUE(errors.starts_with("Problembericht\n")) << errors;
    EXPECT_NE(errors.find("\nDie Datei kann unvollständig sein: "), std::string::npos) << errors;
    EXPECT_EQ(errors.find("Änderungsdokument"), std::string::npos) << errors;
}

TEST_F(RunLog, NamesALackOfMemory) {
    EXPECT_EQ(export_batch("memory"), 1);
    EXPECT_NE(errors.find("(0x800A0007)"), std::string::npos) << errors;
    EXPECT_TRUE(errors.ends_with("\nBeschreibung: Der Arbeitsspeicher reicht nicht aus.\n")) << errors;
}

TEST_F(RunLog, MakesTheFolderBeforeTheLogIsReadButNotForADatabaseThatIsMissing) {
    EXPECT_EQ(run({"export", "--db", path("fehlt.db"), "--section", "nothing", "--out", path("o")}), 1);
    EXPECT_FALSE(std::filesystem::exists(text_path(path("o"))));
    EXPECT_EQ(run_section("export", "nothing", {"--out", path("o")}), 0);
    EXPECT_TRUE(std::filesystem::is_directory(text_path(path("o"))));
}

TEST_F(RunLog, MakesNoFolderForADeletion) {
    EXPECT_EQ(run_section("delete", "delete", {"--yes", "--out", path("o")}), 0);
    EXPECT_FALSE(std::filesystem::exists(text_path(path("o"))));
    Options options;
    options.command = Command::delete_log;
    options.database.file = database();
    options.request.section = 6;
    options.yes = true;
    options.csv.folder = text_path(path("o"));
    std::istringstream in;
    std::ostringstream out, err;
    EXPECT_EQ(run_log(options, {in, out, err}, scripted_sections()), 0) << err.str();
    EXPECT_FALSE(std::filesystem::exists(text_path(path("o")))) << "whatever folder its options name";
}

TEST_F(RunLog, RefusesAFolderThatIsAFileBeforeAnyStatementIsSent) {
    write("o", "wichtig");
    EXPECT_EQ(run_section("export", "statements", {"--out", path("o"), "--sql-log", path("log")}), 1);
    EXPECT_TRUE(errors.starts_with("protcsv: ")) << errors;
    EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 1) << errors;
    EXPECT_FALSE(std::filesystem::exists(text_path(path("log"))));
    EXPECT_EQ(read("o"), "wichtig");
}

TEST_F(RunLog, RefusesAWrongUseBeforeItLooksForTheDatabase) {
    const std::vector<std::string> missing = {"export", "--db", path("fehlt.db"), "--section", "nothing"};
    const auto with = [&](std::vector<std::string> more) {
        more.insert(more.begin(), missing.begin(), missing.end());
        return run(more);
    };
    EXPECT_EQ(with({}), 1) << "the database is missing";
    EXPECT_EQ(with({"--separator", "→", "--encoding", "windows-1252"}), 2);
    EXPECT_EQ(run({"run", "--db", path("fehlt.db"), "--params", "/autostart"}), 2);
    EXPECT_EQ(run({"run", "--db", path("fehlt.db"), "--params", "/sektion:1/neu:x/autostart"}), 2);
    EXPECT_EQ(files(), 0U);
}

TEST_F(RunLog, NeverTakesPreparedAnswersForAPersonWhoCouldConfirmADeletion) {
    in_is_terminal = err_is_terminal = true;
    input = "ja\nja\n";
    EXPECT_EQ(run_section("delete", "delete", {"--answers", "-"}), 3);
    EXPECT_EQ(errors, question() +
                          "Nein\n"
                          "protcsv: Ohne Terminal ist die Antwort Nein; --yes antwortet mit Ja.\n");
}

TEST_F(RunLog, AsksNobodyByAStandardInputThatIsNoTerminal) {
    err_is_terminal = true;
    input = "EUR\n\n";
    EXPECT_EQ(run_section("export", "form"), 2);
    EXPECT_EQ(errors, nobody_can_answer);
}

TEST_F(RunLog, DrawsTheProgressWhereItIsSeenWhateverTheInputIs) {
    in_is_terminal = true;
    EXPECT_EQ(export_batch("file"), 0);
    EXPECT_EQ(errors, "");
}

TEST_F(RunLog, FailsWhenThePathOfTheFileDoesNotReachStandardOutput) {
    std::istringstream in;
    FullBuffer full;
    std::ostream out(&full);
    std::ostringstream err;
    const std::vector<std::string> arguments = {"export",   "--db",       database(), "--section", "file",
                                                "--params", "/autostart", "--out",    path(""),    "--quiet"};
    EXPECT_EQ(run_program(arguments, {in, out, err}, scripted_sections()), 1);
    EXPECT_EQ(err.str(), "protcsv: Die Standardausgabe lässt sich nicht beschreiben.\n");
}

/// Keeps what it is to tell.
class TellingDisplays : public LineDisplays {
public:
    TellingDisplays(const DisplayMeans& means, std::vector<std::string>& told)
        : LineDisplays(means), told_(told) {}
    void tell(Telling kind, std::string_view text) override {
        told_.push_back((kind == Telling::warning ? "Warnung: " : "Hinweis: ") + std::string(text));
    }

private:
    std::vector<std::string>& told_;
};

TEST_F(RunLog, TellsNothingWhereNothingIsToBeSaid) {
    Options options;
    options.command = Command::export_log;
    options.database.file = database();
    std::istringstream in;
    std::ostringstream out, err;
    std::vector<std::string> told;
    const auto displays = [&](const DisplayMeans& means) {
        return std::make_unique<TellingDisplays>(means, told);
    };
    options.request.section = 13;
    EXPECT_EQ(run_log(options, {in, out, err}, scripted_sections(), displays), 0);
    EXPECT_EQ(told, std::vector<std::string>()) << "in a window it would be an empty box";
    options.request.section = 14;
    options.parameters = "/autostart";
    options.csv.folder = text_path(path(""));
    EXPECT_EQ(run_log(options, {in, out, err}, scripted_sections(), displays), 4);
    ASSERT_EQ(told.size(), 1U) << "in a window one box, not one after another";
    EXPECT_TRUE(told[0].starts_with("Warnung: Die Datei kann unvollständig sein: ")) << told[0];
}

TEST_F(RunLog, WarnsOfWhatIsLostAndOnlyMentionsMissingCaptions) {
    const struct {
        std::int32_t section;
        bool strict;
        const char* kind;
    } cases[] = {{20, false, "Warnung: "}, {21, false, "Hinweis: "}, {21, true, "Warnung: "}};
    for (const auto& row : cases) {
        Options options;
        options.command = Command::export_log;
        options.database.file = database();
        options.request.section = row.section;
        options.strict = row.strict;
        options.parameters = "/autostart";
        options.csv.folder = text_path(path(""));
        std::istringstream in;
        std::ostringstream out, err;
        std::vector<std::string> told;
        run_log(options, {in, out, err}, scripted_sections(),
                [&](const DisplayMeans& means) { return std::make_unique<TellingDisplays>(means, told); });
        ASSERT_EQ(told.size(), 1U) << row.section;
        EXPECT_TRUE(told[0].starts_with(row.kind)) << told[0];
    }
}

/// Which displays a run may have, on a console that may give its whole screen.
struct MayHave {
    bool full_screen = false;
    bool status_line = false;
};
MayHave asked_for(const Options& options, const Console& console) {
    MayHave asked;
    run_log(options, console, scripted_sections(), [&](const DisplayMeans& means) {
        asked = {means.full_screen, means.status_line};
        return std::make_unique<LineDisplays>(means);
    });
    return asked;
}

TEST_F(RunLog, LetsFormsTakeTheScreenUnlessLinesAreWantedOrAnswersPrepared) {
    write("antworten", "");
    Options options;
    options.command = Command::export_log;
    options.database.file = database();
    options.request.section = 13;
    std::istringstream in;
    std::ostringstream out, err;
    const Console screen{in, out, err, true, true, true};
    EXPECT_TRUE(asked_for(options, screen).full_screen);
    EXPECT_FALSE(asked_for(options, {in, out, err, true, true, false}).full_screen) << "no such screen";
    options.plain = true;
    EXPECT_FALSE(asked_for(options, screen).full_screen) << "--plain";
    options.plain = false;
    options.answers = path("antworten");
    EXPECT_FALSE(asked_for(options, screen).full_screen) << "--answers";
    EXPECT_FALSE(asked_for(options, {in, out, err, true, false}).status_line);
    EXPECT_TRUE(asked_for(options, {in, out, err, false, true}).status_line);
}

}  // namespace
}  // namespace prot::test
