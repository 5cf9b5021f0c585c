#include "sections/report_frameworks/ProtAuswCsvClass.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "core/event_names.h"
#include "sections/report_frameworks/framework_memos.h"
#include "sections/report_frameworks/framework_selection.h"
#include "tests/unit/support/database_answers.h"
#include "tests/unit/support/fakes.h"
#include "tests/unit/support/statements.h"

namespace prot::report_frameworks {
namespace {

using test::Row;
using test::ShownBox;
using Lines = std::vector<std::vector<std::string>>;
using Statements = std::vector<std::string>;

const Date moment = to_date(CivilTime{2026, 3, 5, 14, 7, 9});
const std::string charts = "SELECT KR_Id, KR_Bezeichnung FROM Kontenrahmen ORDER BY KR_Bezeichnung";
const std::string section = "SELECT dcLogTable FROM tSysQuvoLogSections WHERE IDSysQuvoLogSections = 10";
const std::string deleted_frameworks_of_all_types =
    "SELECT dmData FROM tProtokoll WHERE dcTable = 'AuswertungsRahmen' AND dlEvent = 2 AND dlSuchId2 = -1 "
    "AND dlSuchId3 = 0 ORDER BY ddDatum ASC";

std::string memo_of(int id) {
    return "SELECT dmData FROM tProtokollMemo WHERE flProtokoll = " + std::to_string(id);
}

class FrameworkExport : public testing::Test {
protected:
    test::FakeHost host;
    test::FakeDatabase oDBU;
    ProtAuswCsvClass exporter{host.environment};
    Value para;

