// The log's statements as the exporters build them, against a real database: what counts is which rows they
// select.

#include <gmock/gmock.h>

#include "tests/unit/platform/portable/sqlite/framework_condition.h"
#include "tests/unit/platform/portable/sqlite/sqlite_fixture.h"

namespace prot {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* log_table = R"(
CREATE TABLE tProtokoll (idProtokoll INTEGER PRIMARY KEY, dcTable TEXT COLLATE NOCASE, dcUser TEXT COLLATE NOCASE,
    ddDatum DATETIME, dlEvent INTEGER, dmData TEXT, dlPrimaryKey1 INTEGER, dlPrimaryKey2 INTEGER, dlSuchId1 INTEGER,
    dlSuchId2 INTEGER, dlSuchId3 INTEGER, dlSuchId4 INTEGER);
CREATE TABLE tProtokollMemo (flProtokoll INTEGER, dmMemo TEXT);
)";

class LogStatements : public SqliteFixture {
protected:
    LogStatements() { write(log_table); }

    /// One log row; its date is day `id` of a long month, so that the order by date is the order by id.
    void log(int id, const std::string& table, int event, const std::string& columns,
             const std::string& values) const {
        write("INSERT INTO tProtokoll (idProtokoll, dcTable, ddDatum, dlEvent, " + columns + ") VALUES (" +
              std::to_string(id) + ", '" + table + "', datetime('2026-01-01', '+" + std::to_string(id) +
              " days'), " + std::to_string(event) + ", " + values + ")");
    }

    std::vector<std::string> rows(const std::string& sql) const { return lines(open()->query_array(sql)); }

    std::vector<std::string> selected(const std::string& condition) const {
        return rows("SELECT idProtokoll FROM tProtokoll WHERE " + condition + " ORDER BY ddDatum");
    }
};

// Frameworks 5 and 6 are of type 1 and kind 0, framework 7 is another's; framework 4 and line kind 51 are
// deleted.
class FrameworkStatements : public LogStatements, protected FrameworkCondition {
protected:
    FrameworkStatements() {
        write(
            "CREATE TABLE AUSWERTUNGSRAHMEN (ARA_ID INTEGER, ARA_ART INTEGER, ARA_TYP INTEGER);"
            "INSERT INTO AUSWERTUNGSRAHMEN VALUES (5, 1, 0), (6, 1, 0), (7, 2, 1);"
            "CREATE TABLE ZEILENART (ZA_ID INTEGER, ARA_ID INTEGER);"
            "INSERT INTO ZEILENART VALUES (50, 5), (60, 6), (70, 7);"
            "CREATE TABLE AUSWERTUNGSPOSITION (AP_ID INTEGER, ZA_ID INTEGER);"
            "INSERT INTO AUSWERTUNGSPOSITION VALUES (500, 50), (600, 60), (700, 70);"
            "CREATE TABLE FORMEL_POSITION (AP_ID INTEGER); INSERT INTO FORMEL_POSITION VALUES (500), (600), "
            "(700);"
            "CREATE TABLE AUSWERTUNGSART (AA_ID INTEGER, ARA_ID INTEGER);"
            "INSERT INTO AUSWERTUNGSART VALUES (55, 5), (66, 6), (77, 7);");
        log(1, "ZEILENART", 1, "dlPrimaryKey1, dlSuchId1", "50, 5");
        log(2, "ZEILENART", 1, "dlPrimaryKey1, dlSuchId1", "60, 6");
        log(3, "ZEILENART", 1, "dlPrimaryKey1, dlSuchId1", "70, 7");
        log(4, "AUSWERTUNGSPOSITION", 1, "dlPrimaryKey1, dlSuchId1", "500, 50");
        log(5, "AUSWERTUNGSPOSITION", 1, "dlPrimaryKey1, dlSuchId1", "600, 60");
        log(6, "AUSWERTUNGSPOSITION", 1, "dlPrimaryKey1, dlSuchId1", "700, 70");
        log(7, "ZEILENART", 2, "dlPrimaryKey1, dlSuchId1", "51, 4");
        log(8, "AUSWERTUNGSRAHMEN", 2, "dlPrimaryKey1, dlSuchId1, dlSuchId2, dlSuchId3", "4, 4, 1, 0");
        log(9, "AUSWERTUNGSPOSITION", 2, "dlPrimaryKey1, dlSuchId1", "510, 51");
        log(10, "FORMEL_POSITION", 1, "dlSuchId1, dlSuchId2", "1, 500");
        log(11, "FORMEL_POSITION", 2, "dlSuchId1, dlSuchId2", "2, 510");
        log(12, "AUSWERTUNGSZELLE", 1, "dlSuchId1", "500");
        log(13, "SPALTENFORMATE", 1, "dlSuchId2", "60");
        log(14, "AUSWERTUNGSSPALTE", 1, "dlSuchId1", "77");
        log(15, "AUSWERTUNGSRAHMEN", 1, "dlPrimaryKey1, dlSuchId1, dlSuchId2, dlSuchId3", "5, 5, 1, 0");
        log(16, "AUSWERTUNGSRAHMEN", 1, "dlPrimaryKey1, dlSuchId1, dlSuchId2, dlSuchId3", "6, 6, 1, 0");
    }
};

