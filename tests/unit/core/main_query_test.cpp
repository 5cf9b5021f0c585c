#include <gtest/gtest.h>

#include "core/ProtQRBCsvBas.h"
#include "tests/unit/support/fakes.h"

namespace prot {
namespace {

using test::FakeDatabase;
using test::FakeHost;
using test::server_error;
using test::ShownBox;

constexpr const char* log_table_query =
    "SELECT dcLogTable FROM tSysQuvoLogSections WHERE IDSysQuvoLogSections = 15";
constexpr const char* select_head =
    "SELECT idProtokoll, dcTable, dcWorkstation, dcUser, ddDatum, dlEvent, dmData, dcSystemUser, "
    "dcApplication, "
    "dlPrimaryKey1, dlSuchId1,  dlSuchId2,  dlSuchId3,  dlSuchId4 FROM tProtokoll WHERE ";

Date day(int year, int month, int number) { return to_date(CivilTime{year, month, number}); }

class MainQuery : public testing::Test {
protected:
    FakeHost host;
    FakeDatabase oDBU;
    MainQuery() { use_log("tProtokoll"); }
    void use_log(const std::string& table) { oDBU.answers[log_table_query] = {{table}}; }
    std::string select(std::int32_t events, Date from = {}, Date to = {}, std::string_view user = {}) {
        return gsMainSelect(oDBU, 15, events, from, to, user, false);
    }
};

TEST_F(MainQuery, SelectsTheFourteenColumnsOfTheSectionsLogTable) {
    EXPECT_EQ(select(7), select_head);
    EXPECT_EQ(oDBU.statements, std::vector<std::string>{std::string("value: ") + log_table_query});
}

TEST_F(MainQuery, DerivesTheKeyColumnFromAnyLogTable) {
    use_log("tLog");
    EXPECT_EQ(select(7).substr(0, 24), "SELECT idLog, dcTable, d");
}

TEST_F(MainQuery, RestrictsByUserPeriodAndEventsInThisOrder) {
    EXPECT_EQ(select(3, day(2026, 1, 1), day(2026, 12, 31), "Müller"),
              std::string(select_head) +
                  "dcUser = 'Müller' AND ddDatum >= <01.01.2026> AND "
                  "ddDatum <= <01.01.2027> AND  dlEvent IN(0, 1) AND ");
}

TEST_F(MainQuery, BoundsThePeriodByTheDayAfterItsLastDayIncluded) {
    EXPECT_EQ(select(7, {}, day(2026, 12, 31)), std::string(select_head) + "ddDatum <= <01.01.2027> AND ");
}

TEST_F(MainQuery, ListsTheEventsOfTheMask) {
    const struct {
        std::int32_t mask;
        const char* condition;
        const char* why;
    } rows[] = {
        {0, " 1 = 2 AND ", "none selects nothing"},
        {1, " dlEvent IN(0) AND ", "created"},
        {5, " dlEvent IN(0, 2) AND ", "created and deleted"},
        {6, " dlEvent IN(1, 2) AND ", "changed and deleted"},
        {7, "", "all need no condition"},
        {8, " dlEvent IN() AND ", "a mask of higher bits only is invalid"},
        {15, " dlEvent IN(0, 1, 2) AND ", "higher bits are ignored"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(select(row.mask), std::string(select_head) + row.condition) << row.why;
}

TEST_F(MainQuery, InsertsAnApostropheInAUserNameAsItIs) {
    EXPECT_EQ(select(7, {}, {}, "O'Brien"), std::string(select_head) + "dcUser = 'O'Brien' AND ");
}

TEST_F(MainQuery, DeletionBeginsWithTheTableAlone) {
    EXPECT_EQ(gsMainSelect(oDBU, 15, 7, {}, {}, "Max", true), "DELETE tProtokoll WHERE dcUser = 'Max' AND ");
}

TEST_F(MainQuery, RaisesAnErrorWithItsName) {
    oDBU.failures.emplace(log_table_query, server_error("Tabelle fehlt"));
    try {
        select(7);
        FAIL();
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.source(), PROT_STAMP "|srvprotqrbcsv|Testserver\r\nProtQRBCsvBas.gsMainSelect");
    }
}

class Deletion : public MainQuery {
protected:
    const std::string statement = "DELETE tProtokoll WHERE  1 = 1 ";
    const std::string count = "SELECT COUNT(*) FROM tProtokoll WHERE  1 = 1 ";
    const std::string memo =
        "DELETE tProtokollMemo WHERE flProtokoll in (SELECT idProtokoll FROM tProtokoll WHERE  1 = 1 )";
    const std::string title = "Löschen Stammdatenprotokoll";

    void run(std::int64_t records) {
        oDBU.answers[count] = {{records}};
        gMainDelete(host.environment, oDBU, 15, statement);
    }
};

TEST_F(Deletion, CountsAsksAndDeletesMemoRowsBeforeLogRecords) {
    host.answer = BoxAnswer::yes;
    run(12);
    EXPECT_EQ(oDBU.statements,
              (std::vector<std::string>{std::string("value: ") + log_table_query, "value: " + count,
                                        "execute: " + memo, "execute: " + statement}));
    EXPECT_EQ(
        host.boxes,
        (std::vector<ShownBox>{{"Für die getätigten Einstellungen wurden 12 Protokollsätze gefunden.\r\n\r\n"
                                "Sollen die Protokollsätze endgültig gelöscht werden?",
                                BoxStyle::question_yes_no, title}}));
    EXPECT_EQ(host.pointers, (std::vector<Pointer>{Pointer::hourglass, Pointer::standard, Pointer::hourglass,
                                                   Pointer::standard}));
}

TEST_F(Deletion, ShowsThePluralForASingleRecordToo) {
    run(1);
    ASSERT_EQ(host.boxes.size(), 1U);
    EXPECT_EQ(host.boxes[0].text,
              "Für die getätigten Einstellungen wurden 1 Protokollsätze gefunden.\r\n\r\n"
              "Sollen die Protokollsätze endgültig gelöscht werden?");
}

TEST_F(Deletion, DeletesNothingWithoutAYes) {
    host.answer = BoxAnswer::no;
    run(12);
    EXPECT_EQ(oDBU.statements.size(), 2U);
    EXPECT_EQ(host.pointers.back(), Pointer::standard);
}

TEST_F(Deletion, SaysSoWhenThereIsNothingToDelete) {
    host.answer = BoxAnswer::yes;
    run(0);
    EXPECT_EQ(host.boxes,
              (std::vector<ShownBox>{
                  {"Für die getätigten Einstellungen wurden keine zu löschenden Protokollsätze gefunden.",
                   BoxStyle::information, title}}));
    EXPECT_EQ(oDBU.statements.size(), 2U);
}

TEST_F(Deletion, DeletesNothingWhenItCannotAsk) {
    struct HostWithoutBoxes : FakeHost {
        BoxAnswer show(std::string_view, BoxStyle, std::string_view) override {
            throw server_error("kein Fenster");
        }
    } without_boxes;
    oDBU.answers[count] = {{std::int64_t{12}}};
    gMainDelete(without_boxes.environment, oDBU, 15, statement);
    EXPECT_EQ(oDBU.statements.back(), "value: " + count);
    EXPECT_TRUE(without_boxes.errors.empty());
}

TEST_F(Deletion, NeverTouchesAMemoTableOfAnotherLog) {
    use_log("tLog");
    host.answer = BoxAnswer::yes;
    oDBU.answers["SELECT COUNT(*) FROM tLog WHERE  1 = 1 "] = {{std::int64_t{3}}};
    gMainDelete(host.environment, oDBU, 15, "DELETE tLog WHERE  1 = 1 ");
    EXPECT_EQ(oDBU.statements.back(), "execute: DELETE tLog WHERE  1 = 1 ");
    EXPECT_EQ(oDBU.statements.size(), 3U);
}

TEST_F(Deletion, KnowsTheMemoTableInAnyLetterCase) {
    use_log("TPROTOKOLL");
    host.answer = BoxAnswer::yes;
    oDBU.answers["SELECT COUNT(*) FROM TPROTOKOLL WHERE x"] = {{std::int64_t{3}}};
    gMainDelete(host.environment, oDBU, 15, "DELETE TPROTOKOLL WHERE x");
    EXPECT_EQ(
        oDBU.statements[2],
        "execute: DELETE TPROTOKOLLMemo WHERE flProtokoll in (SELECT idProtokoll FROM TPROTOKOLL WHERE x)");
}

TEST_F(Deletion, ReplacesEveryDeleteWhenItCounts) {
    gMainDelete(host.environment, oDBU, 15, "DELETE tProtokoll WHERE dcUser = 'DELETE'");
    EXPECT_EQ(oDBU.statements.back(),
              "value: SELECT COUNT(*) FROM tProtokoll WHERE dcUser = 'SELECT COUNT(*) FROM'");
}

TEST_F(Deletion, LeavesTheLogAloneWhenTheMemoRowsCannotBeDeleted) {
    host.answer = BoxAnswer::yes;
    oDBU.failures.emplace(memo, server_error("gesperrt"));
    run(12);
    EXPECT_EQ(oDBU.statements.back(), "execute: " + memo);
    ASSERT_EQ(host.errors.size(), 1U);
    EXPECT_EQ(host.errors[0].source, PROT_STAMP "|srvprotqrbcsv|Testserver\r\nProtQRBCsvBas.gMainDelete");
    EXPECT_EQ(host.pointers.back(), Pointer::standard);
}

}  // namespace
}  // namespace prot
