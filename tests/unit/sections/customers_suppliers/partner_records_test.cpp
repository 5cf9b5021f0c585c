#include "sections/customers_suppliers/partner_records.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/run.h"
#include "tests/unit/support/fakes.h"

namespace prot {
namespace {

using customers_suppliers::customers;
using customers_suppliers::Ledger;
using customers_suppliers::PartnerRecords;
using customers_suppliers::suppliers;
using test::FakeDatabase;
using test::FakeHost;

const Date moment = to_date(CivilTime{2026, 3, 5, 14, 7, 9});
constexpr const char* at_the_moment = "<05.03.2026 14:07:08>";
constexpr const char* five_seconds_before = "<05.03.2026 14:07:03>";

std::string first_change(const std::string& table, int key, const char* from, const std::string& column) {
    return "SELECT TOP 1 dmData FROM tProtokoll WHERE dcTable = '" + table +
           "' AND dlPrimaryKey1 = " + std::to_string(key) + " AND ddDatum >= " + from +
           " AND dmData LIKE '%Name=\"" + column + "\"><OldValue>%' ORDER BY ddDatum ASC";
}

std::string deletion(const std::string& table, int key, const std::string& column) {
    return "SELECT TOP 1 dmData FROM tProtokoll WHERE dcTable = '" + table +
           "' AND dlPrimaryKey1 = " + std::to_string(key) + " AND dlEvent = 2  AND dmData LIKE '%Name=\"" +
           column + "\"><OldValue>%' ORDER BY ddDatum ASC";
}

std::string in_log(const char* column, const std::string& table, const char* key_column, int key) {
    return std::string("Select ") + column + " From tProtokoll Where dcTable = '" + table + "' AND " +
           key_column + " = " + std::to_string(key);
}

std::string live(const std::string& from_where) {
    return "SELECT KUNDEN_V4.KUN_NR, PERSONALIE.Pl_Bezeichnung " + from_where;
}

constexpr const char* customer_of_person_7 =
    "SELECT Personalie.Pl_Bezeichnung, Kun_Nr FROM  Person_v4 INNER JOIN Personalie ON Person_v4.Ps_Id = "
    "Personalie.Ps_Id INNER JOIN Kunden_v4 ON Person_v4.Ps_Id = Kunden_v4.Ps_Id_Kunde WHERE  "
    "(Kunden_v4.Ps_Id_Kunde = 7)";
constexpr const char* supplier_of_person_7 =
    "SELECT Personalie.Pl_Bezeichnung, Lief_Nr FROM  Person_v4 INNER JOIN Personalie ON Person_v4.Ps_Id = "
    "Personalie.Ps_Id INNER JOIN Lieferanten_v4 ON Person_v4.Ps_Id = Lieferanten_v4.Ps_Id_Lieferant WHERE  "
    "(Lieferanten_v4.Ps_Id_Lieferant = 7)";

class PartnerDescription : public testing::Test {
protected:
    FakeHost host;
    FakeDatabase oDBU;
    prot::Run run{host.environment, oDBU};
    PartnerRecords records{run, customers};
    std::string sNr = "earlier", sName = "earlier";

    using Found = std::pair<std::string, std::string>;
    static inline const Found nobody{"", "nicht gefunden!"};