TEST_F(FrameworkStatements, SelectALineKindOfEveryChosenFramework) {
    EXPECT_THAT(selected("(dcTable = 'ZEILENART' AND dlSuchId1 IN (" + chosen + "))"), ElementsAre("1", "2"));
}

TEST_F(FrameworkStatements, FollowDeletedParentsThroughTheLog) {
    EXPECT_THAT(selected("(1 = 2" + line_kinds + ")"), ElementsAre("1", "2", "7"));
    EXPECT_THAT(selected(positions), ElementsAre("4", "5", "9"));
    EXPECT_THAT(selected("(1 = 2 " + accounts + ")"), ElementsAre("10", "11"));
}

TEST_F(FrameworkStatements, SelectEverythingOfTheChosenFrameworksInOneCondition) {
    EXPECT_THAT(selected(everything),
                ElementsAre("1", "2", "4", "5", "7", "9", "10", "11", "12", "13", "15", "16"));
}

TEST_F(FrameworkStatements, DeleteMemosAndRowsOfTheSameCondition) {
    write("INSERT INTO tProtokollMemo SELECT idProtokoll, 'x' FROM tProtokoll");
    const std::string condition =
        " WHERE ddDatum <= '2026-01-11 00:00:00' AND  dlEvent IN(1, 2) AND " + everything;
    const auto database = open(SqliteAccess::read_write);
    EXPECT_EQ(database->query_value("SELECT COUNT(*) FROM tProtokoll" + condition), Value(std::int64_t{7}));
    database->execute("DELETE tProtokollMemo WHERE flProtokoll in (SELECT idProtokoll FROM tProtokoll" +
                      condition + ")");
    database->execute("DELETE tProtokoll" + condition);
    EXPECT_THAT(rows("SELECT flProtokoll FROM tProtokollMemo ORDER BY 1"),
                ElementsAre("3", "6", "8", "11", "12", "13", "14", "15", "16"));
    EXPECT_THAT(rows("SELECT idProtokoll FROM tProtokoll ORDER BY ddDatum"),
                ElementsAre("3", "6", "8", "11", "12", "13", "14", "15", "16"));
}