    FrameworkExport() {
        fill_event_names();
        oDBU.answers[section] = {{std::string("tProtokoll")}};
        oDBU.answers[charts] = {{std::int64_t{61}, std::string("SKR 03")}};
        oDBU.answers["SELECT ARa_Bezeichnung FROM AuswertungsRahmen WHERE ARa_Id = 71"] = {
            {std::string("Bilanz HGB")}};
        oDBU.answers["SELECT Za_Bezeichnung FROM Zeilenart WHERE Za_Id = 31"] = {{std::string("Aktiva")}};
        oDBU.answers["SELECT [Ad_Id] FROM [AUSWERTUNGSDICHTE] WHERE [ARa_Id] = 71"] = {{std::int64_t{51}}};
        oDBU.answers["SELECT Ad_Bezeichnung FROM AuswertungsDichte WHERE Ad_Id = 51"] = {
            {std::string("fein")}};
        for (const char* column : {"ZA_BEZEICHNUNG", "ZA_ART", "ZA_MEMO", "ZA_FARBE"})
            oDBU.answers[test::caption_statement("ZEILENART", column)] = {{std::string("Feld ") + column}};
        host.documents["one"] = {{"ZA_ART", "1", "2"}};
        host.documents["three"] = {
            {"ZA_BEZEICHNUNG", "Aktiva", "Passiva"}, {"ZA_ART", "", "2"}, {"ZA_FARBE", "rot", "NULL"}};
        host.documents["memo"] = {{"ZA_MEMO", "_MEMO_", "_memo_"}};
    }
    static std::string select(const Filter& filter) {
        return "SELECT idProtokoll, dcTable, dcWorkstation, dcUser, ddDatum, dlEvent, dmData, dcSystemUser, "
               "dcApplication, dlPrimaryKey1, dlSuchId1,  dlSuchId2,  dlSuchId3,  dlSuchId4 FROM tProtokoll "
               "WHERE " +
               msWHERE(filter, framework_ids(filter), false) + " ORDER BY ddDatum";
    }
    static Row row(const std::string& document, std::int64_t event = 1, const Value& date = moment) {
        return {std::int64_t{900},
                std::string("ZEILENART"),
                std::string("WS-07"),
                std::string("Müller"),
                date,
                event,
                document,
                std::string("sa"),
                std::string("Auswertungen"),
                std::int64_t{31},
                std::int64_t{71},
                std::int64_t{3003},
                std::int64_t{3004},
                std::int64_t{3005}};
    }
    void log(std::vector<Row> rows, const Filter& filter = {}) {
        oDBU.answers[select(filter)] = std::move(rows);
    }
    void run(const std::string& parameters = "/autostart") {
        exporter.psCommandline = parameters;
        exporter.gCSVAusgabe(oDBU, 10, "", {}, {}, 7, para);
    }
    /// The person chooses entries of the form by their texts.
    static std::function<void(Form&)> choosing(std::vector<std::pair<const char*, std::string>> choices) {
        return [choices = std::move(choices)](Form& form) {
            for (const auto& choice : choices) {
                Field& field = form.field(choice.first);
                const auto entry = std::ranges::find(field.entries, choice.second, &Entry::text);
                ASSERT_NE(entry, field.entries.end()) << choice.second;
                field.choose(static_cast<std::size_t>(entry - field.entries.begin()));
            }
            form.ok.click();
        };
    }
    const Lines& lines() { return host.written.files.at(0).lines; }
    static std::vector<std::string> cells(const std::vector<std::string>& line, std::size_t first,
                                          std::size_t last) {
        return {line.begin() + static_cast<std::ptrdiff_t>(first),
                line.begin() + static_cast<std::ptrdiff_t>(last) + 1};
    }
};

TEST_F(FrameworkExport, WritesTheHeadAndALineForTheChangedField) {
    log({row("one")});
    run();
    EXPECT_EQ(lines(), (Lines{{"Standardrahmen, Auswertungsrahmen, alle Änderungen, für alle Kontenrahmen",
                               "", "", "", "", "", "", "", "", "", "", ""},
                              {"Auswertungsrahmen", "Auswertungsdichte", "Änderung in", "Datum der Änderung",
                               "Mitarbeiter", "Feld der Änderung", "Aktion", "alter Wert", "neuer Wert",
                               "Arbeitsstation", "Applikation", "Datenbankbenutzer"},
                              {"Bilanz HGB", "fein", "Aktiva", "05.03.2026 14:07:09", "Müller", "Feld ZA_ART",
                               "geändert", "1", "2", "WS-07", "Auswertungen", "Standardbenutzer"}}));
    EXPECT_TRUE(host.written.files.at(0).closed);
    EXPECT_FALSE(host.written.files.at(0).shown) << "nobody looks at a batch run";
    EXPECT_FALSE(host.written.files.at(0).asked);
}

TEST_F(FrameworkExport, WritesThreeLinesForThreeColumnsWithTheSameCellsAround) {
    log({row("three")});
    run();
    ASSERT_EQ(lines().size(), 5U);
    for (std::size_t i = 3; i < 5; ++i) {
        EXPECT_EQ(cells(lines()[i], 0, 4), cells(lines()[2], 0, 4));
        EXPECT_EQ(cells(lines()[i], 9, 11), cells(lines()[2], 9, 11));
    }
    using Cells = std::vector<std::string>;
    EXPECT_EQ(cells(lines()[2], 5, 8), (Cells{"Feld ZA_BEZEICHNUNG", "geändert", "Aktiva", "Passiva"}));
    EXPECT_EQ(cells(lines()[3], 5, 8), (Cells{"Feld ZA_ART", "geändert", "leer", "2"}));
    EXPECT_EQ(cells(lines()[4], 5, 8), (Cells{"Feld ZA_FARBE", "geändert", "rot", "leer"}));
    EXPECT_EQ(
        std::ranges::count(oDBU.statements, "value: SELECT Za_Bezeichnung FROM Zeilenart WHERE Za_Id = 31"),
        1)
        << "the record is described once";
}

TEST_F(FrameworkExport, TellsTheEventOfEachRow) {
    host.documents["creation"] = {{"ZA_ART", "", "2"}, {"ZA_BEZEICHNUNG", "", "Aktiva"}};
    host.documents["deletion"] = {{"ZA_ART", "2", ""}};
    log({row("creation", 0), row("one", 1), row("deletion", 2)});
    run();
    ASSERT_EQ(lines().size(), 5U) << "a creation has its name alone";
    using Cells = std::vector<std::string>;
    EXPECT_EQ(cells(lines()[2], 5, 8), (Cells{"Feld ZA_BEZEICHNUNG", "angelegt", "leer", "Aktiva"}));
    EXPECT_EQ(cells(lines()[3], 5, 8), (Cells{"Feld ZA_ART", "geändert", "1", "2"}));
    EXPECT_EQ(cells(lines()[4], 5, 8), (Cells{"Feld ZA_ART", "gelöscht", "2", "leer"}));
}

TEST_F(FrameworkExport, WritesMemosInPlaceOfTheirMarks) {
    oDBU.answers
        ["SELECT idProtokoll FROM tProtokoll WHERE  dcTable = 'ZEILENART' AND dlPrimaryKey1 = 31 AND "
         "dlSuchId1 = 71 AND dlSuchId2 = 3003 AND idProtokoll <> 900 ORDER BY ddDatum"] = {
        {std::int64_t{880}}};
    oDBU.answers[memo_of(880)] = {{std::string("davor")}};
    oDBU.answers[memo_of(900)] = {{std::string("danach")}};
    log({row("memo")});
    run();
    EXPECT_EQ(lines().at(2).at(7), "davor");
    EXPECT_EQ(lines().at(2).at(8), "danach");
}

TEST_F(FrameworkExport, WritesLeerForAMemoThatIsNotKnown) {
    log({row("memo")});
    run();
    EXPECT_EQ(lines().at(2).at(7), "leer");
    EXPECT_EQ(lines().at(2).at(8), "leer");
}

TEST_F(FrameworkExport, WritesTheTranslationOfAValueWhereThereIsOne) {
    host.translators["srvKWAusw.KWAuswZeilenartClass"] = [](std::int32_t value, std::string_view column,
                                                            Date) {
        return column == "ZA_ART" ? "Art " + std::to_string(value) : std::string();
    };
    log({row("one"), row("three")});
    run();
    EXPECT_EQ(lines().at(2).at(7), "Art 1");
    EXPECT_EQ(lines().at(2).at(8), "Art 2");
    EXPECT_EQ(lines().at(3).at(7), "Aktiva") << "an empty translation leaves the value";
    EXPECT_EQ(lines().at(4).at(7), "leer") << "nothing is not translated";
    EXPECT_EQ(host.translators_asked_for.size(), 1U);
    run();
    EXPECT_EQ(host.translators_asked_for.size(), 2U) << "released at the run's end";
}

TEST_F(FrameworkExport, WritesNoLineOfARowWithoutMoment) {
    log({row("one", 1, Value()), row("one", 1, Value(std::string())),
         row("one", 1, Value(std::string("gestern"))), row("three")});
    run();
    EXPECT_EQ(lines().size(), 5U);
    EXPECT_TRUE(host.written.files.at(0).closed);
}

TEST_F(FrameworkExport, WritesNoLineOfAFieldWithoutCaptionAndAsksForNoNames) {
    host.documents["technical"] = {{"ZA_ID", "1", "2"}, {"MIT_ID", "1", "2"}, {"ZA_NEU", "1", "2"}};
    log({row("technical")});
    run();
    EXPECT_EQ(lines().size(), 2U);
    EXPECT_EQ(
        std::ranges::count(oDBU.statements, "value: SELECT Za_Bezeichnung FROM Zeilenart WHERE Za_Id = 31"),
        0);
}

TEST_F(FrameworkExport, EndsAtAnEventBeyondTheThreeEvenWithoutMoment) {
    for (const Value& date : {Value(moment), Value()}) {
        host.written.files.clear();
        log({row("one", 3, date)});
        const AutomationError error = error_of([this] { run(); });
        EXPECT_EQ(error.number(), static_cast<std::int32_t>(ErrorNumber::index_out_of_range));
        EXPECT_TRUE(
            error.source().ends_with("\r\nProtAuswCsvClass.mbAusgabeCSV\r\nProtAuswCsvClass.gCSVAusgabe"))
            << error.source();
        EXPECT_FALSE(host.written.files.at(0).closed);
    }
}

TEST_F(FrameworkExport, CarriesTheNamesOfAllProceduresInAnError) {
    log({row("one")});
    oDBU.failures.emplace("SELECT Za_Bezeichnung FROM Zeilenart WHERE Za_Id = 31",
                          test::server_error("fort"));
    EXPECT_EQ(error_of([this] { run(); }).source(), PROT_STAMP
              "|srvprotqrbcsv|Testserver\r\nProtAuswCsvClass.msZeilenartBez\r\n"
              "ProtAuswCsvClass.mGetInfoZeilenart\r\nProtAuswCsvClass.mGetAuswInfos\r\n"
              "ProtAuswCsvClass.mbAusgabeCSV\r\nProtAuswCsvClass.gCSVAusgabe");
    EXPECT_FALSE(host.written.files.at(0).closed);
}

TEST_F(FrameworkExport, SendsItsStatementsInOrder) {
    log({row("one")});
    run();
    EXPECT_EQ(oDBU.statements,
              (Statements{
                  "array: " + deleted_frameworks_of_all_types,
                  "array: " + charts,
                  "value: " + section,
                  "array: " + select({}),
                  "value: " + test::caption_statement("ZEILENART", "ZA_ART"),
                  "value: " + test::first_change_statement("AUSWERTUNGSDICHTE", "dlSuchId1", 71,
                                                           "<05.03.2026 14:07:08>", "Ad_Id"),
                  "value: SELECT [Ad_Id] FROM [AUSWERTUNGSDICHTE] WHERE [ARa_Id] = 71",
                  "value: SELECT Ad_Bezeichnung FROM AuswertungsDichte WHERE Ad_Id = 51",
                  "value: SELECT ARa_Bezeichnung FROM AuswertungsRahmen WHERE ARa_Id = 71",
                  "value: SELECT Za_Bezeichnung FROM Zeilenart WHERE Za_Id = 31",
              }));
}

TEST_F(FrameworkExport, TellsProgressUpToTheIndexOfTheLastRow) {
    const std::pair<std::size_t, Statements> rows[] = {
        {1, {"gRefresh", "gRefresh", "gSetFortschritt 0/1"}},
        {2, {"gRefresh", "gRefresh", "gSetFortschritt 0/1", "gSetFortschritt 1/1"}},
        {3, {"gRefresh", "gRefresh", "gSetFortschritt 0/2", "gSetFortschritt 1/2", "gSetFortschritt 2/2"}},
    };
    for (const auto& expected : rows) {
        test::FakeParent parent;
        exporter.poParent = &parent;
        log(std::vector<Row>(expected.first, row("one")));
        run();
        EXPECT_EQ(parent.calls, expected.second);
    }
}

TEST_F(FrameworkExport, NamesItsFileAfterTheTypeAndStampsItInBatchModeOnly) {
    const std::pair<const char*, const char*> rows[] = {
        {"Alle", "Auswertungs"},
        {"Bilanz", "Bilanz"},
        {"Betriebsabrechnungsbogen", "BAB"},
        {"Betriebswirtschaftliche Auswertung", "BWA"},
        {"Anlagenspiegel", "Anlagenspiegel"},
        {"Kapitalflussrechnung", "Kapitalflussrechnung"},
        {"Kapitalkontenentwicklung", "Kapitalkontenentwicklung"},
        {"Ergebnisverwendung", "Ergebnisverwendung"},
        {"Liquiditätsvorschau", "Liquiditaetsvorschau"},
        {"Rating", "Rating"},
        {"Liquidität", "Liquiditaet"},
    };
    for (const auto& type : rows) {
        host.written.files.clear();
        const std::string name = std::string("Prot_") + type.second + "_Rahmen";
        run(std::string("/autostart/auswertung:") + type.first);
        EXPECT_EQ(host.written.files.at(0).name, name + "_20261115_100715.csv");
        EXPECT_EQ(exporter.gCSVFile, name + "_20261115_100715.csv");
        host.person = choosing({{"cboRahmenArt", type.first}});
        run("");
        EXPECT_EQ(exporter.gCSVFile, name + ".csv");
    }
}

TEST_F(FrameworkExport, ShowsTheFileToAPersonWhoMayHaveNamedIt) {
    log({row("one")});
    host.written.chosen_name = "Meine.csv";
    run("");
    EXPECT_EQ(host.written.files.at(0).name, "Meine.csv");
    EXPECT_TRUE(host.written.files.at(0).asked);
    EXPECT_TRUE(host.written.files.at(0).shown);
    EXPECT_EQ(exporter.gCSVFile, "Meine.csv");
}

TEST_F(FrameworkExport, WritesAndShowsNothingWhenThePersonCancelsTheFileName) {
    log({row("one")});
    host.written.cancel = true;
    run("");
    EXPECT_TRUE(host.written.files.empty());
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(FrameworkExport, WithoutDataTellsAPersonSoAndWritesAFileInBatchMode) {
    run("/autostart/awraend:pos");
    EXPECT_EQ(lines(), (Lines{{"Keine Daten vorhanden!", ""}, {"", ""}, {"", "awraend"}, {"", "pos"}}));
    EXPECT_TRUE(host.boxes.empty());
    host.written.files.clear();
    run("");
    EXPECT_EQ(host.boxes,
              (std::vector<ShownBox>{{"Keine Daten vorhanden!", BoxStyle::information, "Protokollierung"}}));
    EXPECT_TRUE(host.written.files.empty());
}

TEST_F(FrameworkExport, EndsWithoutAStatementOnTheLogWhenThePersonCancels) {
    test::FakeParent parent;
    exporter.poParent = &parent;
    host.person = [](Form& form) { form.cancel.click(); };
    run("");
    EXPECT_EQ(oDBU.statements, (Statements{"array: " + deleted_frameworks_of_all_types, "array: " + charts}));
    EXPECT_TRUE(host.written.files.empty() && host.boxes.empty() && parent.calls.empty());
}

TEST_F(FrameworkExport, LooksForNoChartWherePositionsLineKindsOrColumnsAreConcerned) {
    const std::pair<const char*, ChangeKind> rows[] = {{"Positionen", ChangeKind::positions},
                                                       {"Zeilenarten", ChangeKind::line_kinds},
                                                       {"Spalten", ChangeKind::columns}};
    for (const auto& change : rows) {
        oDBU.statements.clear();
        host.person = choosing({{"cboKontenrahmen", "SKR 03"}, {"cboAenderungen", change.first}});
        run("");
        EXPECT_EQ(oDBU.statements.back(), "array: " + select({.mlAenderungsart = change.second}));
        for (const std::string& statement : oDBU.statements)
            EXPECT_EQ(statement.find("= 61"), std::string::npos) << statement;
    }
}

TEST_F(FrameworkExport, LooksForTheChosenChartWhereAccountAssignmentsAreConcerned) {
    for (const ChangeKind change : {ChangeKind::all, ChangeKind::assignments}) {
        host.person =
            choosing({{"cboKontenrahmen", "SKR 03"},
                      {"cboAenderungen", change == ChangeKind::all ? "Alles" : "Kontozuordnungen"}});
        run("");
        EXPECT_EQ(oDBU.statements.back(),
                  "array: " + select({.mlKontenrahmen = 61, .mlAenderungsart = change}));
    }
}

TEST_F(FrameworkExport, ProposesTheChangeOfTheLastCallByItsPlaceInTheList) {
    const std::pair<const char*, const char*> rows[] = {{"Positionen", "Positionen"},
                                                        {"Zeilenarten", "Spalten"},
                                                        {"Spalten", "Zeilenarten"},
                                                        {"Alles", "Alles"}};
    for (const auto& change : rows) {
        host.person = choosing({{"cboAenderungen", change.first}});
        run("");
        host.person = [&](Form& form) {
            EXPECT_EQ(form.field("cboAenderungen").selected_text(), change.second);
            form.cancel.click();
        };
        run("");
    }
}

TEST_F(FrameworkExport, DeletesWithTheFrameworksThemselves) {
    exporter.pbLoeschen = true;
    host.answer = BoxAnswer::yes;
    const Filter filter = {.mlAenderungsart = ChangeKind::line_kinds};
    const std::string condition = msWHERE(filter, framework_ids(filter), true);
    oDBU.answers["SELECT COUNT(*) FROM tProtokoll WHERE " + condition] = {{std::int64_t{3}}};
    run("/autostart/awraend:za");
    EXPECT_NE(condition.find("'AUSWERTUNGSDICHTE'"), std::string::npos);
    EXPECT_EQ(
        oDBU.statements,
        (Statements{"array: " + deleted_frameworks_of_all_types, "array: " + charts, "value: " + section,
                    "value: " + section, "value: SELECT COUNT(*) FROM tProtokoll WHERE " + condition,
                    "execute: DELETE tProtokollMemo WHERE flProtokoll in (SELECT idProtokoll FROM "
                    "tProtokoll WHERE " +
                        condition + ")",
                    "execute: DELETE tProtokoll WHERE " + condition}));
    EXPECT_TRUE(host.written.files.empty());
    EXPECT_EQ(host.boxes.size(), 1U) << "the question, and nothing about data";
}

TEST_F(FrameworkExport, EndsTheRunWithoutAFileWhenAMemoNamesAPositionWithAnApostrophe) {
    Row assignment = row("formula");
    assignment[1] = std::string("FORMEL_POSITION");
    host.documents["formula"] = {{"FO_FORMEL", "_MEMO_", "_MEMO_"}};
    oDBU.answers[test::caption_statement("FORMEL_POSITION", "FO_FORMEL")] = {{std::string("Formel")}};
    oDBU.answers["SELECT KR_Kennzeichen FROM Kontenrahmen WHERE KR_Id = 71"] = {{std::int64_t{4}}};
    oDBU.answers
        ["Select AuswertungsPosition.Ap_Bezeichnung, Auswertungsrahmen.ARa_Art, Auswertungsrahmen.ARa_typ, "
         "Auswertungsrahmen.ARa_Kennzeichen FROM AuswertungsPosition, Zeilenart, Auswertungsrahmen WHERE "
         "AuswertungsPosition.AP_ID = 3003 AND AuswertungsPosition.ZA_ID = Zeilenart.ZA_ID AND "
         "Zeilenart.ARA_ID = Auswertungsrahmen.ARA_ID"] = {
        {std::string("Café d'Or"), std::int64_t{20}, std::int64_t{1}, std::int64_t{7}}};
    oDBU.failures.emplace(msFormelAltSQL("Café d'Or", "20", "7", "4"), test::server_error("Syntaxfehler"));
    log({assignment});
    EXPECT_EQ(error_of([this] { run(); }).source(), PROT_STAMP
              "|srvprotqrbcsv|Testserver\r\nProtAuswCsvClass.msMemoWertAlt\r\n"
              "ProtAuswCsvClass.mbAusgabeCSV\r\nProtAuswCsvClass.gCSVAusgabe");
    EXPECT_FALSE(host.written.files.at(0).closed);
}

}  // namespace
}  // namespace prot::report_frameworks
