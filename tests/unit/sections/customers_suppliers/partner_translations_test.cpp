#include "sections/customers_suppliers/partner_translations.h"

#include <gtest/gtest.h>

#include "tests/unit/support/fakes.h"
#include "tests/unit/support/log_record.h"

namespace prot {
namespace {

using customers_suppliers::customers;
using customers_suppliers::Ledger;
using customers_suppliers::PartnerTranslations;
using customers_suppliers::suppliers;

class PartnerValues : public testing::Test {
protected:
    test::FakeHost host;
    test::FakeDatabase oDBU;
    prot::Run run{host.environment, oDBU};
    test::LogRecord record{{.table = "BELIEBIG", .date = to_date(CivilTime{2026, 3, 5, 14, 7, 9})}};

    std::string translated(std::string_view field, std::string_view value, const Ledger& ledger = customers) {
        return PartnerTranslations(run, ledger).msTranslateID(value, record.field(field));
    }
    void live(const std::string& column, const std::string& table, const std::string& key_column, int key,
              Value value) {
        oDBU.answers["SELECT [" + column + "] FROM [" + table + "] WHERE [" + key_column +
                     "] = " + std::to_string(key)] = {{std::move(value)}};
    }
    void live(const std::string& column, const std::string& table, const std::string& key_column, int key,
              const char* value) {
        live(column, table, key_column, key, Value(std::string(value)));
    }
};

TEST_F(PartnerValues, AreTheNamesOfTheRecordsThatTheyRefer) {
    live("dcBezeichnung", "TKULIEFKOND", "IDKLK", 31, "14 Tage 2 %");
    live("Mb_Bezeichnung", "MAHNBEDINGUNGEN_V4", "MB_ID", 31, "Mahnung normal");
    live("dcBezeichnung", "TTEXTHAUPTGRUPPE", "IDTH", 31, "Standardtexte");
    live("dcBezeichnung", "TVERWENDZWECK", "IDVWZ", 31, "Miete");
    live("KUN_NR", "KUNDEN_V4", "Ps_Id_Kunde", 31, Value(std::int64_t{10007}));
    live("LIEF_NR", "LIEFERANTEN_V4", "Ps_Id_Lieferant", 31, Value(std::int64_t{70007}));
    live("dcBLZ", "TBANK", "idBank", 31, "50050201");
    live("dcBezeichnung", "TBANK", "idBank", 31, "Sparkasse");
    const struct {
        const char *field, *none, *text, *text_of_suppliers;
    } rows[] = {
        {"KLKD_ID", "ohne Zahlungskonditionen", "14 Tage 2 %", "14 Tage 2 %"},
        {"MB_ID", "ohne Mahnbedingungen", "Mahnung normal", "Mahnung normal"},
        {"MTH_ID", "ohne Texthauptgruppe", "Standardtexte", "Standardtexte"},
        {"PS_ID_SAMMEL_KUNDE", "ohne Zentralregulierer", "10007", "70007"},
        {"PS_ID_SAMMEL_LIEF", "ohne Zentralregulierer", "10007", "70007"},
        {"FLVWZ", "ohne Verwendungszweck", "Miete", "Miete"},
        {"BA_ID", "ohne Bank", "50050201 Sparkasse", "50050201 Sparkasse"},
        {"Ps_Id_Sammel_Kunde", "ohne Zentralregulierer", "10007", "70007"},
        {"KUN_NR", "", "", ""},
        {"DISKONTOTAGE1", "", "", ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(translated(row.field, "0"), row.none) << row.field;
        EXPECT_EQ(translated(row.field, "31"), row.text) << row.field;
        EXPECT_EQ(translated(row.field, "31", suppliers), row.text_of_suppliers) << row.field;
    }
}

TEST_F(PartnerValues, AskForTheNameAtTheMomentOfTheChange) {
    host.documents["renamed"] = {{"dcBezeichnung", "30 Tage netto", "14 Tage netto"}};
    oDBU.answers
        ["SELECT TOP 1 dmData FROM tProtokoll WHERE dcTable = 'TKULIEFKOND' AND dlPrimaryKey1 = 31 AND "
         "ddDatum >= <05.03.2026 14:07:08> AND dmData LIKE '%Name=\"dcBezeichnung\"><OldValue>%' ORDER "
         "BY ddDatum ASC"] = {{std::string("renamed")}};
    EXPECT_EQ(translated("KLKD_ID", "31"), "30 Tage netto");
    EXPECT_EQ(oDBU.statements.size(), 1U);
}

TEST_F(PartnerValues, ACentralRegulatorIsSearchedInTheLogByThePersonsId) {
    translated("PS_ID_SAMMEL_KUNDE", "31");
    EXPECT_EQ(oDBU.statements.at(0),
              "value: SELECT TOP 1 dmData FROM tProtokoll WHERE dcTable = 'KUNDEN_V4' AND dlPrimaryKey1 = 31 "
              "AND ddDatum >= <05.03.2026 14:07:08> AND dmData LIKE '%Name=\"KUN_NR\"><OldValue>%' ORDER BY "
              "ddDatum ASC");
}

TEST_F(PartnerValues, ABankWithoutCodeIsItsNameAlone) {
    live("dcBLZ", "TBANK", "idBank", 31, "");
    live("dcBezeichnung", "TBANK", "idBank", 31, "Hausbank");
    EXPECT_EQ(translated("BA_ID", "31"), "Hausbank");
}

TEST_F(PartnerValues, ThatNothingTellsAreUndefined) {
    EXPECT_EQ(translated("MB_ID", "31"), "_UNDEFINIERT_");
    EXPECT_EQ(translated("BA_ID", "31"), "_UNDEFINIERT_ _UNDEFINIERT_");
}

TEST_F(PartnerValues, ThatAreNoNumberCountAsZero) {
    for (const char* value : {"abc", "12abc", "-", "+", "1 2", ",5", "5,", "1,2,3", "0x1F", "_MEMO_"})
        EXPECT_EQ(translated("MB_ID", value), "ohne Mahnbedingungen") << value;
    EXPECT_TRUE(oDBU.statements.empty());
}

TEST_F(PartnerValues, AreAskedForAsWholeNumbers) {
    live("Mb_Bezeichnung", "MAHNBEDINGUNGEN_V4", "MB_ID", 31, "Mahnung normal");
    live("Mb_Bezeichnung", "MAHNBEDINGUNGEN_V4", "MB_ID", 2, "Mahnung streng");
    live("Mb_Bezeichnung", "MAHNBEDINGUNGEN_V4", "MB_ID", -1, "unbekannt");
    for (const char* value : {"31", "031", "+31", " 31 ", "31,0", "31.4"})
        EXPECT_EQ(translated("MB_ID", value), "Mahnung normal") << value;
    EXPECT_EQ(translated("MB_ID", "2,5"), "Mahnung streng") << "rounded to the even one";
    EXPECT_EQ(translated("MB_ID", "1,6"), "Mahnung streng") << "rounded up";
    EXPECT_EQ(translated("MB_ID", "-1"), "unbekannt");
}

TEST_F(PartnerValues, Outside32BitsStayAsLogged) {
    EXPECT_EQ(translated("MB_ID", "2147483648"), "");
    EXPECT_EQ(translated("MB_ID", "-99999999999"), "");
    EXPECT_TRUE(oDBU.statements.empty());
}

TEST_F(PartnerValues, OfAChangeWithoutMomentStayAsLogged) {
    const test::LogRecord undated;
    PartnerTranslations translations(run, customers);
    EXPECT_EQ(translations.msTranslateID("31", undated.field("MB_ID")), "");
    EXPECT_EQ(translations.msTranslateID("0", undated.field("MB_ID")), "");
    EXPECT_TRUE(oDBU.statements.empty());
}

TEST_F(PartnerValues, WhoseDocumentHasNoReaderEndWithoutAnError) {
    host.reader_failure = test::server_error("kein Leser");
    oDBU.answers
        ["SELECT TOP 1 dmData FROM tProtokoll WHERE dcTable = 'TTEXTHAUPTGRUPPE' AND dlPrimaryKey1 = 31 "
         "AND ddDatum >= <05.03.2026 14:07:08> AND dmData LIKE '%Name=\"dcBezeichnung\"><OldValue>%' "
         "ORDER BY ddDatum ASC"] = {{std::string("any")}};
    EXPECT_EQ(translated("MTH_ID", "31"), "_UNDEFINIERT_");
    EXPECT_EQ(host.failed_lookups.size(), 1U) << "but the notices hear of it";
}

}  // namespace
}  // namespace prot