// Customers 10000 and 10001 (persons 901 and 902) are in the range, customer 20000 (person 903) is not.
class CustomerStatements : public LogStatements {
protected:
    CustomerStatements() {
        write(
            "CREATE TABLE KUNDEN_V4 (KUN_ID INTEGER, KUN_NR REAL, KLKD_ID INTEGER, Ps_Id_Mandant INTEGER);"
            "INSERT INTO KUNDEN_V4 VALUES (1, 10000, 11, 4711), (2, 10001, 12, 4711), (3, 20000, 13, 4711);"
            "CREATE TABLE PERSON_BANKKONTO (PS_ID INTEGER, BK_ID INTEGER);"
            "INSERT INTO PERSON_BANKKONTO VALUES (901, 31), (903, 33);"
            "CREATE TABLE PERSON_ADRESSE (PS_ID INTEGER, ADR_ID INTEGER);"
            "INSERT INTO PERSON_ADRESSE VALUES (902, 41);");
        log(1, "KUNDEN_V4", 1, "dlSuchId1, dlSuchId2, dlSuchId4", "901, 4711, 10000");
        log(2, "KUNDEN_V4", 1, "dlSuchId1, dlSuchId2, dlSuchId4", "902, 4711, 10001");
        log(3, "KUNDEN_V4", 1, "dlSuchId1, dlSuchId2, dlSuchId4", "903, 4711, 20000");
        log(4, "PERSON_V4", 1, "dlPrimaryKey1", "901");
        log(5, "PERSON_V4", 1, "dlPrimaryKey1", "903");
        log(6, "PERSONALIE", 1, "dlSuchId1", "902");
        log(7, "BANKKONTO", 1, "dlPrimaryKey1", "31");
        log(8, "BANKKONTO", 2, "dlPrimaryKey1", "32");
        log(9, "BANKKONTO", 1, "dlPrimaryKey1", "33");
        log(10, "PERSON_BANKKONTO", 2, "dlPrimaryKey1, dlPrimaryKey2", "32, 902");
        log(11, "PERSON_ADRESSE", 1, "dlPrimaryKey1, dlPrimaryKey2", "41, 902");
        log(12, "PERSON_ADRESSE", 1, "dlPrimaryKey1, dlPrimaryKey2", "42, 901");
        log(13, "TKULIEFKOND", 1, "dlPrimaryKey1", "12");
        log(14, "TKULIEFKOND", 1, "dlPrimaryKey1", "13");
        log(15, "TKUNDVWZ", 1, "dlPrimaryKey1", "2");
        log(16, "TKUNDVWZ", 1, "dlPrimaryKey1", "3");
        log(17, "TKUNDVWZ", 2, "dlPrimaryKey1, dlPrimaryKey2", "1, 3");
        log(18, "TKUNDVWZ", 1, "dlPrimaryKey1", "4");
    }

    /// The condition over a set of persons, of payment conditions and (left open) of customers.
    static std::string condition(const std::string& persons, const std::string& terms,
                                 const std::string& customers) {
        return " ((dcTable = 'KUNDEN_V4' AND  dcTable = 'KUNDEN_V4' AND dlSuchId4 BETWEEN 10000 AND 10001 "
               "AND dlSuchId2 "
               "= 4711)  OR (dcTable = 'PERSON_V4' AND dlPrimaryKey1 IN " +
               persons + ") OR (dcTable = 'PERSONALIE' AND dlSuchId1 IN " + persons +
               ") OR (dcTable = 'BANKKONTO' AND dlPrimaryKey1 IN (SELECT BK_ID FROM PERSON_BANKKONTO WHERE "
               "PS_ID IN " +
               persons +
               " UNION SELECT dlPrimaryKey1 FROM tProtokoll WHERE dcTable = 'PERSON_BANKKONTO' AND dlEvent = "
               "2 AND "
               "dlPrimaryKey2 IN " +
               persons + ")) OR (dcTable = 'PERSON_ADRESSE' AND dlPrimaryKey2 IN (" + persons +
               " UNION SELECT dlPrimaryKey1 FROM tProtokoll WHERE dcTable = 'PERSON_ADRESSE' AND dlEvent = 2 "
               "AND "
               "dlPrimaryKey2 IN " +
               persons + ")) OR (dcTable = 'TKULIEFKOND' AND dlPrimaryKey1 IN " + terms +
               ") OR (dcTable = 'TKUNDVWZ' AND dlPrimaryKey1 IN " + customers +
               " UNION SELECT dlPrimaryKey2 FROM tProtokoll WHERE dcTable = 'TKUNDVWZ' AND dlEvent = 2 AND "
               "dlPrimaryKey1 IN " +
               customers + "))))";
    }
};