    Found describe(PartnerRecords& of, std::string_view table, std::int32_t key,
                   std::optional<Date> at = moment) {
        of.mGetKLInfos(table, key, sNr, sName, at);
        return {sNr, sName};
    }
    Found describe(std::string_view table, std::int32_t key, std::optional<Date> at = moment) {
        return describe(records, table, key, at);
    }
    void answer(const std::string& statement, Value value) { oDBU.answers[statement] = {{std::move(value)}}; }
    void answer(const std::string& statement, std::int64_t number) { answer(statement, Value(number)); }
    std::vector<std::string> take_statements() { return std::exchange(oDBU.statements, {}); }
};

// Each logged table, by the row's own key, to the master table and the personal data.
struct FromWhere {
    const char* table;
    const char* customers;
    const char* suppliers;
};
const FromWhere from_wheres[] = {
    {"KUNDEN_V4",
     "FROM KUNDEN_V4 INNER JOIN PERSON_V4 ON KUNDEN_V4.Ps_Id_Kunde = PERSON_V4.PS_ID INNER JOIN PERSONALIE "
     "ON "
     "PERSON_V4.PS_ID = PERSONALIE.PS_ID WHERE KUNDEN_V4.KUN_ID = 31",
     ""},
    {"LIEFERANTEN_V4", "",
     "FROM LIEFERANTEN_V4 INNER JOIN PERSON_V4 ON LIEFERANTEN_V4.Ps_Id_Lieferant = PERSON_V4.PS_ID INNER "
     "JOIN "
     "PERSONALIE ON PERSON_V4.PS_ID = PERSONALIE.PS_ID WHERE LIEFERANTEN_V4.LIEF_ID = 31"},
    {"PERSON_V4",
     "FROM KUNDEN_V4 INNER JOIN PERSON_V4 ON KUNDEN_V4.Ps_Id_Kunde = PERSON_V4.PS_ID INNER JOIN PERSONALIE "
     "ON "
     "PERSON_V4.PS_ID = PERSONALIE.PS_ID WHERE PERSON_V4.PS_ID = 31",
     "FROM LIEFERANTEN_V4 INNER JOIN PERSON_V4 ON LIEFERANTEN_V4.Ps_Id_Lieferant = PERSON_V4.PS_ID INNER "
     "JOIN "
     "PERSONALIE ON PERSON_V4.PS_ID = PERSONALIE.PS_ID WHERE PERSON_V4.PS_ID = 31"},
    {"PERSONALIE",
     "FROM KUNDEN_V4 INNER JOIN PERSON_V4 ON KUNDEN_V4.Ps_Id_Kunde = PERSON_V4.PS_ID INNER JOIN PERSONALIE "
     "ON "
     "PERSON_V4.PS_ID = PERSONALIE.PS_ID WHERE PERSONALIE.Pl_Id = 31",
     "FROM LIEFERANTEN_V4 INNER JOIN PERSON_V4 ON LIEFERANTEN_V4.Ps_Id_Lieferant = PERSON_V4.PS_ID INNER "
     "JOIN "
     "PERSONALIE ON PERSON_V4.PS_ID = PERSONALIE.PS_ID WHERE PERSONALIE.Pl_Id = 31"},
    {"BANKKONTO",
     "FROM (BANKKONTO INNER JOIN ((PERSON_V4 INNER JOIN PERSON_BANKKONTO ON PERSON_V4.PS_ID = "
     "PERSON_BANKKONTO.PS_ID) INNER JOIN PERSONALIE ON PERSON_V4.PS_ID = PERSONALIE.PS_ID) ON "
     "BANKKONTO.BK_ID = PERSON_BANKKONTO.BK_ID) INNER JOIN KUNDEN_V4 ON PERSON_V4.PS_ID = "
     "KUNDEN_V4.Ps_Id_Kunde WHERE BANKKONTO.BK_ID = 31",
     "FROM (BANKKONTO INNER JOIN ((PERSON_V4 INNER JOIN PERSON_BANKKONTO ON PERSON_V4.PS_ID = "
     "PERSON_BANKKONTO.PS_ID) INNER JOIN PERSONALIE ON PERSON_V4.PS_ID = PERSONALIE.PS_ID) ON "
     "BANKKONTO.BK_ID = PERSON_BANKKONTO.BK_ID) INNER JOIN LIEFERANTEN_V4 ON PERSON_V4.PS_ID = "
     "LIEFERANTEN_V4.Ps_Id_Lieferant WHERE BANKKONTO.BK_ID = 31"},
    {"ADRESSE",
     "FROM (ADRESSE INNER JOIN ((PERSON_V4 INNER JOIN PERSON_ADRESSE ON PERSON_V4.PS_ID = "
     "PERSON_ADRESSE.PS_ID) INNER JOIN PERSONALIE ON PERSON_V4.PS_ID = PERSONALIE.PS_ID) ON "
     "ADRESSE.ADR_ID = PERSON_ADRESSE.ADR_ID) INNER JOIN KUNDEN_V4 ON PERSON_V4.PS_ID = "
     "KUNDEN_V4.Ps_Id_Kunde WHERE ADRESSE.ADR_ID = 31",
     "FROM (ADRESSE INNER JOIN ((PERSON_V4 INNER JOIN PERSON_ADRESSE ON PERSON_V4.PS_ID = "
     "PERSON_ADRESSE.PS_ID) INNER JOIN PERSONALIE ON PERSON_V4.PS_ID = PERSONALIE.PS_ID) ON "
     "ADRESSE.ADR_ID = PERSON_ADRESSE.ADR_ID) INNER JOIN LIEFERANTEN_V4 ON PERSON_V4.PS_ID = "
     "LIEFERANTEN_V4.Ps_Id_Lieferant WHERE ADRESSE.ADR_ID = 31"},
    {"STM_BKTOZUSATZ",
     "FROM STM_BKTOZUSATZ INNER JOIN Bankkonto ON STM_BKtoZusatz.BKZ_Bk_Id = Bankkonto.Bk_Id INNER JOIN "
     "Person_Bankkonto ON Bankkonto.Bk_Id = Person_Bankkonto.Bk_Id INNER JOIN Person_v4 ON "
     "Person_Bankkonto.Ps_Id = Person_v4.Ps_Id INNER JOIN Personalie ON Person_v4.Ps_Id = Personalie.Ps_Id "
     "INNER JOIN KUNDEN_V4 ON Person_v4.Ps_Id = KUNDEN_V4.Ps_Id_Kunde Where (STM_BKtoZusatz.BKZ_Id = 31)",
     "FROM STM_BKTOZUSATZ INNER JOIN Bankkonto ON STM_BKtoZusatz.BKZ_Bk_Id = Bankkonto.Bk_Id INNER JOIN "
     "Person_Bankkonto ON Bankkonto.Bk_Id = Person_Bankkonto.Bk_Id INNER JOIN Person_v4 ON "
     "Person_Bankkonto.Ps_Id = Person_v4.Ps_Id INNER JOIN Personalie ON Person_v4.Ps_Id = Personalie.Ps_Id "
     "INNER JOIN LIEFERANTEN_V4 ON Person_v4.Ps_Id = LIEFERANTEN_V4.Ps_Id_Lieferant Where "
     "(STM_BKtoZusatz.BKZ_Id = 31)"},
    {"TKULIEFKOND",
     "FROM KUNDEN_V4 INNER JOIN PERSON_V4 ON KUNDEN_V4.Ps_Id_Kunde = PERSON_V4.PS_ID INNER JOIN PERSONALIE "
     "ON "
     "PERSON_V4.PS_ID = PERSONALIE.PS_ID WHERE KUNDEN_V4.KLKD_ID = 31",
     "FROM LIEFERANTEN_V4 INNER JOIN PERSON_V4 ON LIEFERANTEN_V4.Ps_Id_Lieferant = PERSON_V4.PS_ID INNER "
     "JOIN "
     "PERSONALIE ON PERSON_V4.PS_ID = PERSONALIE.PS_ID WHERE LIEFERANTEN_V4.KLKD_ID = 31"},
    {"TTEXTHAUPTGRUPPE",
     "FROM KUNDEN_V4 INNER JOIN PERSON_V4 ON KUNDEN_V4.Ps_Id_Kunde = PERSON_V4.PS_ID INNER JOIN PERSONALIE "
     "ON "
     "PERSON_V4.PS_ID = PERSONALIE.PS_ID WHERE KUNDEN_V4.MTH_ID = 31",
     "FROM LIEFERANTEN_V4 INNER JOIN PERSON_V4 ON LIEFERANTEN_V4.Ps_Id_Lieferant = PERSON_V4.PS_ID INNER "
     "JOIN "
     "PERSONALIE ON PERSON_V4.PS_ID = PERSONALIE.PS_ID WHERE LIEFERANTEN_V4.MTH_ID = 31"},
    {"MAHNBEDINGUNGEN_V4",
     "FROM KUNDEN_V4 INNER JOIN PERSON_V4 ON KUNDEN_V4.Ps_Id_Kunde = PERSON_V4.PS_ID INNER JOIN PERSONALIE "
     "ON "
     "PERSON_V4.PS_ID = PERSONALIE.PS_ID WHERE KUNDEN_V4.MB_ID = 31",
     "FROM LIEFERANTEN_V4 INNER JOIN PERSON_V4 ON LIEFERANTEN_V4.Ps_Id_Lieferant = PERSON_V4.PS_ID INNER "
     "JOIN "
     "PERSONALIE ON PERSON_V4.PS_ID = PERSONALIE.PS_ID WHERE LIEFERANTEN_V4.MB_ID = 31"},
    {"TKUNDVWZ",
     "FROM TKUNDVWZ INNER JOIN KUNDEN_V4 ON TKUNDVWZ.FLKD = KUNDEN_V4.KUN_ID INNER JOIN TVERWENDZWECK ON "
     "TKUNDVWZ.FLVWZ = TVERWENDZWECK.IDVWZ INNER JOIN PERSON_V4 ON KUNDEN_V4.Ps_Id_Kunde = PERSON_V4.PS_ID "
     "INNER JOIN PERSONALIE ON PERSON_V4.PS_ID = PERSONALIE.PS_ID WHERE TKUNDVWZ.FLKD = 31",
     ""},
    {"TLIEFVWZ", "",
     "FROM TLIEFVWZ INNER JOIN LIEFERANTEN_V4 ON TLIEFVWZ.FLLI = LIEFERANTEN_V4.LIEF_ID INNER JOIN "
     "TVERWENDZWECK ON TLIEFVWZ.FLVWZ = TVERWENDZWECK.IDVWZ INNER JOIN PERSON_V4 ON "
     "LIEFERANTEN_V4.Ps_Id_Lieferant = PERSON_V4.PS_ID INNER JOIN PERSONALIE ON PERSON_V4.PS_ID = "
     "PERSONALIE.PS_ID WHERE TLIEFVWZ.FLLI = 31"},
    {"TVERWENDZWECK",
     "FROM TKUNDVWZ INNER JOIN KUNDEN_V4 ON TKUNDVWZ.FLKD = KUNDEN_V4.KUN_ID INNER JOIN TVERWENDZWECK ON "
     "TKUNDVWZ.FLVWZ = TVERWENDZWECK.IDVWZ INNER JOIN PERSON_V4 ON KUNDEN_V4.Ps_Id_Kunde = PERSON_V4.PS_ID "
     "INNER JOIN PERSONALIE ON PERSON_V4.PS_ID = PERSONALIE.PS_ID WHERE TVERWENDZWECK.IDVWZ = 31",
     "FROM TLIEFVWZ INNER JOIN LIEFERANTEN_V4 ON TLIEFVWZ.FLLI = LIEFERANTEN_V4.LIEF_ID INNER JOIN "
     "TVERWENDZWECK ON TLIEFVWZ.FLVWZ = TVERWENDZWECK.IDVWZ INNER JOIN PERSON_V4 ON "
     "LIEFERANTEN_V4.Ps_Id_Lieferant = PERSON_V4.PS_ID INNER JOIN PERSONALIE ON PERSON_V4.PS_ID = "
     "PERSONALIE.PS_ID WHERE TVERWENDZWECK.IDVWZ = 31"},
    {"TBANK", "", ""},
};

TEST_F(PartnerDescription, LeadsFromEachLoggedTableToTheMasterTable) {
    PartnerRecords of_suppliers(run, suppliers);
    for (const FromWhere& row : from_wheres) {
        EXPECT_EQ(records.msKLFromWhere(31, row.table), row.customers) << row.table;
        EXPECT_EQ(of_suppliers.msKLFromWhere(31, row.table), row.suppliers) << row.table;
    }
    // An account and the link to it lead to the same person, likewise an address.
    for (PartnerRecords* of : {&records, &of_suppliers}) {
        EXPECT_EQ(of->msKLFromWhere(5, "PERSON_BANKKONTO"), of->msKLFromWhere(5, "BANKKONTO"));
        EXPECT_EQ(of->msKLFromWhere(5, "PERSON_ADRESSE"), of->msKLFromWhere(5, "ADRESSE"));
    }
    EXPECT_EQ(records.msKLFromWhere(31, "Kunden_v4"), records.msKLFromWhere(31, "KUNDEN_V4"))
        << "whatever the letter case";
    EXPECT_TRUE(oDBU.statements.empty());
}

TEST_F(PartnerDescription, IsThatOfTheLiveTablesOnceForEachTableAndKey) {
    const std::string account_31 = live(records.msKLFromWhere(31, "BANKKONTO"));
    const std::string person_31 = live(records.msKLFromWhere(31, "PERSON_V4"));
    oDBU.answers[account_31] = {{std::int64_t{10000}, std::string("Becker GmbH")},
                                {std::int64_t{10001}, std::string("another holder")}};
    oDBU.answers[person_31] = {{std::int64_t{10002}, std::string("Dörfler")}};
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(describe("BANKKONTO", 31), Found("10000", "Becker GmbH")) << "the first row";
        EXPECT_EQ(describe("Person_v4", 31), Found("10002", "Dörfler"));
        EXPECT_EQ(describe("BANKKONTO", 31, std::nullopt), Found("10000", "Becker GmbH"))
            << "no moment is needed";
    }
    EXPECT_EQ(take_statements(), (std::vector<std::string>{"array: " + account_31, "array: " + person_31}));
}

TEST_F(PartnerDescription, OfAnAccountAndOfItsLinkIsAskedForOnce) {
    describe("PERSON_BANKKONTO", 31);
    describe("PERSON_ADRESSE", 31);
    const std::vector<std::string> links = take_statements();
    EXPECT_EQ(links.size(), 4U) << "live and in the log, each";
    describe("BANKKONTO", 31);
    describe("ADRESSE", 31);
    EXPECT_TRUE(take_statements().empty());
}

TEST_F(PartnerDescription, OfAPersonWithoutNameIsANumberAlone) {
    oDBU.answers[live(records.msKLFromWhere(1, "PERSON_V4"))] = {{std::int64_t{10000}, Value()}};
    EXPECT_EQ(describe("PERSON_V4", 1), Found("10000", ""));
}

TEST_F(PartnerDescription, FindsThePersonOfEachTableInTheLog) {
    const std::string address =
        "value: Select dlPrimaryKey2 From tProtokoll Where dcTable = 'PERSON_ADRESSE' AND dlPrimaryKey1 = 31";
    const std::string account =
        "value: Select dlPrimaryKey2 From tProtokoll Where dcTable = 'PERSON_BANKKONTO' AND dlPrimaryKey1 = "
        "31";
    const auto own = [](const std::string& table) {
        return "value: Select dlSuchId1 From tProtokoll Where dcTable = '" + table +
               "' AND dlPrimaryKey1 = 31";
    };
    const struct {
        const Ledger& ledger;
        const char* table;
        std::vector<std::string> statements;
    } rows[] = {
        {customers, "ADRESSE", {address}},
        {customers, "PERSON_ADRESSE", {address}},
        {suppliers, "BANKKONTO", {account}},
        {suppliers, "PERSON_BANKKONTO", {account}},
        {customers, "KUNDEN_V4", {own("KUNDEN_V4")}},
        {suppliers, "LIEFERANTEN_V4", {own("LIEFERANTEN_V4")}},
        {customers, "TKUNDVWZ", {own("TKUNDVWZ")}},
        {suppliers, "TLIEFVWZ", {own("TLIEFVWZ")}},
        {customers, "PERSONALIE", {own("PERSONALIE")}},
        {customers, "STM_BKTOZUSATZ", {}},
        {customers, "TTEXTHAUPTGRUPPE", {}},
        {customers, "MAHNBEDINGUNGEN_V4", {}},
        {customers,
         "TVERWENDZWECK",
         {"value: Select dlPrimaryKey1 From tProtokoll Where dcTable = 'TKUNDVWZ' AND dlPrimaryKey2 = 31"}},
        {suppliers,
         "TVERWENDZWECK",
         {"value: Select dlPrimaryKey1 From tProtokoll Where dcTable = 'TLIEFVWZ' AND dlPrimaryKey2 = 31"}},
    };
    for (const auto& row : rows) {
        PartnerRecords of(run, row.ledger);
        EXPECT_EQ(describe(of, row.table, 31), nobody) << row.table;
        const std::vector<std::string> statements = take_statements();
        EXPECT_TRUE(statements.at(0).ends_with(of.msKLFromWhere(31, row.table)));
        EXPECT_EQ(std::vector(statements.begin() + 1, statements.end()), row.statements) << row.table;
    }
}

TEST_F(PartnerDescription, OfAPurposeGoesByItsCustomerInTheLog) {
    answer(in_log("dlPrimaryKey1", "TKUNDVWZ", "dlPrimaryKey2", 31), 55);
    answer(in_log("dlSuchId1", "KUNDEN_V4", "dlPrimaryKey1", 55), 7);
    oDBU.answers[customer_of_person_7] = {{std::string("Becker GmbH"), std::int64_t{10000}}};
    EXPECT_EQ(describe("TVERWENDZWECK", 31), Found("10000", "Becker GmbH"));
}

TEST_F(PartnerDescription, OfAPersonsOwnRowNeedsNoLookupOfThePerson) {
    oDBU.answers[customer_of_person_7] = {{std::string("Becker GmbH"), std::int64_t{10000}}};
    EXPECT_EQ(describe("PERSON_V4", 7), Found("10000", "Becker GmbH"));
    EXPECT_EQ(take_statements(),
              (std::vector<std::string>{"array: " + live(records.msKLFromWhere(7, "PERSON_V4")),
                                        std::string("array: ") + customer_of_person_7}));
}

TEST_F(PartnerDescription, OfATableThatBelongsToNobodyAsksNothing) {
    EXPECT_EQ(describe("TBANK", 7), nobody);
    EXPECT_EQ(describe("", 7), nobody);
    EXPECT_TRUE(oDBU.statements.empty());
}

TEST_F(PartnerDescription, OfABankAccountWhoseLinkWasDeletedComesFromTheLoggedLink) {
    answer(in_log("dlPrimaryKey2", "PERSON_BANKKONTO", "dlPrimaryKey1", 31), 7);
    oDBU.answers[customer_of_person_7] = {{std::string("Becker GmbH"), std::int64_t{10000}}};
    EXPECT_EQ(describe("BANKKONTO", 31), Found("10000", "Becker GmbH"));
    PartnerRecords of_suppliers(run, suppliers);
    oDBU.answers[supplier_of_person_7] = {{std::string("Holzhandel Voß"), std::int64_t{70000}}};
    EXPECT_EQ(describe(of_suppliers, "BANKKONTO", 31), Found("70000", "Holzhandel Voß"));
}

TEST_F(PartnerDescription, OfTextGroupsAndDunningConditionsIsNotFoundWithoutALiveRow) {
    EXPECT_EQ(describe("TTEXTHAUPTGRUPPE", 3), nobody);
    EXPECT_EQ(describe("MAHNBEDINGUNGEN_V4", 3), nobody);
    oDBU.answers[live(records.msKLFromWhere(4, "MAHNBEDINGUNGEN_V4"))] = {
        {std::int64_t{10000}, std::string("Becker GmbH")}};
    EXPECT_EQ(describe("MAHNBEDINGUNGEN_V4", 4), Found("10000", "Becker GmbH"));
}

/// A customer that is gone: person 7 with number 10005 and personal data 70, by the log alone.
class PartnerDeleted : public PartnerDescription {
protected:
    const std::string name_now = first_change("PERSONALIE", 70, at_the_moment, "Pl_Bezeichnung");
    const std::string name_before = first_change("PERSONALIE", 70, five_seconds_before, "Pl_Bezeichnung");

