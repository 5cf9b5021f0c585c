#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/unit/apps/protcsv/sample/sample_fixture.h"

namespace prot {
namespace {

constexpr std::int32_t exchange_rates = 15;

// clang-format off
constexpr Feature features[] = {
    {"SELECT COUNT(*) FROM tProtokoll WHERE dlEvent = 0 AND dcTable = 'TDEVISENKURS'", "a rate created"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dlEvent = 1 AND dcTable = 'TDEVISENKURS'", "a rate changed"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dlEvent = 2 AND dcTable = 'TDEVISENKURS'", "a rate deleted"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dlEvent = 0 AND dcTable = 'tDevisenWaehr'", "a currency created, which the rates' section does not select"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dcTable = 'TDEVISENKURS' AND dlSuchId2 NOT IN (SELECT idDevisenWaehr FROM tDevisenWaehr)", "a currency deleted since"},
    {"SELECT COUNT(*) FROM tProtokoll JOIN tDevisenWaehr ON dlSuchId2 = idDevisenWaehr WHERE dlSuchId1 NOT IN (SELECT idDevisenKurs FROM TDEVISENKURS)", "a rate deleted since, of a currency that exists"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData GLOB '<Cols><Col Name=\"ddDatumAend\"*</Col><Col Name=\"flMitarbeiter\">*' AND dlEvent = 1", "a change that yields no line"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData LIKE '%>NULL<%' AND dcTable = 'TDEVISENKURS'", "a value NULL in the exported table"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData LIKE '%&#13;&#10;%' AND dcTable = 'TDEVISENKURS'", "a value of two lines"},
    {"SELECT COUNT(*) FROM tDevisenWaehr WHERE dcBezeichnung LIKE '%;%'", "a currency name with separator"},
    {"SELECT COUNT(*) FROM tDevisenWaehr WHERE dcBezeichnung LIKE '%\"%'", "a currency name with quotes"},
    {"SELECT COUNT(*) FROM tDevisenWaehr WHERE instr(dcBezeichnung, char(13, 10))", "a currency name of two lines"},
    {"SELECT COUNT(*) FROM tDevisenWaehr WHERE length(dcBezeichnung) > 70", "a long currency name"},
    {"SELECT COUNT(*) >= 20 FROM tDevisenWaehr", "about twenty currencies"},
    {"SELECT COUNT(DISTINCT strftime('%Y', ddGueltigAb)) >= 5 FROM TDEVISENKURS", "rates of several years"},
    {"SELECT COUNT(*) = 4 FROM tSysQuvoColumns JOIN tSysQuvoTables ON flTable = IDSysQuvoTables WHERE dcTableName = 'TDEVISENKURS' AND dcColumnName LIKE 'dzKurs%'", "captions of the four prices"},
    {"SELECT COUNT(*) = 4 FROM tSysQuvoColumns JOIN tSysQuvoTables ON flTable = IDSysQuvoTables WHERE dcTableName = 'TDEVISENKURS' AND dcColumnName IN ('ddDatumAend', 'flMitarbeiter', 'idDevisenKurs', 'ddGueltigAb')", "captions of fields that are never exported"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData LIKE '%Name=\"dcImportKennz\"><OldValue>%'", "a logged field ..."},
    {"SELECT NOT EXISTS (SELECT * FROM tSysQuvoColumns WHERE dcColumnName = 'dcImportKennz')", "... without caption"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData IS NULL", "a document that is missing"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData = ''", "a document that is empty"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData <> '' AND dmData NOT LIKE '%</Cols>'", "a document that does not load"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData LIKE '%<NewValue>=%'", "a value that a spreadsheet would run"},
    {"SELECT COUNT(*) FROM tProtokoll JOIN tProtokollMemo ON flProtokoll = idProtokoll WHERE tProtokoll.dmData LIKE '%<NewValue>\\_MEMO\\_<%' ESCAPE '\\'", "a memo value with its text"},
};
// clang-format on

class SampleExchangeRates : public SampleFixture {};

TEST_F(SampleExchangeRates, SpellsItsTablesAndColumnsAsTheLogDoes) {
    const std::string path = write("a.db", {1, {}, exchange_rates});
    EXPECT_THAT(columns_of(path, "tDevisenWaehr"),
                testing::IsSupersetOf({"idDevisenWaehr", "dcISOKennz", "dcBezeichnung"}));
    EXPECT_THAT(columns_of(path, "TDEVISENKURS"),
                testing::IsSupersetOf({"idDevisenKurs", "flDevisenWaehr", "ddGueltigAb", "dzKursEURGeld",
                                       "dzKursFremdGeld", "dzKursEURBrief", "dzKursFremdBrief", "ddDatumAend",
                                       "flMitarbeiter"}));
}

TEST_F(SampleExchangeRates, ShowsEveryKindOfChangeAndValueWhateverTheSeed) {
    expect_whatever_the_seed(exchange_rates, features);
}

TEST_F(SampleExchangeRates, NamesRateAndCurrencyOfEveryLoggedRate) {
    const std::string path = write("a.db", {1, 5000, exchange_rates});
    EXPECT_EQ(number(path,
                     "SELECT COUNT(*) FROM tProtokoll WHERE dcTable = 'TDEVISENKURS'"
                     " AND (dlPrimaryKey1 IS NOT dlSuchId1 OR dlSuchId2 IS NULL)"),
              0);
    EXPECT_EQ(number(path,
                     "SELECT COUNT(*) FROM tProtokoll JOIN TDEVISENKURS ON idDevisenKurs = dlSuchId1"
                     " WHERE dcTable = 'TDEVISENKURS' AND flDevisenWaehr <> dlSuchId2"),
              0);
}

TEST_F(SampleExchangeRates, LeavesTheLiveRatesAsTheLogLeftThem) {
    const std::string path = write("a.db", {1, 5000, exchange_rates});
    const std::string last =
        "SELECT COUNT(*) FROM TDEVISENKURS JOIN tProtokoll p ON p.dlSuchId1 = idDevisenKurs"
        " WHERE p.dcTable = 'TDEVISENKURS' AND p.dmData LIKE '%\"ddDatumAend\"%' AND p.ddDatum ="
        " (SELECT MAX(q.ddDatum) FROM tProtokoll q WHERE q.dcTable = 'TDEVISENKURS'"
        " AND q.dlSuchId1 = idDevisenKurs)";
    EXPECT_GT(number(path, last), 100);
    EXPECT_EQ(number(path, last + " AND ddDatumAend <> p.ddDatum"), 0);
    EXPECT_EQ(number(path,
                     "SELECT COUNT(*) FROM tProtokoll WHERE dcTable = 'TDEVISENKURS' AND dlEvent = 2"
                     " AND dlSuchId1 IN (SELECT idDevisenKurs FROM TDEVISENKURS)"),
              0);
}

TEST_F(SampleExchangeRates, HasMoreRatesAndCurrenciesForALargerLog) {
    const std::string small = write("small.db", {1, 1000, exchange_rates});
    const std::string large = write("large.db", {1, 40000, exchange_rates});
    for (const std::string table : {"TDEVISENKURS", "tDevisenWaehr"}) {
        EXPECT_GT(number(large, "SELECT COUNT(*) FROM " + table),
                  2 * number(small, "SELECT COUNT(*) FROM " + table));
    }
}

}  // namespace
}  // namespace prot