TEST_F(CustomerStatements, SelectThroughTemporaryTablesOnAReadOnlyConnection) {
    const std::string batch =
        "DROP TABLE IF EXISTS #TempTable_tProtokoll \r\n"
        "SELECT dlSuchId1 INTO #TempTable_tProtokoll FROM tProtokoll WHERE  dcTable = 'KUNDEN_V4' AND "
        "dlSuchId4 "
        "BETWEEN 10000 AND 10001 AND dlSuchId2 = 4711; \r\n"
        "DROP TABLE IF EXISTS #TempTable_KuLief \r\n"
        "SELECT KLKD_ID,KUN_ID INTO #TempTable_KuLief FROM KUNDEN_V4  WHERE KUN_NR BETWEEN 10000 AND 10001 "
        "AND "
        "Ps_Id_Mandant = 4711;\r\n";
    const std::string sql =
        "SELECT idProtokoll FROM tProtokoll WHERE " +
        condition("(Select dlSuchId1 From #TempTable_tProtokoll)", "(SELECT KLKD_ID FROM #TempTable_KuLief)",
                  "(SELECT KUN_ID FROM #TempTable_KuLief") +
        " ORDER BY ddDatum";
    const auto database = open();
    for (int run = 0; run < 2; ++run) {
        database->execute(batch);
        EXPECT_THAT(lines(database->query_array(sql)),
                    ElementsAre("1", "2", "4", "6", "7", "8", "11", "12", "13", "15", "16", "17"));
    }
}

TEST_F(CustomerStatements, SelectTheSameThroughSubqueries) {
    const std::string range = " WHERE KUN_NR BETWEEN 10000 AND 10001 AND Ps_Id_Mandant = 4711";
    EXPECT_THAT(
        selected(condition("(Select dlSuchId1 From tProtokoll Where  dcTable = 'KUNDEN_V4' AND dlSuchId4 "
                           "BETWEEN 10000 AND 10001 AND dlSuchId2 = 4711)",
                           "(SELECT KLKD_ID FROM KUNDEN_V4 " + range + ")",
                           "(SELECT KUN_ID FROM KUNDEN_V4 " + range)),
        ElementsAre("1", "2", "4", "6", "7", "8", "11", "12", "13", "15", "16", "17"));
}

TEST_F(CustomerStatements, WithAnEmptyClientListAreRejectedAsOnTheServer) {
    EXPECT_THAT(error_of([&] { selected("dcTable = 'KUNDEN_V4' AND dlSuchId2 IN ()"); }).description(),
                HasSubstr("bei „)“"));
}

TEST_F(CustomerStatements, FindTheClients) {
    write(
        "CREATE TABLE Person_v4 (Ps_Id INTEGER); INSERT INTO Person_v4 VALUES (2), (1), (3);"
        "CREATE TABLE Personalie (Ps_Id INTEGER, Pl_Id INTEGER); INSERT INTO Personalie VALUES (1, 10), (2, "
        "20), (3, 30);"
        "CREATE TABLE Mandant_Zeit (Pl_Id INTEGER, MaZt_Kanzlei INTEGER);"
        "INSERT INTO Mandant_Zeit VALUES (10, 0), (10, 0), (20, 0), (30, -1);"
        "CREATE TABLE Akten (Ps_Id INTEGER, Akt_Papierkorb INTEGER); INSERT INTO Akten VALUES (1, 0), (2, "
        "0), (3, 0);");
    const std::string head =
        "SELECT DISTINCT Person_v4.Ps_Id FROM Person_v4 INNER JOIN Personalie ON Person_v4.Ps_Id = "
        "Personalie.Ps_Id "
        "INNER JOIN Mandant_Zeit ON Personalie.Pl_Id = Mandant_Zeit.Pl_Id INNER JOIN Akten ON "
        "Person_v4.Ps_Id = "
        "Akten.Ps_Id WHERE (Akten.Akt_Papierkorb = 0) ";
    EXPECT_THAT(rows(head + " AND (Mandant_Zeit.MaZt_Kanzlei = 0) ORDER BY Person_v4.Ps_Id"),
                ElementsAre("1", "2"));
    EXPECT_THAT(rows(head + " AND (Mandant_Zeit.MaZt_Kanzlei = -1) ORDER BY Person_v4.Ps_Id"),
                ElementsAre("3"));
}

