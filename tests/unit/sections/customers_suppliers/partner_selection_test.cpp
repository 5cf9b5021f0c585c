#include "sections/customers_suppliers/partner_selection.h"

#include <gtest/gtest.h>

#include "tests/unit/support/fakes.h"
#include "tests/unit/support/statements.h"

namespace prot {
namespace {

using customers_suppliers::customers;
using customers_suppliers::Filter;
using customers_suppliers::Ledger;
using customers_suppliers::suppliers;
using test::FakeDatabase;

const std::string clients_statement = test::clients_statement("Person_v4.Ps_Id", test::are_clients, "Ps_Id");
const std::string offices_statement = test::clients_statement("Person_v4.Ps_Id", test::are_offices, "Ps_Id");

constexpr Filter one_client = {10000, 10001, 4711, ClientKind::client};

class PartnerSelection : public testing::Test {
protected:
    FakeDatabase oDBU;
    std::string batch = "earlier";

    std::string by_tables(const Ledger& ledger, const Filter& filter) {
        return msWHERE4809(ledger, filter, oDBU, batch);
    }
};

TEST_F(PartnerSelection, OfACustomersClientReadsAsAWhole) {
    const std::string condition = by_tables(customers, one_client);
    EXPECT_EQ(batch,
              "DROP TABLE IF EXISTS #TempTable_tProtokoll \r\n"
              "SELECT dlSuchId1 INTO #TempTable_tProtokoll FROM tProtokoll WHERE  dcTable = 'KUNDEN_V4' AND "
              "dlSuchId4 BETWEEN 10000 AND 10001 AND dlSuchId2 = 4711; \r\n"
              "DROP TABLE IF EXISTS #TempTable_KuLief \r\n"
              "SELECT KLKD_ID,KUN_ID INTO #TempTable_KuLief FROM KUNDEN_V4  WHERE KUN_NR BETWEEN 10000 AND "
              "10001 AND Ps_Id_Mandant = 4711;\r\n");
    EXPECT_EQ(
        condition,
        " ((dcTable = 'KUNDEN_V4' AND  dcTable = 'KUNDEN_V4' AND dlSuchId4 BETWEEN 10000 AND 10001 AND "
        "dlSuchId2 = 4711) "
        " OR (dcTable = 'PERSON_V4' AND dlPrimaryKey1 IN (Select dlSuchId1 From #TempTable_tProtokoll))"
        " OR (dcTable = 'PERSONALIE' AND dlSuchId1 IN (Select dlSuchId1 From #TempTable_tProtokoll))"
        " OR (dcTable = 'BANKKONTO' AND dlPrimaryKey1 IN (SELECT BK_ID FROM PERSON_BANKKONTO WHERE PS_ID IN "
        "(Select dlSuchId1 From #TempTable_tProtokoll) UNION SELECT dlPrimaryKey1 FROM tProtokoll WHERE "
        "dcTable = 'PERSON_BANKKONTO' AND dlEvent = 2 AND dlPrimaryKey2 IN (Select dlSuchId1 From "
        "#TempTable_tProtokoll)))"
        " OR (dcTable = 'STM_BKTOZUSATZ' AND dlSuchId1 IN (SELECT BK_ID FROM PERSON_BANKKONTO WHERE PS_ID IN "
        "(Select dlSuchId1 From #TempTable_tProtokoll)))"
        " OR (dcTable = 'ADRESSE' AND dlPrimaryKey1 IN (SELECT ADR_ID FROM PERSON_ADRESSE WHERE PS_ID IN "
        "(Select dlSuchId1 From #TempTable_tProtokoll) UNION SELECT dlPrimaryKey1 FROM tProtokoll WHERE "
        "dcTable = 'PERSON_ADRESSE' AND dlEvent = 2 AND dlPrimaryKey2 IN (Select dlSuchId1 From "
        "#TempTable_tProtokoll)))"
        " OR (dcTable = 'PERSON_ADRESSE' AND dlPrimaryKey2 IN ((Select dlSuchId1 From "
        "#TempTable_tProtokoll) UNION SELECT dlPrimaryKey1 FROM tProtokoll WHERE dcTable = 'PERSON_ADRESSE' "
        "AND dlEvent = 2 AND dlPrimaryKey2 IN (Select dlSuchId1 From #TempTable_tProtokoll)))"
        " OR (dcTable = 'TKULIEFKOND' AND dlPrimaryKey1 IN (SELECT KLKD_ID FROM #TempTable_KuLief))"
        " OR (dcTable = 'TKUNDVWZ' AND dlPrimaryKey1 IN (SELECT KUN_ID FROM #TempTable_KuLief UNION SELECT "
        "dlPrimaryKey2 FROM tProtokoll WHERE dcTable = 'TKUNDVWZ' AND dlEvent = 2 AND dlPrimaryKey1 IN "
        "(SELECT KUN_ID FROM #TempTable_KuLief))))");
    EXPECT_TRUE(oDBU.statements.empty()) << "whoever asked for the selection sends it";
}

TEST_F(PartnerSelection, OfSuppliersHasTheirTablesAndColumns) {
    const std::string condition = by_tables(suppliers, one_client);
    EXPECT_EQ(batch,
              "DROP TABLE IF EXISTS #TempTable_tProtokoll \r\n"
              "SELECT dlSuchId1 INTO #TempTable_tProtokoll FROM tProtokoll WHERE  dcTable = 'LIEFERANTEN_V4' "
              "AND dlSuchId4 BETWEEN 10000 AND 10001 AND dlSuchId2 = 4711; \r\n"
              "DROP TABLE IF EXISTS #TempTable_KuLief \r\n"
              "SELECT KLKD_ID,LIEF_ID INTO #TempTable_KuLief FROM LIEFERANTEN_V4  WHERE LIEF_NR BETWEEN "
              "10000 AND 10001 AND Ps_Id_Mandant = 4711;\r\n");
    EXPECT_TRUE(condition.starts_with(
        " ((dcTable = 'LIEFERANTEN_V4' AND  dcTable = 'LIEFERANTEN_V4' AND dlSuchId4 BETWEEN 10000 AND 10001 "
        "AND dlSuchId2 = 4711)  OR (dcTable = 'PERSON_V4'"))
        << condition;
    EXPECT_TRUE(condition.ends_with(
        " OR (dcTable = 'TKULIEFKOND' AND dlPrimaryKey1 IN (SELECT KLKD_ID FROM #TempTable_KuLief))"
        " OR (dcTable = 'TLIEFVWZ' AND dlPrimaryKey1 IN (SELECT LIEF_ID FROM #TempTable_KuLief UNION SELECT "
        "dlPrimaryKey2 FROM tProtokoll WHERE dcTable = 'TLIEFVWZ' AND dlEvent = 2 AND dlPrimaryKey1 IN "
        "(SELECT LIEF_ID FROM #TempTable_KuLief))))"))
        << condition;
}

TEST_F(PartnerSelection, WithoutTemporaryTablesHasTheSelectionsInTheirPlaces) {
    EXPECT_EQ(
        msWHERE(suppliers, {70000, 70000, 0, ClientKind::all}, oDBU),
        " ((dcTable = 'LIEFERANTEN_V4' AND  dcTable = 'LIEFERANTEN_V4' AND dlSuchId4 BETWEEN 70000 AND "
        "70000) "
        " OR (dcTable = 'PERSON_V4' AND dlPrimaryKey1 IN (Select dlSuchId1 From tProtokoll Where  dcTable = "
        "'LIEFERANTEN_V4' AND dlSuchId4 BETWEEN 70000 AND 70000))"
        " OR (dcTable = 'PERSONALIE' AND dlSuchId1 IN (Select dlSuchId1 From tProtokoll Where  dcTable = "
        "'LIEFERANTEN_V4' AND dlSuchId4 BETWEEN 70000 AND 70000))"
        " OR (dcTable = 'BANKKONTO' AND dlPrimaryKey1 IN (SELECT BK_ID FROM PERSON_BANKKONTO WHERE PS_ID IN "
        "(Select dlSuchId1 From tProtokoll Where  dcTable = 'LIEFERANTEN_V4' AND dlSuchId4 BETWEEN 70000 AND "
        "70000) UNION SELECT dlPrimaryKey1 FROM tProtokoll WHERE dcTable = 'PERSON_BANKKONTO' AND dlEvent = "
        "2 AND dlPrimaryKey2 IN (Select dlSuchId1 From tProtokoll Where  dcTable = 'LIEFERANTEN_V4' AND "
        "dlSuchId4 BETWEEN 70000 AND 70000)))"
        " OR (dcTable = 'STM_BKTOZUSATZ' AND dlSuchId1 IN (SELECT BK_ID FROM PERSON_BANKKONTO WHERE PS_ID IN "
        "(Select dlSuchId1 From tProtokoll Where  dcTable = 'LIEFERANTEN_V4' AND dlSuchId4 BETWEEN 70000 AND "
        "70000)))"
        " OR (dcTable = 'ADRESSE' AND dlPrimaryKey1 IN (SELECT ADR_ID FROM PERSON_ADRESSE WHERE PS_ID IN "
        "(Select dlSuchId1 From tProtokoll Where  dcTable = 'LIEFERANTEN_V4' AND dlSuchId4 BETWEEN 70000 AND "
        "70000) UNION SELECT dlPrimaryKey1 FROM tProtokoll WHERE dcTable = 'PERSON_ADRESSE' AND dlEvent = 2 "
        "AND dlPrimaryKey2 IN (Select dlSuchId1 From tProtokoll Where  dcTable = 'LIEFERANTEN_V4' AND "
        "dlSuchId4 BETWEEN 70000 AND 70000)))"
        " OR (dcTable = 'PERSON_ADRESSE' AND dlPrimaryKey2 IN ((Select dlSuchId1 From tProtokoll Where  "
        "dcTable = 'LIEFERANTEN_V4' AND dlSuchId4 BETWEEN 70000 AND 70000) UNION SELECT dlPrimaryKey1 FROM "
        "tProtokoll WHERE dcTable = 'PERSON_ADRESSE' AND dlEvent = 2 AND dlPrimaryKey2 IN (Select dlSuchId1 "
        "From tProtokoll Where  dcTable = 'LIEFERANTEN_V4' AND dlSuchId4 BETWEEN 70000 AND 70000)))"
        " OR (dcTable = 'TKULIEFKOND' AND dlPrimaryKey1 IN (SELECT KLKD_ID FROM LIEFERANTEN_V4  WHERE "
        "LIEF_NR BETWEEN 70000 AND 70000))"
        " OR (dcTable = 'TLIEFVWZ' AND dlPrimaryKey1 IN (SELECT LIEF_ID FROM LIEFERANTEN_V4  WHERE LIEF_NR "
        "BETWEEN 70000 AND 70000 UNION SELECT dlPrimaryKey2 FROM tProtokoll WHERE dcTable = 'TLIEFVWZ' AND "
        "dlEvent = 2 AND dlPrimaryKey1 IN (SELECT LIEF_ID FROM LIEFERANTEN_V4  WHERE LIEF_NR BETWEEN 70000 "
        "AND 70000))))");
    EXPECT_TRUE(oDBU.statements.empty());
}

/// The lines of the batch that select, without what comes before their conditions.
std::vector<std::string> conditions_of(const std::string& batch) {
    std::vector<std::string> conditions;
    for (std::size_t at = batch.find("WHERE"); at != std::string::npos; at = batch.find("WHERE", at + 1))
        conditions.push_back(batch.substr(at, batch.find(';', at) - at));
    return conditions;
}

TEST_F(PartnerSelection, NamesTheClientsOfItsMode) {
    oDBU.answers[clients_statement] = {{std::int64_t{4001}}, {std::int64_t{4003}}, {std::int64_t{4007}}};
    oDBU.answers[offices_statement] = {{std::int64_t{5001}}};
    const struct {
        Filter filter;
        const char* in_log;
        const char* in_master;
        std::vector<std::string> statements;
        const char* why;
    } rows[] = {
        {{1, 2, 4711, ClientKind::client}, " AND dlSuchId2 = 4711", " AND Ps_Id_Mandant = 4711", {}, "1"},
        {{1, 2, 4712, ClientKind::office}, " AND dlSuchId2 = 4712", " AND Ps_Id_Mandant = 4712", {}, "2"},
        {{1, 2, 0, ClientKind::all_clients},
         " AND dlSuchId2 IN (4001, 4003, 4007)",
         " AND Ps_Id_Mandant IN (4001, 4003, 4007)",
         {"array: " + clients_statement},
         "3"},
        {{1, 2, 0, ClientKind::all_offices},
         " AND dlSuchId2 IN (5001)",
         " AND Ps_Id_Mandant IN (5001)",
         {"array: " + offices_statement},
         "4"},
        {{1, 2, 0, ClientKind::all}, "", "", {}, "5: everybody, and nothing is asked"},
        {{1, 2, 0, ClientKind::client}, "", "", {}, "1 without a client"},
        {{1, 2, 0, ClientKind::office}, "", "", {}, "2 without an office"},
        {{1, 2, 1, ClientKind::all_clients},
         " AND dlSuchId2 = 1",
         " AND Ps_Id_Mandant = 1",
         {},
         "an id counts whatever the mode"},
        {{1, 2, -1, ClientKind::all}, "", "", {}, "below 1 is no id"},
    };
    for (const Ledger* ledger : {&customers, &suppliers})
        for (const auto& row : rows) {
            oDBU.statements.clear();
            const std::string condition = by_tables(*ledger, row.filter);
            const std::string table(ledger->msStammTabelle), number(ledger->msNrSpalte);
            EXPECT_EQ(conditions_of(batch),
                      (std::vector<std::string>{
                          "WHERE  dcTable = '" + table + "' AND dlSuchId4 BETWEEN 1 AND 2" + row.in_log,
                          "WHERE " + number + " BETWEEN 1 AND 2" + row.in_master}))
                << row.why;
            EXPECT_TRUE(condition.starts_with(" ((dcTable = '" + table + "' AND  dcTable = '" + table +
                                              "' AND dlSuchId4 BETWEEN 1 AND 2" + row.in_log + ")  OR"))
                << row.why << condition;
            EXPECT_EQ(oDBU.statements, row.statements) << row.why;
        }
}

TEST_F(PartnerSelection, OfAModeWithoutAnyoneHasAnEmptyListThatTheServerRefuses) {
    const std::string condition = by_tables(customers, {1, 2, 0, ClientKind::all_clients});
    EXPECT_NE(condition.find("AND dlSuchId2 IN ())"), std::string::npos) << condition;
    EXPECT_NE(batch.find("AND Ps_Id_Mandant IN ();"), std::string::npos) << batch;
}

TEST_F(PartnerSelection, OfOneNumberSelectsExactlyThat) {
    by_tables(customers, {10000, 10000, 1, ClientKind::client});
    EXPECT_EQ(conditions_of(batch).at(1), "WHERE KUN_NR BETWEEN 10000 AND 10000 AND Ps_Id_Mandant = 1");
}

TEST_F(PartnerSelection, WritesNumbersWithoutDecimalsAndExponent) {
    by_tables(customers, {1, 999999999999, 1, ClientKind::client});
    EXPECT_EQ(conditions_of(batch).at(1), "WHERE KUN_NR BETWEEN 1 AND 999999999999 AND Ps_Id_Mandant = 1");
}

TEST_F(PartnerSelection, NamesItsProceduresInAnErrorsSource) {
    oDBU.failures.emplace(clients_statement, test::server_error("kein Zugriff"));
    const Filter all = {1, 2, 0, ClientKind::all_clients};
    const auto source_of = [](auto select) {
        try {
            select();
        } catch (const AutomationError& error) {
            return error.source();
        }
        return std::string("no error");
    };
    EXPECT_EQ(source_of([&] { by_tables(customers, all); }), PROT_STAMP
              "|srvprotqrbcsv|Testserver\r\nProtKLCsvClass.msMandantId\r\n"
              "ProtKLCsvClass.msWHERE4809");
    EXPECT_EQ(batch, "earlier");
    EXPECT_EQ(source_of([&] { msWHERE(customers, all, oDBU); }), PROT_STAMP
              "|srvprotqrbcsv|Testserver\r\nProtKLCsvClass.msMandantId\r\n"
              "ProtKLCsvClass.msWHERE");
}

}  // namespace
}  // namespace prot
