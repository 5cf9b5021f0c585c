#include "sections/report_frameworks/ProtAuswCsvClass.h"

#include <gtest/gtest.h>

#include "sections/report_frameworks/framework_memos.h"
#include "tests/unit/sections/report_frameworks/export_fixture.h"
#include "tests/unit/support/database_answers.h"

namespace prot::report_frameworks {
namespace {

std::string memo_of(int id) {
    return "SELECT dmData FROM tProtokollMemo WHERE flProtokoll = " + std::to_string(id);
}

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
                  "array: " + known_charts,
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