TEST_F(LogStatements, FindTheFirstChangeAtOrBehindAMoment) {
    log(2, "TDEVISENWAEHR", 1, "dlPrimaryKey1, dmData", R"(7, '<Col Name="dcX"><OldValue>later</OldValue>')");
    log(1, "TDEVISENWAEHR", 1, "dlPrimaryKey1, dmData", R"(7, '<Col Name="dcX"><OldValue>first</OldValue>')");
    log(3, "TDEVISENWAEHR", 2, "dlPrimaryKey1, dmData", R"(7, '<Col Name="dcX"><OldValue>gone</OldValue>')");
    const std::string head =
        "SELECT TOP 1 dmData FROM tProtokoll WHERE dcTable = 'tDevisenWaehr' AND dlPrimaryKey1 = 7";
    const std::string tail = " AND dmData LIKE '%Name=\"dcX\"><OldValue>%' ORDER BY ddDatum ASC";
    const auto database = open();
    const auto find = [&](const std::string& middle) {
        return to_text(database->query_value(head + middle + tail));
    };
    EXPECT_THAT(find(" AND ddDatum >= '2026-01-01 23:59:59'"), HasSubstr("first"));
    EXPECT_THAT(find(" AND ddDatum >= '2026-01-02 23:59:59'"), HasSubstr("later"));
    EXPECT_THAT(find(" AND dlEvent = 2 "), HasSubstr("gone"));
    EXPECT_THAT(find(" AND ddDatum >= '2026-02-01 00:00:00'"), IsEmpty());
}

TEST_F(LogStatements, ReadLiveValuesAndCaptions) {
    write(
        "CREATE TABLE T (k INTEGER, [Order] TEXT); INSERT INTO T VALUES (1, 'live');"
        "CREATE TABLE tSysQuvoTables (IDSysQuvoTables INTEGER, dcTableName TEXT COLLATE NOCASE);"
        "INSERT INTO tSysQuvoTables VALUES (3, 'tDevisenWaehr');"
        "CREATE TABLE tSysQuvoColumns (flTable INTEGER, dcColumnName TEXT COLLATE NOCASE, dmDescription "
        "TEXT);"
        "INSERT INTO tSysQuvoColumns VALUES (3, 'dcX', 'Bezeichnung'), (4, 'dcX', 'fremd');");
    EXPECT_THAT(rows("SELECT [Order] FROM [T] WHERE [k] = 1"), ElementsAre("live"));
    EXPECT_THAT(rows("SELECT [Order] FROM [T] WHERE [k] = 2"), IsEmpty());
    EXPECT_THAT(
        rows("SELECT tSysQuvoColumns.dmDescription FROM   tSysQuvoColumns INNER JOIN tSysQuvoTables ON "
             "tSysQuvoColumns.flTable = tSysQuvoTables.IDSysQuvoTables WHERE tSysQuvoTables.dcTableName = "
             "'TDEVISENWAEHR' AND   tSysQuvoColumns.dcColumnName = 'dcX'"),
        ElementsAre("Bezeichnung"));
}

TEST_F(LogStatements, SelectNothingWithoutEvents) {
    log(1, "TDEVISENWAEHR", 1, "dlPrimaryKey1", "7");
    EXPECT_THAT(selected(" 1 = 2 AND dcTable = 'TDEVISENWAEHR'"), IsEmpty());
    EXPECT_THAT(selected(" dlEvent IN(0, 1) AND dcTable = 'TDEVISENWAEHR'"), ElementsAre("1"));
}

}  // namespace
}  // namespace prot
