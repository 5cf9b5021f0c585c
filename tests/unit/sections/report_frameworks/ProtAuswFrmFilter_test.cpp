#include "sections/report_frameworks/ProtAuswFrmFilter.h"

#include <gtest/gtest.h>

#include "tests/unit/sections/report_frameworks/filter_fixture.h"

namespace prot::report_frameworks {
namespace {

using test::ShownBox;

TEST_F(FrameworkFilter, HasItsFieldsInTheOrderOfTheChoice) {
    show([](Form& form) {
        EXPECT_EQ(form.caption, "Protokollausgabe Auswertungsrahmen");
        ASSERT_EQ(form.fields.size(), 5U);
        const char* const names[] = {kinds, types, frameworks, changes, charts};
        for (std::size_t i = 0; i < 5; ++i) {
            EXPECT_EQ(form.fields[i].name, names[i]);
            EXPECT_EQ(form.fields[i].kind, i == 0 ? FieldKind::options : FieldKind::list);
            EXPECT_TRUE(form.fields[i].enabled && form.fields[i].visible);
        }
        ASSERT_EQ(form.groups.size(), 2U);
        EXPECT_EQ(form.groups[0].first, 0U);
        EXPECT_EQ(form.groups[0].count, 3U);
        EXPECT_EQ(form.groups[1].first, 3U);
        EXPECT_EQ(form.groups[1].count, 2U);
    });
}

TEST_F(FrameworkFilter, GivesEveryFieldAnAccessKeyOfItsOwn) {
    show([](Form& form) {
        std::vector<char32_t> keys;
        for (const Field& field : form.fields) keys.push_back(access_key(field.label));
        EXPECT_EQ(std::ranges::count(keys, U'\0'), 0);
        std::ranges::sort(keys);
        EXPECT_EQ(std::ranges::adjacent_find(keys), keys.end());
    });
}

TEST_F(FrameworkFilter, OffersKindsTypesAndChangesInTheirOrder) {
    show([](Form& form) {
        EXPECT_EQ(entries(form, kinds), (Entries{{0, "Standardrahmen"}, {1, "Kanzleirahmen"}}));
        EXPECT_EQ(entries(form, types), (Entries{{-1, "Alle"},
                                                 {0, "Bilanz"},
                                                 {10, "Betriebsabrechnungsbogen"},
                                                 {20, "Betriebswirtschaftliche Auswertung"},
                                                 {30, "Anlagenspiegel"},
                                                 {50, "Kapitalflussrechnung"},
                                                 {40, "Kapitalkontenentwicklung"},
                                                 {45, "Ergebnisverwendung"},
                                                 {60, "Liquiditätsvorschau"},
                                                 {70, "Rating"},
                                                 {55, "Liquidität"}}));
        EXPECT_EQ(entries(form, changes), (Entries{{0, "Alles"},
                                                   {1, "Kontozuordnungen"},
                                                   {2, "Positionen"},
                                                   {4, "Spalten"},
                                                   {3, "Zeilenarten"}}));
        EXPECT_EQ(entries(form, charts), (Entries{{0, "Alle"}, {61, "SKR 03"}, {62, "SKR 04"}}));
        EXPECT_EQ(entries(form, frameworks), (Entries{{0, "Alle"}}));
    });
}

TEST_F(FrameworkFilter, StartsWithAllStandardFrameworks) {
    host.person = [](Form& form) {
        EXPECT_EQ(form.field(kinds).selected_text(), "Standardrahmen");
        for (const char* list : {types, frameworks, charts})
            EXPECT_EQ(form.field(list).selected_text(), "Alle");
        EXPECT_EQ(form.field(changes).selected_text(), "Alles");
        form.ok.click();
    };
    ASSERT_TRUE(ask());
    EXPECT_EQ(filter_text, "Standardrahmen, Auswertungsrahmen, alle Änderungen, für alle Kontenrahmen");
    EXPECT_EQ(ids,
              "(SELECT Auswertungsrahmen.ARa_Id FROM Auswertungsrahmen WHERE Auswertungsrahmen.ARa_Typ = 0)");
    EXPECT_EQ(take_statements(), (Texts{"array: " + deleted_statement(-1, 0), "array: " + charts_statement}));
    EXPECT_EQ(host.pointers.at(0), Pointer::standard);
}

TEST_F(FrameworkFilter, ProposesTheKeptChangeByItsPlaceInTheList) {
    const struct {
        ChangeKind kept;
        const char* proposed;
    } rows[] = {
        {ChangeKind::all, "Alles"},
        {ChangeKind::assignments, "Kontozuordnungen"},
        {ChangeKind::positions, "Positionen"},
        {ChangeKind::line_kinds, "Spalten"},
        {ChangeKind::columns, "Zeilenarten"},
    };
    for (const auto& row : rows) {
        proposed = row.kept;
        show([&](Form& form) { EXPECT_EQ(form.field(changes).selected_text(), row.proposed); });
    }
}

TEST_F(FrameworkFilter, ListsTheFrameworksOfTheChosenTypeAndTheDeletedOnes) {
    show([this](Form& form) {
        take_statements();
        choose(form, types, "Betriebswirtschaftliche Auswertung");
        EXPECT_EQ(entries(form, frameworks), (Entries{{0, "Alle"},
                                                      {5, "BWA kurz (Gültig ab 01/2020)"},
                                                      {6, "BWA lang"},
                                                      {8, "BWA alt (gelöscht)"}}));
        EXPECT_EQ(take_statements(),
                  (Texts{"array: " + live_statement(20, 0), "array: " + deleted_statement(20, 0)}));
    });
}

TEST_F(FrameworkFilter, ListsTheFrameworksOfTheTypeBilanzWhoseCodeIsZero) {
    show([](Form& form) {
        choose(form, types, "Bilanz");
        EXPECT_EQ(entries(form, frameworks), (Entries{{0, "Alle"}, {9, "Bilanz"}}));
    });
}

TEST_F(FrameworkFilter, RefillsTheFrameworksAndSelectsAllOfThemWithEachTypeAndKind) {
    show([this](Form& form) {
        choose(form, types, "Betriebswirtschaftliche Auswertung");
        choose(form, frameworks, "BWA lang");
        take_statements();
        choose(form, kinds, "Kanzleirahmen");
        EXPECT_EQ(entries(form, frameworks), (Entries{{0, "Alle"}, {7, "BWA Kanzlei"}}));
        EXPECT_EQ(form.field(frameworks).selected_text(), "Alle");
        EXPECT_EQ(take_statements(),
                  (Texts{"array: " + live_statement(20, 1), "array: " + deleted_statement(20, 1)}));
        choose(form, frameworks, "BWA Kanzlei");
        choose(form, kinds, "Standardrahmen");
        EXPECT_EQ(form.field(frameworks).selected_text(), "Alle");
        EXPECT_EQ(texts(form, frameworks).size(), 4U);
        choose(form, frameworks, "BWA lang");
        choose(form, types, "Alle");
        EXPECT_EQ(entries(form, frameworks), (Entries{{0, "Alle"}}));
        EXPECT_EQ(form.field(frameworks).selected_text(), "Alle");
    });
}

TEST_F(FrameworkFilter, FillsTheChartsOnceAndShowsThemForAccountAssignmentsOnly) {
    show([this](Form& form) {
        choose(form, charts, "SKR 04");
        const std::pair<const char*, bool> rows[] = {{"Positionen", false},  {"Kontozuordnungen", true},
                                                     {"Spalten", false},     {"Alles", true},
                                                     {"Zeilenarten", false}, {"Kontozuordnungen", true}};
        for (const auto& row : rows) {
            choose(form, changes, row.first);
            EXPECT_EQ(form.field(charts).visible, row.second) << row.first;
            EXPECT_EQ(form.field(charts).selected_text(), "SKR 04");
        }
        choose(form, kinds, "Kanzleirahmen");
        EXPECT_EQ(texts(form, charts), (Texts{"Alle", "SKR 03", "SKR 04"})) << "for both kinds";
        EXPECT_TRUE(form.field(charts).visible);
        const Texts sent = take_statements();
        EXPECT_EQ(std::ranges::count(sent, "array: " + charts_statement), 1);
    });
}

TEST_F(FrameworkFilter, HidesTheChartsFromTheStartWhenTheKeptChangeIsAnother) {
    proposed = ChangeKind::positions;
    show([](Form& form) { EXPECT_FALSE(form.field(charts).visible); });
}

TEST_F(FrameworkFilter, TakesOneFrameworkWithItsValidity) {
    host.person = [](Form& form) {
        choose(form, types, "Betriebswirtschaftliche Auswertung");
        choose(form, frameworks, "BWA kurz (Gültig ab 01/2020)");
        choose(form, charts, "SKR 03");
        form.ok.click();
    };
    ASSERT_TRUE(ask());
    EXPECT_EQ(taken.mlAuswertungsrahmen, 5);
    EXPECT_EQ(taken.mlAuswertungsart, 20);
    EXPECT_EQ(taken.mbyRahmenTyp, 0);
    EXPECT_EQ(taken.mlKontenrahmen, 61);
    EXPECT_EQ(taken.mlAenderungsart, ChangeKind::all);
    EXPECT_EQ(filter_text,
              "Standardrahmen: BWA kurz (Gültig ab 01/2020), alle Änderungen, für Kontenrahmen: SKR 03");
    EXPECT_EQ(ids,
              "(SELECT Auswertungsrahmen.ARa_Id FROM Auswertungsrahmen WHERE Auswertungsrahmen.ARa_Id = 5)");
}

TEST_F(FrameworkFilter, TakesADeletedFramework) {
    host.person = [](Form& form) {
        choose(form, types, "Betriebswirtschaftliche Auswertung");
        choose(form, frameworks, "BWA alt (gelöscht)");
        choose(form, changes, "Zeilenarten");
        form.ok.click();
    };
    ASSERT_TRUE(ask());
    EXPECT_EQ(taken.mlAuswertungsrahmen, 8);
    EXPECT_EQ(taken.mlAenderungsart, ChangeKind::line_kinds);
    EXPECT_EQ(filter_text, "Standardrahmen: BWA alt (gelöscht), nur Änderungen der Zeilenarten");
}

TEST_F(FrameworkFilter, SaysOfEachTypeWhatItIsAbout) {
    const std::pair<const char*, const char*> rows[] = {
        {"Alle", "Auswertungsrahmen"},
        {"Bilanz", "Bilanz"},
        {"Betriebsabrechnungsbogen", "BAB"},
        {"Betriebswirtschaftliche Auswertung", "BWA"},
        {"Anlagenspiegel", "Anlagenspiegel"},
        {"Kapitalflussrechnung", "Kapitalflussrechnung"},
        {"Kapitalkontenentwicklung", "Kapitalkontenentwicklung"},
        {"Ergebnisverwendung", "Ergebnisverwendung"},
        {"Liquiditätsvorschau", "Liquiditätsvorschau"},
        {"Rating", "Rating"},
        {"Liquidität", "Liquidität"},
    };
    for (const char* kind : {"Standardrahmen", "Kanzleirahmen"})
        for (const auto& row : rows) {
            host.person = [&](Form& form) {
                choose(form, kinds, kind);
                choose(form, types, row.first);
                choose(form, changes, "Spalten");
                form.ok.click();
            };
            ASSERT_TRUE(ask());
            EXPECT_EQ(filter_text, std::string(kind) + ", " + row.second + ", nur Spaltenänderungen");
        }
    EXPECT_EQ(ids,
              "(SELECT Auswertungsrahmen.ARa_Id FROM Auswertungsrahmen WHERE Auswertungsrahmen.ARa_Art = 55 "
              "AND Auswertungsrahmen.ARa_Typ = 1)");
}

TEST_F(FrameworkFilter, SaysOfEachChangeAndChartWhatItIsAbout) {
    const struct {
        const char *change, *chart, *text;
    } rows[] = {
        {"Alles", "Alle", "alle Änderungen, für alle Kontenrahmen"},
        {"Alles", "SKR 04", "alle Änderungen, für Kontenrahmen: SKR 04"},
        {"Kontozuordnungen", "Alle", "nur Änderungen der Kontozuordnungen, für alle Kontenrahmen"},
        {"Kontozuordnungen", "SKR 03", "nur Änderungen der Kontozuordnungen, für Kontenrahmen: SKR 03"},
        {"Positionen", "SKR 03", "nur Positionsänderungen"},
        {"Zeilenarten", "SKR 03", "nur Änderungen der Zeilenarten"},
        {"Spalten", "SKR 03", "nur Spaltenänderungen"},
    };
    for (const auto& row : rows) {
        host.person = [&](Form& form) {
            choose(form, charts, row.chart);
            choose(form, changes, row.change);
            form.ok.click();
        };
        ASSERT_TRUE(ask());
        EXPECT_EQ(filter_text, std::string("Standardrahmen, Auswertungsrahmen, ") + row.text);
    }
}

TEST_F(FrameworkFilter, RefusesAListWithoutAChoiceAndSaysWhich) {
    const struct {
        const char *list, *label;
        std::size_t focus;
    } rows[] = {
        {types, "Auswertung", 1},
        {frameworks, "Auswertungsrahmen", 2},
        {changes, "Änderungen", 3},
        {charts, "Kontenrahmen", 4},
    };
    for (const auto& row : rows) {
        host.boxes.clear();
        show([&](Form& form) {
            form.field(row.list).selected.reset();
            form.ok.click();
            EXPECT_TRUE(form.shown) << "the form stays open";
            EXPECT_EQ(form.focus, row.focus);
        });
        EXPECT_EQ(
            host.boxes,
            (std::vector<ShownBox>{{std::string("Im Feld '") + row.label + "' ist kein Eintrag gewählt!",
                                    BoxStyle::exclamation, "Unzulässige Aktion"}}));
    }
}

TEST_F(FrameworkFilter, AsksForNoChartWhileTheirListIsHidden) {
    host.person = [](Form& form) {
        choose(form, changes, "Positionen");
        form.field(charts).selected.reset();
        form.ok.click();
    };
    EXPECT_TRUE(ask());
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(FrameworkFilter, ShowsItsTopicByF1Alone) {
    show([](Form& form) {
        form.key_down({.code = key_f1, .shift = true});
        form.key_down({.code = key_f1 + 1});
        form.key_down({.code = key_f1});
    });
    EXPECT_EQ(host.help_topics, (Texts{"mivra_allgemein.xml#HID_MIVRA_ALLGEMEIN_PROTOKOLLIERUNG_"
                                       "AUSWERTUNGSRAHMEN2FZUORDNUNGEN"}));
}

TEST_F(FrameworkFilter, ShowsAnErrorOfHelpAndStaysOpen) {
    host.help_failure = test::server_error("keine Hilfe");
    show([](Form& form) {
        form.key_down({.code = key_f1});
        EXPECT_TRUE(form.shown);
    });
    EXPECT_EQ(sources(), Texts{"Testserver\r\nZQHelp.gShowWikiHelpxxx"});
}

TEST_F(FrameworkFilter, ShowsTheErrorOfEachListUnderItsProcedureAndEnds) {
    const std::pair<std::string, const char*> rows[] = {
        {deleted_statement(-1, 0), "Testserver\r\nProtAuswFrmFilter.mLoesAuswRahmen"},
        {charts_statement, "Testserver\r\nProtAuswFrmFilter.mShowKontorahmen"},
    };
    for (const auto& row : rows) {
        oDBU.failures.clear();
        oDBU.failures.emplace(row.first, test::server_error("kein Zugriff"));
        host.errors.clear();
        EXPECT_FALSE(ask());
        EXPECT_EQ(sources(), Texts{row.second});
        EXPECT_EQ(host.errors[0].description, "kein Zugriff");
    }
    EXPECT_EQ(host.forms_shown, 0);
}

TEST_F(FrameworkFilter, ShowsTheErrorOfARefillAndEnds) {
    oDBU.failures.emplace(live_statement(20, 0), test::server_error("kein Zugriff"));
    host.person = [](Form& form) {
        choose(form, types, "Betriebswirtschaftliche Auswertung");
        EXPECT_FALSE(form.shown);
        form.ok.click();
    };
    EXPECT_FALSE(ask());
    EXPECT_EQ(sources(), Texts{"Testserver\r\nProtAuswFrmFilter.mRahmenFuellen"});
}

}  // namespace
}  // namespace prot::report_frameworks