    PartnerDeleted() {
        answer(in_log("dlSuchId1", "KUNDEN_V4", "dlPrimaryKey1", 31), 7);
        answer(in_log("dlSuchId4", "KUNDEN_V4", "dlSuchId1", 7), 10005);
        answer(in_log("dlPrimaryKey1", "PERSONALIE", "dlSuchId1", 7), 70);
        host.documents["named"] = {{"Pl_Bezeichnung", "Becker & Sohn", "Becker GmbH"}};
        host.documents["created"] = {{"Pl_Bezeichnung", "", "Becker & Sohn"}};
    }
};

TEST_F(PartnerDeleted, HasNumberAndNameByTheLog) {
    answer(name_now, Value(std::string("named")));
    EXPECT_EQ(describe("KUNDEN_V4", 31), Found("10005", "Becker & Sohn"));
    EXPECT_EQ(take_statements(),
              (std::vector<std::string>{"array: " + live(records.msKLFromWhere(31, "KUNDEN_V4")),
                                        "value: " + in_log("dlSuchId1", "KUNDEN_V4", "dlPrimaryKey1", 31),
                                        std::string("array: ") + customer_of_person_7,
                                        "value: " + in_log("dlSuchId4", "KUNDEN_V4", "dlSuchId1", 7),
                                        "value: " + in_log("dlPrimaryKey1", "PERSONALIE", "dlSuchId1", 7),
                                        "value: " + name_now}));
}

TEST_F(PartnerDeleted, IsAskedForOnceButForTheNameOfEachMoment) {
    answer(name_now, Value(std::string("named")));
    describe("KUNDEN_V4", 31);
    take_statements();
    EXPECT_EQ(describe("KUNDEN_V4", 31), Found("10005", "Becker & Sohn"));
    EXPECT_TRUE(take_statements().empty());
    const Date later = add_seconds(moment, 60);
    EXPECT_EQ(describe("KUNDEN_V4", 31, later).first, "10005");
    EXPECT_EQ(take_statements().at(0),
              "value: " + first_change("PERSONALIE", 70, "<05.03.2026 14:08:08>", "Pl_Bezeichnung"));
}

TEST_F(PartnerDeleted, HasTheNameOfTheDeletionRecordWhenNothingElseTellsIt) {
    answer(deletion("PERSONALIE", 70, "Pl_Bezeichnung"), Value(std::string("named")));
    EXPECT_EQ(describe("KUNDEN_V4", 31), Found("10005", "Becker & Sohn"));
}

TEST_F(PartnerDeleted, WhosePersonalDataLiveHasThatName) {
    answer("SELECT [Pl_Bezeichnung] FROM [PERSONALIE] WHERE [PL_ID] = 70", Value(std::string("Becker AG")));
    EXPECT_EQ(describe("KUNDEN_V4", 31), Found("10005", "Becker AG"));
}

TEST_F(PartnerDeleted, IsFoundFiveSecondsBackWhenTheNameIsEmptyAtTheMoment) {
    answer(name_now, Value(std::string("created")));
    answer(name_before, Value(std::string("named")));
    EXPECT_EQ(describe("KUNDEN_V4", 31), Found("10005", "Becker & Sohn"));
    EXPECT_EQ(oDBU.statements.at(oDBU.statements.size() - 2), "value: " + name_now);
    EXPECT_EQ(oDBU.statements.back(), "value: " + name_before);
}

TEST_F(PartnerDeleted, StaysNotFoundWhenTheNameIsEmptyThenToo) {
    answer(name_now, Value(std::string("created")));
    answer(name_before, Value(std::string("created")));
    EXPECT_EQ(describe("KUNDEN_V4", 31), Found("10005", "nicht gefunden!"));
}

TEST_F(PartnerDeleted, WithoutAMomentHasItsNumberAndNoName) {
    answer(name_now, Value(std::string("named")));
    EXPECT_EQ(describe("KUNDEN_V4", 31, std::nullopt), Found("10005", "nicht gefunden!"));
}

TEST_F(PartnerDeleted, WithoutPersonalDataInTheLogIsUndefined) {
    oDBU.answers.erase(in_log("dlPrimaryKey1", "PERSONALIE", "dlSuchId1", 7));
    EXPECT_EQ(describe("KUNDEN_V4", 31), Found("10005", "_UNDEFINIERT_"));
    EXPECT_EQ(oDBU.statements.back(), "value: " + deletion("PERSONALIE", 0, "Pl_Bezeichnung"))
        << "id 0 is asked like any other";
}

TEST_F(PartnerDeleted, WithoutANumberInTheLogHasNone) {
    oDBU.answers.erase(in_log("dlSuchId4", "KUNDEN_V4", "dlSuchId1", 7));
    answer(name_now, Value(std::string("named")));
    EXPECT_EQ(describe("KUNDEN_V4", 31), Found("", "Becker & Sohn"));
}

TEST_F(PartnerDescription, OfTermsOfPaymentIsADashAndTheirOwnName) {
    host.documents["terms"] = {{"dcBezeichnung", "30 Tage netto", "14 Tage netto"}};
    answer(first_change("TKULIEFKOND", 9, at_the_moment, "dcBezeichnung"), Value(std::string("terms")));
    EXPECT_EQ(describe("TKULIEFKOND", 9), Found(" - ", "30 Tage netto"));
    EXPECT_EQ(describe("tKuLiefKond", 9), Found(" - ", "30 Tage netto")) << "whatever the letter case";
    EXPECT_EQ(take_statements(),
              (std::vector<std::string>{"value: " +
                                        first_change("TKULIEFKOND", 9, at_the_moment, "dcBezeichnung")}));
}

TEST_F(PartnerDescription, OfTermsOfPaymentReadsTheLiveNameByItsKey) {
    answer("SELECT [dcBezeichnung] FROM [TKULIEFKOND] WHERE [IDKLK] = 9", Value(std::string("sofort")));
    EXPECT_EQ(describe("TKULIEFKOND", 9), Found(" - ", "sofort"));
}

TEST_F(PartnerDescription, OfTermsOfPaymentThatAreBeingCreatedIsNotFound) {
    host.documents["creation"] = {{"dcBezeichnung", "", "14 Tage netto"}};
    answer(first_change("TKULIEFKOND", 9, at_the_moment, "dcBezeichnung"), Value(std::string("creation")));
    EXPECT_EQ(describe("TKULIEFKOND", 9), nobody);
    EXPECT_EQ(describe("TKULIEFKOND", 9, std::nullopt), nobody) << "without a moment there is no name";
}

TEST_F(PartnerDescription, OfUnknownTermsOfPaymentIsUndefined) {
    EXPECT_EQ(describe("TKULIEFKOND", 9), Found(" - ", "_UNDEFINIERT_"));
}

TEST_F(PartnerDescription, NamesItsProceduresInAnErrorsSource) {
    const auto source_of = [&](std::string_view table) {
        try {
            describe(table, 31);
        } catch (const AutomationError& error) {
            return error.source();
        }
        return std::string("no error");
    };
    oDBU.failures.emplace(live(records.msKLFromWhere(31, "KUNDEN_V4")), test::server_error("live"));
    EXPECT_EQ(source_of("KUNDEN_V4"), PROT_STAMP "|srvprotqrbcsv|Testserver\r\nProtKLCsvClass.mGetKLInfos");
    oDBU.failures.emplace(in_log("dlPrimaryKey2", "PERSON_ADRESSE", "dlPrimaryKey1", 31),
                          test::server_error("log"));
    EXPECT_EQ(source_of("ADRESSE"), PROT_STAMP
              "|srvprotqrbcsv|Testserver\r\nProtKLCsvClass.mInfosFromProtokoll\r\n"
              "ProtKLCsvClass.mGetKLInfos");
}

TEST_F(PartnerDescription, FromTooFewColumnsIsAnError) {
    oDBU.answers[live(records.msKLFromWhere(31, "PERSON_V4"))] = {{std::int64_t{10000}}};
    EXPECT_THROW(describe("PERSON_V4", 31), AutomationError);
}

}  // namespace
}  // namespace prot
