#include <gtest/gtest.h>

#include "tests/unit/sections/report_frameworks/filter_fixture.h"
#include "tests/unit/support/batch_readings.h"

namespace prot::report_frameworks {
namespace {

/// Makes the choices of the form by a batch text.
class FrameworkBatch : public FrameworkFilter {
protected:
    /// Whether the batch text is accepted; the person cancels a form that is shown.
    bool accepts(const std::string& parameters) {
        host.person = [](Form& form) { form.cancel.click(); };
        const int shown = host.forms_shown;
        const bool accepted = ask(parameters);
        EXPECT_EQ(host.forms_shown, shown + (accepted ? 0 : 1)) << parameters;
        EXPECT_EQ(commandline, accepted ? parameters : "") << "a refused text is emptied";
        return accepted;
    }
    /// The info text of a batch text that is accepted.
    std::string info(const std::string& parameters) {
        EXPECT_TRUE(accepts(parameters)) << parameters;
        return filter_text;
    }
};

const std::string all_changes = ", alle Änderungen, für alle Kontenrahmen";

TEST_F(FrameworkBatch, WithAutostartAloneTakesTheDefaults) {
    EXPECT_EQ(info("/autostart"), "Standardrahmen, Auswertungsrahmen" + all_changes);
    EXPECT_EQ(info("/AutoStart"), "Standardrahmen, Auswertungsrahmen" + all_changes);
    EXPECT_EQ(taken.mlAuswertungsart, -1);
    EXPECT_EQ(taken.mlAuswertungsrahmen, 0);
}

TEST_F(FrameworkBatch, TellsWhatItMakesOfAValue) {
    const struct {
        const char* text;
        const char* reading;  ///< of the last item
    } rows[] = {
        {"stdkanz:K", "taken stdkanz:|stdkanz:K|K|Kanzleirahmen"},
        {"stdkanz:x", "passed over stdkanz:|stdkanz:x||"},
        {"stdkanz:", "passed over stdkanz:|stdkanz:||"},
        {"auswertung:Bilans", "absent auswertung:|auswertung:Bilans||"},
        {"awraend:ZA", "taken awraend:|awraend:ZA|ZA|Zeilenarten"},
        {"awraend:zb", "passed over awraend:|awraend:zb||"},
        {"kontenrahmen:skr 03", "taken kontenrahmen:|kontenrahmen:skr 03|skr 03|SKR 03"},
        {"kontenrahmen:skr", "absent kontenrahmen:|kontenrahmen:skr||"},
        {"kontenrahmen:skr 03/awraend:za", "idle kontenrahmen:|||"},
        {"auswertungsrahmen:BWA", "idle auswertungsrahmen:|auswertungsrahmen:BWA||"},
        {"auswertung:betriebswirtschaftliche auswertung/auswertungsrahmen:BWA L",
         "taken auswertungsrahmen:|auswertungsrahmen:BWA L|BWA L|BWA lang"},
        {"auswertung:betriebswirtschaftliche auswertung/auswertungsrahmen:BWA X",
         "absent auswertungsrahmen:|auswertungsrahmen:BWA X||"},
        {"auswertung:bilanz/xy:1/auswertungsrahmen:b", "unread |xy:1||"},
    };
    for (const auto& row : rows) {
        host.readings.clear();
        accepts("/autostart/" + std::string(row.text));
        ASSERT_FALSE(host.readings.empty()) << row.text;
        EXPECT_EQ(test::line_of(host.readings.back()), row.reading);
    }
}

TEST_F(FrameworkBatch, WithoutAutostartShowsTheForm) {
    for (const char* text : {"/awraend:kto", "/stdkanz:k/auswertung:bilanz", "autostart", "/", "x",
                             "/auswertungsrahmen:BWA", "/auswertung:autostart"})
        EXPECT_FALSE(accepts(text)) << text;
}

TEST_F(FrameworkBatch, IgnoresWhatStandsBeforeAutostart) {
    EXPECT_EQ(info("/stdkanz:k/awraend:kto/autostart/awraend:za"),
              "Standardrahmen, Auswertungsrahmen, nur Änderungen der Zeilenarten");
    EXPECT_EQ(info("/stdkanz:x/auswertung:Bilanz/autostart"),
              "Standardrahmen, Auswertungsrahmen" + all_changes);
}

TEST_F(FrameworkBatch, KnowsBothKindsInAnyLetterCase) {
    const std::pair<const char*, const char*> rows[] = {{"s", "Standardrahmen"},
                                                        {"S", "Standardrahmen"},
                                                        {"k", "Kanzleirahmen"},
                                                        {"K", "Kanzleirahmen"},
                                                        {"", "Standardrahmen"}};
    for (const auto& row : rows)
        EXPECT_EQ(info(std::string("/autostart/stdkanz:") + row.first),
                  row.second + (", Auswertungsrahmen" + all_changes));
    EXPECT_EQ(info("/autostart/stdkanz:k/stdkanz:"), "Kanzleirahmen, Auswertungsrahmen" + all_changes)
        << "the empty value changes nothing";
    EXPECT_EQ(info("/autostart/stdkanz:k/stdkanz:s"), "Standardrahmen, Auswertungsrahmen" + all_changes);
}

TEST_F(FrameworkBatch, WithAKindThatDoesNotExistShowsWhatItHasSelected) {
    host.person = [](Form& form) {
        EXPECT_EQ(form.field(kinds).selected_text(), "Kanzleirahmen");
        EXPECT_EQ(form.field(types).selected_text(), "Betriebswirtschaftliche Auswertung");
        EXPECT_EQ(texts(form, frameworks), (Texts{"Alle", "BWA Kanzlei"}));
        EXPECT_EQ(form.field(changes).selected_text(), "Kontozuordnungen");
        EXPECT_EQ(form.field(charts).selected_text(), "SKR 04") << "later keys are read";
        form.ok.click();
    };
    const std::string before = "/autostart/stdkanz:k/auswertung:betriebswirtschaftliche auswertung";
    for (const char* bad : {"/stdkanz:x", "/stdkanz:standard", "/stdkanz:0"}) {
        ASSERT_TRUE(ask(before + bad + "/awraend:kto/kontenrahmen:skr 04"));
        EXPECT_EQ(commandline, "") << "the run is interactive";
        EXPECT_EQ(filter_text,
                  "Kanzleirahmen, BWA, nur Änderungen der Kontozuordnungen, für Kontenrahmen: SKR 04");
    }
    EXPECT_EQ(host.forms_shown, 3);
}

TEST_F(FrameworkBatch, WithAnotherAutostartBehindABadKindNeedsNoForm) {
    EXPECT_TRUE(accepts("/autostart/stdkanz:x/autostart"));
    EXPECT_FALSE(accepts("/autostart/autostart/stdkanz:x"));
    EXPECT_FALSE(accepts("/autostart/stdkanz:x/stdkanz:k")) << "a good one does not mend it";
}

TEST_F(FrameworkBatch, KnowsEveryTypeByItsListTextInAnyLetterCase) {
    const struct {
        const char* value;
        std::int32_t code;
    } rows[] = {
        {"Alle", -1},
        {"bilanz", 0},
        {"BETRIEBSABRECHNUNGSBOGEN", 10},
        {"Betriebswirtschaftliche Auswertung", 20},
        {"Anlagenspiegel", 30},
        {"Kapitalkontenentwicklung", 40},
        {"Ergebnisverwendung", 45},
        {"kapitalflussrechnung", 50},
        {"LIQUIDITÄT", 55},
        {"liquiditätsvorschau", 60},
        {"Rating", 70},
    };
    for (const auto& row : rows) {
        EXPECT_TRUE(accepts(std::string("/autostart/auswertung:") + row.value)) << row.value;
        EXPECT_EQ(taken.mlAuswertungsart, row.code) << row.value;
    }
}

TEST_F(FrameworkBatch, LeavesTheTypeWhereTheValueIsNoListText) {
    for (const char* value : {"", "BWA", "Bil", "Bilanzen", "20", "Liquidit"}) {
        EXPECT_TRUE(accepts(std::string("/autostart/auswertung:Rating/auswertung:") + value)) << value;
        EXPECT_EQ(taken.mlAuswertungsart, 70) << value;
    }
}

TEST_F(FrameworkBatch, RefillsTheFrameworksWithTypeAndKind) {
    EXPECT_TRUE(accepts("/autostart/auswertung:Bilanz/stdkanz:k"));
    EXPECT_EQ(take_statements(),
              (Texts{"array: " + deleted_statement(-1, 0), "array: " + charts_statement,
                     "array: " + live_statement(0, 0), "array: " + deleted_statement(0, 0),
                     "array: " + live_statement(0, 1), "array: " + deleted_statement(0, 1)}));
}

TEST_F(FrameworkBatch, KnowsEveryChangeInAnyLetterCase) {
    const struct {
        const char* value;
        ChangeKind kind;
    } rows[] = {
        {"alle", ChangeKind::all},      {"kto", ChangeKind::assignments}, {"pos", ChangeKind::positions},
        {"za", ChangeKind::line_kinds}, {"sp", ChangeKind::columns},      {"KTO", ChangeKind::assignments},
        {"Pos", ChangeKind::positions},
    };
    for (const auto& row : rows) {
        EXPECT_TRUE(accepts(std::string("/autostart/awraend:") + row.value)) << row.value;
        EXPECT_EQ(taken.mlAenderungsart, row.kind) << row.value;
    }
    EXPECT_TRUE(accepts("/autostart/AwrAend:za"));
    EXPECT_EQ(taken.mlAenderungsart, ChangeKind::line_kinds);
}

TEST_F(FrameworkBatch, LeavesTheDefaultForAChangeThatIsNone) {
    proposed = ChangeKind::positions;
    for (const char* value : {"", "konto", "positionen", "2", "zeile"}) {
        EXPECT_TRUE(accepts(std::string("/autostart/awraend:") + value)) << value;
        EXPECT_EQ(taken.mlAenderungsart, ChangeKind::positions) << value;
    }
}

TEST_F(FrameworkBatch, WithAccountAssignmentsAndNoChartSaysForAllCharts) {
    EXPECT_EQ(info("/autostart/awraend:kto"),
              "Standardrahmen, Auswertungsrahmen, nur Änderungen der "
              "Kontozuordnungen, für alle Kontenrahmen");
}

TEST_F(FrameworkBatch, KnowsAChartByItsWholeTextInAnyLetterCase) {
    for (const char* value : {"SKR 04", "skr 04", "Skr 04"}) {
        EXPECT_EQ(info(std::string("/autostart/kontenrahmen:") + value),
                  "Standardrahmen, Auswertungsrahmen, alle Änderungen, für Kontenrahmen: SKR 04");
        EXPECT_EQ(taken.mlKontenrahmen, 62);
    }
    for (const char* value : {"", "SKR", "SKR 0", "SKR 044", "62"}) {
        EXPECT_TRUE(accepts(std::string("/autostart/kontenrahmen:") + value));
        EXPECT_EQ(taken.mlKontenrahmen, 0) << value;
    }
    EXPECT_TRUE(accepts("/autostart/kontenrahmen:SKR 03/kontenrahmen:alle"));
    EXPECT_EQ(taken.mlKontenrahmen, 0);
}

TEST_F(FrameworkBatch, KnowsAFrameworkByTheBeginningOfItsEntry) {
    const struct {
        const char* value;
        std::int32_t id;
        const char* why;
    } rows[] = {
        {"BWA lang", 6, "the whole text"},
        {"bwa L", 6, "a beginning in other letters"},
        {" BWA lang ", 6, "blanks around it do not count"},
        {"BWA", 5, "the first that begins so"},
        {"BWA kurz", 5, "the validity need not be named"},
        {"BWA kurz (gültig ab 01", 5, "but may be"},
        {"BWA alt", 8, "a deleted one"},
        {"lang", 0, "not within the text"},
        {"BWA lang und mehr", 0, "nor beyond it"},
        {"", 0, "nothing begins every text, so the first entry"},
        {"alle", 0, "all of them"},
    };
    for (const auto& row : rows) {
        const std::string type = "/autostart/auswertung:Betriebswirtschaftliche Auswertung";
        EXPECT_TRUE(accepts(type + "/auswertungsrahmen:" + row.value)) << row.why;
        EXPECT_EQ(taken.mlAuswertungsrahmen, row.id) << row.why;
        EXPECT_EQ(taken.mlAuswertungsart, 20) << row.why;
    }
}

TEST_F(FrameworkBatch, KnowsAFrameworkWithSlashesInItsName) {
    oDBU.answers[live_statement(20, 1)] = {
        {std::int64_t{7}, std::string("BWA Nord"), Value(), Value()},
        {std::int64_t{17}, std::string("BWA Nord/Süd/2026"), Value(), Value()}};
    EXPECT_EQ(info("/sektion:10/autostart/stdkanz:k/auswertung:Betriebswirtschaftliche Auswertung"
                   "/auswertungsrahmen:BWA Nord/Süd/awraend:kto/kontenrahmen:SKR 03"),
              "Kanzleirahmen: BWA Nord/Süd/2026, nur Änderungen der Kontozuordnungen, für Kontenrahmen: "
              "SKR 03");
    EXPECT_EQ(taken.mlAuswertungsrahmen, 17);
}

TEST_F(FrameworkBatch, WithAFrameworkIsReadInTheOrderOfTheScanWhereverItsKeysStand) {
    EXPECT_EQ(info("/autostart/auswertungsrahmen:BWA lang/awraend:pos/auswertung:Betriebswirtschaftliche "
                   "Auswertung"),
              "Standardrahmen: BWA lang, nur Positionsänderungen")
        << "the type, though it stands last, does not empty the list again";
}

TEST_F(FrameworkBatch, ShowsItsErrorUnderTheProcedureThatFailsAndEnds) {
    oDBU.failures.emplace(live_statement(0, 0), test::server_error("kein Zugriff"));
    EXPECT_FALSE(ask("/autostart/auswertung:Bilanz"));
    EXPECT_EQ(sources(), Texts{"Testserver\r\nProtAuswFrmFilter.mRahmenFuellen"});
    EXPECT_EQ(host.forms_shown, 0);
}

}  // namespace
}  // namespace prot::report_frameworks
