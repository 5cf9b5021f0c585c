#include <gmock/gmock.h>

#include <filesystem>

#include <sqlite3.h>
#include <nlohmann/json.hpp>

#include "sections/section_table.h"
#include "tests/unit/apps/protcsv/program_fixture.h"

/// Deletions by the whole program.
namespace prot::test {
namespace {

using testing::HasSubstr;
using testing::Not;

class DeletionRun : public ProgramTest {
protected:
    int remove(std::vector<std::string> more) {
        more.insert(more.begin(),
                    {"delete", "--db", database(), "--section", "15", "--params", "/autostart"});
        std::istringstream in(input);
        std::ostringstream out, err;
        const Console console{in, out, err, in_is_terminal, err_is_terminal};
        const int status = run_program(more, console, section_table());
        output = out.str();
        errors = err.str();
        return status;
    }

    std::string database_bytes() const { return read("x.db"); }
    std::string archive() const { return output.substr(0, output.find('\n')); }
    nlohmann::json receipt(const std::string& folder) const {
        return nlohmann::json::parse(content_of(text_path(folder) / "beleg.json"));
    }
};

TEST_F(DeletionRun, SaysWhatWillGoBeforeItAsks) {
    EXPECT_EQ(
        remove({"--from", "01.01.2020", "--to", "31.12.2030", "--user", "MM", "--events", "changed,deleted"}),
        0);
    EXPECT_THAT(errors, HasSubstr("keine zu löschenden Protokollsätze")) << "nobody of that name";
    EXPECT_EQ(remove({"--to", "31.12.2030", "--events", "changed,deleted"}), 3);
    EXPECT_THAT(errors, HasSubstr("[Löschen Stammdatenprotokoll] Gelöscht wird:\n"
                                  "  Datenbank:   " +
                                  database() +
                                  "\n"
                                  "  Bereich:     Devisenkurse (15)\n"
                                  "  Auswahl:     Von ISO Währungscode: AED bis ISO Währungscode: ZAR\n"
                                  "  Zeitraum:    bis 31.12.2030\n"
                                  "  Mitarbeiter: alle\n"
                                  "  Ereignisse:  geändert, gelöscht\n"
                                  "\n"
                                  "Für die getätigten Einstellungen wurden "));
    EXPECT_THAT(errors, HasSubstr("Sollen die Protokollsätze endgültig gelöscht werden?\nNein\n"));
    EXPECT_THAT(errors, Not(HasSubstr("Gelöscht:")));
}

TEST_F(DeletionRun, SaysHowMuchWent) {
    in_is_terminal = err_is_terminal = true;
    input = "ja\n";
    EXPECT_EQ(remove({}), 0);
    EXPECT_THAT(errors, HasSubstr("Gelöscht: 112 Protokollsätze und 2 Memotexte.\n"));
    EXPECT_THAT(errors, Not(HasSubstr("Endgültig")));
    EXPECT_EQ(output, "");
}

TEST_F(DeletionRun, SaysOfAnUnattendedOneThatAllIsGoneForGood) {
    EXPECT_EQ(remove({"--yes", "--quiet"}), 0);
    EXPECT_THAT(
        errors,
        HasSubstr("Endgültig gelöscht, ohne Archiv (--archive): 112 Protokollsätze und 2 Memotexte.\n"));
}

TEST_F(DeletionRun, TriesItOutWithoutDeletingAnything) {
    database();
    const std::string before = database_bytes();
    EXPECT_EQ(remove({"--dry-run", "--yes", "--archive", path("archiv")}), 0);
    EXPECT_THAT(errors, HasSubstr("Gelöscht würde:\n  Datenbank:   "));
    EXPECT_THAT(errors, HasSubstr("\nProbelauf: Es würden 112 Protokollsätze und 2 Memotexte gelöscht. "
                                  "Gelöscht ist nichts.\n"));
    EXPECT_THAT(errors, Not(HasSubstr("Sollen die")));
    EXPECT_EQ(output, "");
    EXPECT_EQ(database_bytes(), before);
    EXPECT_EQ(files(), 1u) << "no archive";
}

TEST_F(DeletionRun, KeepsWhatGoesInAFolderOfItsOwn) {
    EXPECT_EQ(remove({"--yes", "--archive", path("archiv")}), 0);
    EXPECT_THAT(archive(), testing::StartsWith(path("archiv")));
    EXPECT_THAT(archive(), HasSubstr("Archiv_Devisenkurse_"));
    EXPECT_EQ(output, archive() + "\n");
    EXPECT_THAT(errors, HasSubstr("Gelöscht: 112 Protokollsätze und 2 Memotexte.\n"));
    EXPECT_EQ(receipt(archive())["deletion"]["state"], "deleted");
    EXPECT_EQ(receipt(archive())["deletion"]["records"], 112);
    EXPECT_EQ(remove({"--yes"}), 0);
    EXPECT_THAT(errors, HasSubstr("keine zu löschenden Protokollsätze"));
}

TEST_F(DeletionRun, ReplacesNothingThatLiesWhereTheArchiveWouldBe) {
    EXPECT_EQ(remove({"--yes", "--archive", path("archiv"), "--events", "changed"}), 0);
    const std::string first = archive();
    const std::string kept = content_of(text_path(first) / "archiv.db");
    EXPECT_EQ(remove({"--yes", "--archive", path("archiv")}), 0);
    EXPECT_NE(archive(), first);
    EXPECT_EQ(content_of(text_path(first) / "archiv.db"), kept);
}

TEST_F(DeletionRun, DeletesNothingWithoutItsArchive) {
    database();
    write("datei", "keine Ablage");
    const std::string before = database_bytes();
    EXPECT_EQ(remove({"--yes", "--archive", path("datei")}), 1);
    EXPECT_THAT(errors, HasSubstr("Problembericht"));
    EXPECT_EQ(output, "");
    EXPECT_EQ(database_bytes(), before);
    EXPECT_EQ(read("datei"), "keine Ablage");
}

TEST_F(DeletionRun, WritesAReportOfWhatWentWithoutAnArchive) {
    EXPECT_EQ(remove({"--yes", "--report", path("bericht.json")}), 0);
    const auto report = nlohmann::json::parse(read("bericht.json"));
    EXPECT_EQ(report["outcome"], "deleted");
    EXPECT_EQ(report["deletion"]["records"], 112);
    EXPECT_EQ(report["deletion"]["memos"], 2);
    EXPECT_TRUE(report["deletion"]["archive"].is_null());
}

TEST_F(DeletionRun, ReportsWhatDidNotGo) {
    EXPECT_EQ(remove({"--report", path("a.json")}), 3);
    EXPECT_EQ(nlohmann::json::parse(read("a.json"))["deletion"]["state"], "nothing");
    EXPECT_EQ(nlohmann::json::parse(read("a.json"))["outcome"], "cancelled");
    EXPECT_EQ(remove({"--dry-run", "--report", path("b.json")}), 0);
    EXPECT_EQ(nlohmann::json::parse(read("b.json"))["outcome"], "trial");
    EXPECT_EQ(nlohmann::json::parse(read("b.json"))["deletion"]["records"], 112);
}

/// A log whose records cannot be deleted, though their memo texts can.
class DeletionRunThatStops : public DeletionRun {
protected:
    DeletionRunThatStops() {
        sqlite3* handle = nullptr;
        sqlite3_open(database().c_str(), &handle);
        EXPECT_EQ(sqlite3_exec(handle,
                               "CREATE TRIGGER stop BEFORE DELETE ON tProtokoll BEGIN"
                               " SELECT RAISE(ABORT, 'gesperrt'); END",
                               nullptr, nullptr, nullptr),
                  SQLITE_OK);
        sqlite3_close(handle);
    }
};

TEST_F(DeletionRunThatStops, SaysThatTheMemoTextsAreGoneAndTheRecordsNot) {
    EXPECT_EQ(remove({"--yes", "--report", path("r.json")}), 1);
    EXPECT_THAT(errors,
                HasSubstr("Gelöscht sind schon die Memotexte der ausgewählten Protokollsätze (2), die "
                          "Sätze selbst nicht.\n"));
    EXPECT_EQ(nlohmann::json::parse(read("r.json"))["deletion"]["state"], "memos_deleted");
}

TEST_F(DeletionRunThatStops, UndoesAllAndKeepsNoArchive) {
    const std::string before = database_bytes();
    EXPECT_EQ(remove({"--yes", "--archive", path("archiv"), "--report", path("r.json")}), 1);
    EXPECT_THAT(errors, HasSubstr("gesperrt"));
    EXPECT_EQ(output, "");
    EXPECT_EQ(database_bytes(), before);
    EXPECT_TRUE(std::filesystem::is_empty(text_path(path("archiv"))));
    EXPECT_EQ(nlohmann::json::parse(read("r.json"))["deletion"]["state"], "nothing");
}

TEST_F(DeletionRun, ArchivesWhatAPersonChoseWithoutAskingTwice) {
    input = "USD\nUSD\n";
    std::istringstream in(input);
    std::ostringstream out, err;
    const int status =
        run_program(std::vector<std::string>{"delete", "--db", database(), "--section", "15", "--answers",
                                             "-", "--yes", "--archive", path("archiv")},
                    {in, out, err}, section_table());
    EXPECT_EQ(status, 0) << err.str();
    output = out.str();
    EXPECT_EQ(receipt(archive())["understood"], "Von ISO Währungscode: USD bis ISO Währungscode: USD");
    EXPECT_GT(receipt(archive())["deletion"]["records"], 0);
}

}  // namespace
}  // namespace prot::test
