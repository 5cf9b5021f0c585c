#include <gtest/gtest.h>

#include "tests/unit/sections/report_frameworks/export_fixture.h"

namespace prot::report_frameworks {
namespace {

using test::ShownBox;

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
    EXPECT_EQ(oDBU.statements,
              (Statements{"array: " + deleted_frameworks_of_all_types, "array: " + known_charts}));
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
    EXPECT_EQ(oDBU.statements,
              (Statements{"array: " + deleted_frameworks_of_all_types, "array: " + known_charts,
                          "value: " + section, "value: " + section,
                          "value: SELECT COUNT(*) FROM tProtokoll WHERE " + condition,
                          "execute: DELETE tProtokollMemo WHERE flProtokoll in (SELECT idProtokoll FROM "
                          "tProtokoll WHERE " +
                              condition + ")",
                          "execute: DELETE tProtokoll WHERE " + condition}));
    EXPECT_TRUE(host.written.files.empty());
    EXPECT_EQ(host.boxes.size(), 1U) << "the question, and nothing about data";
}

}  // namespace
}  // namespace prot::report_frameworks
