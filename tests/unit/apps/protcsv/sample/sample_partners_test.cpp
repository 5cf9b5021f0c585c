#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "tests/unit/apps/protcsv/sample/sample_fixture.h"

namespace prot {
namespace {

using testing::ElementsAre;
using testing::IsSupersetOf;

/// What customers and suppliers are called, and what stands for that in the statements below.
struct SideNames {
    std::int32_t section;
    const char* title;
    std::vector<std::pair<std::string, std::string>> names;
};

void PrintTo(const SideNames& side, std::ostream* out) { *out << side.title; }

const SideNames sides[] = {
    {9,
     "Customers",
     {{"$MASTER", "KUNDEN_V4"},
      {"$ID", "KUN_ID"},
      {"$NR", "KUN_NR"},
      {"$PERSON", "Ps_Id_Kunde"},
      {"$SAMMEL", "Ps_Id_Sammel_Kunde"},
      {"$X", "KUN_"},
      {"$VWZ", "TKUNDVWZ"},
      {"$FL", "FLKD"},
      {"$FIRST", "10000"},
      {"$SECOND", "10001"}}},
    {8,
     "Suppliers",
     {{"$MASTER", "LIEFERANTEN_V4"},
      {"$ID", "LIEF_ID"},
      {"$NR", "LIEF_NR"},
      {"$PERSON", "Ps_Id_Lieferant"},
      {"$SAMMEL", "Ps_Id_Sammel_Lief"},
      {"$X", "LIEF_"},
      {"$VWZ", "TLIEFVWZ"},
      {"$FL", "FLLI"},
      {"$FIRST", "70000"},
      {"$SECOND", "70001"}}},
};

class SamplePartners : public SampleFixture, public testing::WithParamInterface<SideNames> {
protected:
    const std::int32_t section = GetParam().section;

    static std::string text(std::string sql) {
        for (const auto& [placeholder, name] : GetParam().names)
            for (auto at = sql.find(placeholder); at != std::string::npos; at = sql.find(placeholder))
                sql.replace(at, placeholder.size(), name);
        return sql;
    }

    int count(const std::string& path, const std::string& condition) {
        return number(path, text("SELECT COUNT(*) FROM " + condition));
    }
};

INSTANTIATE_TEST_SUITE_P(Sample, SamplePartners, testing::ValuesIn(sides),
                         [](const auto& side) { return side.param.title; });

TEST_P(SamplePartners, SpellsItsTablesAndColumnsAsTheLogDoes) {
    const std::string path = write("a.db", {1, {}, section});
    EXPECT_THAT(columns_of(path, text("$MASTER")),
                IsSupersetOf({text("$ID"), text("$NR"), text("$PERSON"), std::string("Ps_Id_Mandant"),
                              std::string("KLKD_ID"), std::string("MB_ID"), std::string("MTH_ID"),
                              text("$SAMMEL"), text("$XDATUM"), text("$XMITARBEITER"), text("$XMEMO")}));
    EXPECT_THAT(columns_of(path, text("$VWZ")), ElementsAre(text("$FL"), "FLVWZ"));
    const std::pair<const char*, std::vector<std::string>> shared[] = {
        {"Person_v4", {"Ps_Id", "Ps_Nr", "Ps_KurzName", "PS_USTIDFK", "PS_ZUHAENDEN"}},
        {"Personalie", {"Pl_Id", "Ps_Id", "Pl_Bezeichnung"}},
        {"ADRESSE", {"ADR_ID", "LA_ID", "ADR_STRASSE", "ADR_PLZ", "ADR_ORT"}},
        {"PERSON_ADRESSE", {"ADR_ID", "PS_ID", "ADR_TYP"}},
        {"BANKKONTO", {"BK_ID", "BA_ID", "BK_IBAN", "BK_INHABER"}},
        {"PERSON_BANKKONTO", {"BK_ID", "PS_ID"}},
        {"STM_BKTOZUSATZ", {"BKZ_Id", "BKZ_Bk_Id", "BKZ_VERMERK"}},
        {"TKULIEFKOND",
         {"IDKLK", "dcBezeichnung", "diTageZahlungsziel", "diSkontoTage1", "diSkontoSatz1", "diSkontoTage2",
          "diSkontoSatz2", "diTyp", "flManID", "flMitID", "ddDatum"}},
        {"TVERWENDZWECK", {"IDVWZ", "dcBezeichnung"}},
        {"TTEXTHAUPTGRUPPE", {"IDTH", "dcBezeichnung"}},
        {"MAHNBEDINGUNGEN_V4", {"MB_ID", "Mb_Bezeichnung"}},
        {"TBANK", {"idBank", "dcBLZ", "dcBezeichnung"}},
    };
    for (const auto& [table, columns] : shared)
        EXPECT_THAT(columns_of(path, table), testing::IsSupersetOf(columns)) << table;
}

TEST_P(SamplePartners, IsIndexedWhereItIsSearched) {
    const std::string path = write("a.db", {1, {}, section});
    EXPECT_THAT(
        column(path,
               "SELECT s.tbl_name || ': ' || group_concat(c.name) FROM sqlite_schema AS s,"
               " pragma_index_info(s.name) AS c WHERE s.type = 'index' GROUP BY s.name"),
        IsSupersetOf({text("$MASTER: $NR"), text("$MASTER: $PERSON"), text("$MASTER: Ps_Id_Mandant"),
                      text("$MASTER: KLKD_ID"), text("$MASTER: MB_ID"), text("$MASTER: MTH_ID"),
                      text("$VWZ: $FL,FLVWZ"), text("$VWZ: FLVWZ"),
                      std::string("PERSON_ADRESSE: ADR_ID,PS_ID"), std::string("PERSON_ADRESSE: PS_ID"),
                      std::string("PERSON_BANKKONTO: BK_ID,PS_ID"), std::string("PERSON_BANKKONTO: PS_ID"),
                      std::string("STM_BKTOZUSATZ: BKZ_Bk_Id"), std::string("Personalie: Ps_Id")}));
}

// clang-format off
constexpr Feature features[] = {
    {"tProtokoll WHERE dcTable = '$MASTER' AND dlEvent = 0", "a partner created"},
    {"tProtokoll WHERE dcTable = '$MASTER' AND dlEvent = 1", "a partner changed"},
    {"tProtokoll WHERE dcTable = '$MASTER' AND dlEvent = 2", "a partner deleted"},
    {"tProtokoll WHERE dcTable = 'PERSON_V4' AND dlEvent = 1 AND dmData LIKE '%\"Ps_KurzName\"%'", "a person renamed"},
    {"tProtokoll WHERE dcTable = 'PERSON_V4' AND dlEvent = 1 AND dmData LIKE '%\"PS_ZUHAENDEN\"%'", "somebody to turn to"},
    {"tProtokoll WHERE dcTable = 'PERSON_V4' AND dlEvent = 1 AND dmData LIKE '%\"PS_USTIDFK\"%<NewValue>NULL<%'", "a VAT number removed"},
    {"tProtokoll a JOIN tProtokoll b ON b.dlSuchId1 = a.dlSuchId1 AND b.ddDatum > a.ddDatum WHERE a.dcTable = '$MASTER' AND b.dcTable = 'PERSONALIE' AND b.dlEvent = 1", "a name changed after a change"},
    {"tProtokoll a JOIN tProtokoll b ON b.dlPrimaryKey1 = a.dlPrimaryKey1 AND b.ddDatum > a.ddDatum WHERE a.dcTable = 'PERSONALIE' AND b.dcTable = 'PERSONALIE' AND a.dlEvent = 1 AND b.dlEvent = 2", "a name changed of a person deleted later"},
    {"tProtokoll WHERE dcTable = 'ADRESSE' AND dlEvent = 1 AND dmData LIKE '%\"ADR_ORT\"%'", "an address moved"},
    {"tProtokoll WHERE dcTable = 'ADRESSE' AND dmData LIKE '%&#13;&#10;%'", "an address of several lines"},
    {"tProtokoll WHERE dcTable = 'PERSON_ADRESSE' AND dlEvent = 1 AND dmData LIKE '%\"ADR_TYP\"%'", "another kind of address"},
    {"tProtokoll a JOIN tProtokoll b ON b.dlPrimaryKey1 = a.dlPrimaryKey1 AND b.ddDatum < a.ddDatum WHERE a.dcTable = 'PERSON_ADRESSE' AND b.dcTable = 'PERSON_ADRESSE' AND a.dlEvent = 2 AND b.dlEvent = 0", "an address linked and unlinked"},
    {"tProtokoll WHERE dcTable = 'BANKKONTO' AND dlEvent = 1 AND dmData LIKE '%\"BA_ID\"%'", "another bank"},
    {"tProtokoll JOIN TBANK ON dmData LIKE '%\"BA_ID\"><OldValue>' || idBank || '<%' WHERE dcTable = 'BANKKONTO' AND dcBLZ IS NULL", "a bank without code"},
    {"tProtokoll WHERE dcTable = 'BANKKONTO' AND dmData LIKE '%\"BA_ID\"><OldValue>%</OldValue><NewValue>0<%'", "no bank any more"},
    {"tProtokoll WHERE dcTable = 'BANKKONTO' AND dlPrimaryKey1 IN (SELECT BK_ID FROM BANKKONTO) AND dlPrimaryKey1 NOT IN (SELECT BK_ID FROM PERSON_BANKKONTO) AND dlPrimaryKey1 IN (SELECT p.dlPrimaryKey1 FROM tProtokoll p WHERE p.dcTable = 'PERSON_BANKKONTO' AND p.dlEvent = 2)", "an account whose link is deleted"},
    {"tProtokoll WHERE dcTable = 'BANKKONTO' AND dlEvent = 1 AND dlPrimaryKey1 NOT IN (SELECT BK_ID FROM BANKKONTO)", "a change of an account deleted since"},
    {"tProtokoll WHERE dcTable = 'STM_BKTOZUSATZ' AND dlEvent = 0", "something besides a bank account, created"},
    {"tProtokoll WHERE dcTable = 'STM_BKTOZUSATZ' AND dlEvent = 1", "... changed"},
    {"tProtokoll WHERE dcTable = 'STM_BKTOZUSATZ' AND dlEvent = 2", "... deleted"},
    {"tProtokoll WHERE dcTable = '$VWZ' AND dlEvent = 0", "a purpose added"},
    {"tProtokoll WHERE dcTable = '$VWZ' AND dlEvent = 2", "a purpose removed"},
    {"tProtokoll WHERE dcTable = '$VWZ' AND dlPrimaryKey2 NOT IN (SELECT IDVWZ FROM TVERWENDZWECK)", "a purpose that is in no list any more"},
    {"tProtokoll WHERE dcTable = 'TVERWENDZWECK' AND dlEvent = 1", "a purpose renamed"},
    {"tProtokoll WHERE dcTable = '$MASTER' AND dmData LIKE '%\"KLKD_ID\"><OldValue>0<%'", "terms of payment assigned"},
    {"tProtokoll WHERE dcTable = '$MASTER' AND dmData LIKE '%\"KLKD_ID\"><OldValue>%</OldValue><NewValue>0<%'", "terms of payment withdrawn"},
    {"tProtokoll JOIN $MASTER ON KLKD_ID = dlPrimaryKey1 WHERE dcTable = 'TKULIEFKOND' AND dmData LIKE '%\"dcBezeichnung\"%' AND dlEvent = 1", "terms of payment renamed"},
    {"tProtokoll JOIN $MASTER ON KLKD_ID = dlPrimaryKey1 WHERE dcTable = 'TKULIEFKOND' AND dmData LIKE '%\"diTageZahlungsziel\"%' AND dlEvent = 1", "terms of payment with other days"},
    {"tProtokoll WHERE dcTable = 'TKULIEFKOND' AND dmData LIKE '%\"diSkontoSatz1\"%' AND dlEvent = 1", "another rate of discount"},
    {"tProtokoll WHERE dcTable = 'TKULIEFKOND' AND dmData GLOB '<Cols><Col Name=\"diSkontoTage2\"*</Col><Col Name=\"ddDatum\"*' OR dmData GLOB '<Cols><Col Name=\"diSkontoTage2\"*</Col><Col Name=\"flMitID\"*'", "days of the second discount alone, which yield no line"},
    {"tProtokoll JOIN $MASTER ON KLKD_ID = dlPrimaryKey1 WHERE dcTable = 'TKULIEFKOND' AND dlEvent = 0", "terms of payment created"},
    {"tProtokoll a JOIN tProtokoll b ON b.dmData LIKE '%\"KLKD_ID\"><OldValue>%</OldValue><NewValue>' || a.dlPrimaryKey1 || '<%' WHERE a.dcTable = 'TKULIEFKOND' AND a.dlEvent = 2 AND b.dcTable = '$MASTER'", "terms of payment deleted since somebody had them"},
    {"tProtokoll WHERE dcTable = '$MASTER' AND dmData LIKE '%\"MB_ID\"><OldValue>NULL<%'", "dunning conditions assigned for the first time"},
    {"tProtokoll WHERE dcTable = '$MASTER' AND dmData LIKE '%\"MB_ID\"><OldValue>%</OldValue><NewValue>0<%'", "dunning conditions set to 0"},
    {"tProtokoll WHERE dcTable = 'MAHNBEDINGUNGEN_V4' AND dlEvent = 1 AND dlPrimaryKey1 NOT IN (SELECT MB_ID FROM MAHNBEDINGUNGEN_V4)", "dunning conditions renamed and deleted since"},
    {"tProtokoll WHERE dcTable = '$MASTER' AND dmData LIKE '%\"MTH_ID\"><OldValue>%</OldValue><NewValue>0<%'", "a text group set to 0"},
    {"tProtokoll WHERE dcTable = 'TTEXTHAUPTGRUPPE' AND dlEvent = 1", "a text group renamed"},
    {"tProtokoll WHERE dcTable = 'TTEXTHAUPTGRUPPE' AND dlEvent = 2", "a text group deleted since"},
    {"tProtokoll JOIN $MASTER ON dmData LIKE '%\"$SAMMEL\"><OldValue>NULL</OldValue><NewValue>' || $PERSON || '<%' WHERE dcTable = '$MASTER'", "a central regulator set"},
    {"tProtokoll WHERE dcTable = '$MASTER' AND dmData LIKE '%\"$SAMMEL\"><OldValue>1%</OldValue><NewValue>0<%'", "a central regulator removed"},
    {"tProtokoll WHERE dcTable = 'TBANK' AND dlEvent = 1", "a bank renamed"},
    {"tProtokoll WHERE dcTable = 'TBANK' AND dlEvent = 2", "a bank deleted since"},
    {"tProtokoll JOIN tProtokollMemo ON flProtokoll = idProtokoll WHERE tProtokoll.dmData LIKE '%\"$XMEMO\">%<NewValue>\\_MEMO\\_<%' ESCAPE '\\'", "a memo with its text, which yields no line"},
    {"tProtokoll WHERE dcTable = '$MASTER' AND dlEvent = 1 AND dmData GLOB '<Cols><Col Name=\"$XDATUM\"*'", "a change that yields no line"},
    {"tProtokoll WHERE dmData GLOB '*\"klkd_id\"*'", "a column spelled in lower case"},
    {"tProtokoll WHERE dmData GLOB '*\"MTH_ID\"><OldValue>alt<*'", "a key that is no number"},
    {"tProtokoll WHERE dmData IS NULL", "a document that is missing"},
    {"tProtokoll WHERE dmData = ''", "a document that is empty"},
    {"tProtokoll WHERE dmData <> '' AND dmData NOT LIKE '%</Cols>'", "a document that does not load"},
    {"tProtokoll WHERE dmData LIKE '%<NewValue>=%'", "a value that a spreadsheet would run"},
    {"tProtokoll WHERE dmData LIKE '%<NewValue>- %'", "a text that begins with a minus"},
    {"tProtokoll WHERE dmData LIKE '%\"; %</NewValue>%'", "a value with quotes and separator"},
    {"tProtokoll WHERE dmData LIKE '%&lt;%' AND dmData LIKE '%&amp;%'", "a value with markup characters"},
    {"tProtokoll WHERE dmData LIKE '%\"$XIMPORT_KZ\"%' AND (SELECT COUNT(*) FROM tSysQuvoColumns WHERE dcColumnName = '$XIMPORT_KZ') = 0", "a logged field without caption"},
    {"$MASTER a JOIN $MASTER b ON b.$NR = a.$NR AND b.Ps_Id_Mandant > a.Ps_Id_Mandant", "several clients with the same number"},
    {"$MASTER JOIN Personalie ON Personalie.Ps_Id = Ps_Id_Mandant JOIN Mandant_Zeit USING (Pl_Id) WHERE MaZt_Kanzlei = -1", "partners of an office"},
};
// clang-format on

TEST_P(SamplePartners, ShowsEveryKindOfChangeAndValueWhateverTheSeed) {
    std::vector<std::string> statements;
    for (const Feature& feature : features)
        statements.push_back(text("SELECT COUNT(*) FROM " + std::string(feature.sql)));
    std::vector<Feature> of_side;
    for (std::size_t index = 0; index < statements.size(); ++index)
        of_side.push_back({statements[index].c_str(), features[index].why});
    expect_whatever_the_seed(section, of_side);
}

/// Each table that is tied to a partner, and how, for the numbers that the form proposes.
// clang-format off
constexpr std::pair<const char*, const char*> ties[] = {
    {"$MASTER",          "dlSuchId1 IN persons"},
    {"PERSON_V4",        "dlPrimaryKey1 IN persons"},
    {"PERSONALIE",       "dlSuchId1 IN persons"},
    {"BANKKONTO",        "dlPrimaryKey1 IN (SELECT BK_ID FROM PERSON_BANKKONTO WHERE PS_ID IN persons)"},
    {"STM_BKTOZUSATZ",   "dlSuchId1 IN (SELECT BK_ID FROM PERSON_BANKKONTO WHERE PS_ID IN persons)"},
    {"ADRESSE",          "dlPrimaryKey1 IN (SELECT ADR_ID FROM PERSON_ADRESSE WHERE PS_ID IN persons)"},
    {"PERSON_ADRESSE",   "dlPrimaryKey2 IN persons"},
    {"PERSON_BANKKONTO", "dlPrimaryKey2 IN persons AND dlEvent = 2"},
    {"TKULIEFKOND",      "dlPrimaryKey1 IN (SELECT KLKD_ID FROM $MASTER WHERE $PERSON IN persons) AND dlEvent = 0"},
    {"TKULIEFKOND",      "dlPrimaryKey1 IN (SELECT KLKD_ID FROM $MASTER WHERE $PERSON IN persons) AND dmData LIKE '%\"diSkontoTage2\"><OldValue>NULL%'"},
    {"$VWZ",             "dlPrimaryKey1 IN (SELECT $ID FROM $MASTER WHERE $PERSON IN persons)"},
};
// clang-format on

TEST_P(SamplePartners, HasRowsOfEveryTableForTheNumbersThatTheFormProposes) {
    const std::string path = write("a.db", {1, {}, section});
    const std::string persons =
        "WITH persons AS (SELECT dlSuchId1 FROM tProtokoll WHERE dcTable = '$MASTER' AND dlSuchId4 BETWEEN"
        " $FIRST AND $SECOND AND dlSuchId2 IN (SELECT Akten.Ps_Id FROM Akten JOIN Person_v4 USING (Ps_Id)"
        " JOIN Personalie USING (Ps_Id) JOIN Mandant_Zeit USING (Pl_Id) WHERE MaZt_Kanzlei = 0 AND Ps_Nr ";
    for (const auto& [table, tie] : ties)
        EXPECT_GT(
            number(path, text(persons + "IN (1, 123))) SELECT COUNT(*) FROM tProtokoll WHERE dcTable = '" +
                              table + "' AND " + tie)),
            0)
            << table;
    for (const char* const client : {"= 1", "= 123"})
        EXPECT_EQ(number(path, text(persons + client +
                                    ")) SELECT COUNT(DISTINCT dlSuchId4) FROM tProtokoll"
                                    " WHERE dcTable = '$MASTER' AND dlSuchId1 IN persons")),
                  2)
            << client;
}

TEST_P(SamplePartners, DeletesAPartnerWithEverythingInOneSecond) {
    const std::string path = write("a.db", {1, {}, section});
    const std::string deletions =
        "SELECT group_concat(dcTable) FROM (SELECT DISTINCT dcTable COLLATE BINARY AS dcTable FROM tProtokoll"
        " WHERE dlEvent = 2 AND ddDatum = (SELECT ddDatum FROM tProtokoll WHERE dcTable = '$MASTER'"
        " AND dlEvent = 2 AND dlSuchId4 = $SECOND) ORDER BY 1)";
    std::vector<std::string> tables = {"ADRESSE",          "BANKKONTO", "PERSONALIE",    "PERSON_ADRESSE",
                                       "PERSON_BANKKONTO", "PERSON_V4", text("$MASTER"), text("$VWZ")};
    std::ranges::sort(tables);
    std::string expected;
    for (const std::string& table : tables) expected += (expected.empty() ? "" : ",") + table;
    EXPECT_THAT(column(path, text(deletions)), ElementsAre(expected));
    EXPECT_EQ(count(path, "tProtokoll WHERE dlEvent = 2 AND dmData NOT LIKE '%</Cols>'"), 0);
    EXPECT_EQ(count(path,
                    "tProtokoll WHERE dcTable = 'PERSONALIE' AND dlEvent = 2"
                    " AND dmData NOT LIKE '%\"Pl_Bezeichnung\"><OldValue>_%'"),
              0);
}

TEST_P(SamplePartners, NeverEndsAmidTheRowsOfOneChange) {
    for (const std::int64_t rows : {150, 151, 152, 153, 1000, 20'000}) {
        const std::string path = write(std::to_string(rows) + ".db", {1, rows, section});
        EXPECT_EQ(count(path,
                        "(SELECT ddDatum FROM tProtokoll WHERE dlEvent <> 1 GROUP BY ddDatum HAVING"
                        " SUM(dcTable = 'PERSON_V4') <> SUM(dcTable = 'PERSONALIE')"
                        " OR SUM(dcTable = 'PERSON_V4') <> SUM(dcTable = '$MASTER')"
                        " OR (SUM(dcTable = 'BANKKONTO') <> SUM(dcTable = 'PERSON_BANKKONTO')"
                        " AND SUM(dcTable = 'PERSON_BANKKONTO') <> 1)"
                        " OR SUM(dcTable = 'ADRESSE') <> SUM(dcTable = 'PERSON_ADRESSE'))"),
                  0)
            << rows;
    }
}

TEST_P(SamplePartners, NamesPersonClientAndNumberOfEveryLoggedPartner) {
    const std::string path = write("a.db", {1, 5000, section});
    EXPECT_EQ(count(path,
                    "tProtokoll WHERE dcTable = '$MASTER' AND (dlSuchId1 IS NULL OR dlSuchId4 IS NULL"
                    " OR dlSuchId2 NOT IN (SELECT Ps_Id FROM Akten))"),
              0);
    EXPECT_EQ(count(path,
                    "tProtokoll JOIN $MASTER ON $ID = dlPrimaryKey1 WHERE dcTable = '$MASTER'"
                    " AND (dlSuchId1 <> $PERSON OR dlSuchId2 <> Ps_Id_Mandant OR dlSuchId4 <> $NR)"),
              0);
}

TEST_P(SamplePartners, LeavesTheLiveRecordsAsTheLogLeftThem) {
    const std::string path = write("a.db", {1, 5000, section});
    const auto last = [](const std::string& table, const std::string& key, const std::string& pattern) {
        return table + " JOIN tProtokoll p ON p.dlPrimaryKey1 = " + key + " WHERE p.dcTable = '" + table +
               "' AND p.dmData LIKE '" + pattern +
               "' AND p.ddDatum = (SELECT MAX(q.ddDatum) FROM tProtokoll q" + " WHERE q.dcTable = '" + table +
               "' AND q.dlPrimaryKey1 = " + key + " AND q.dmData LIKE '" + pattern + "')";
    };
    const std::string saved = last("$MASTER", "$ID", "%\"$XDATUM\"%");
    EXPECT_GT(count(path, saved), 100);
    EXPECT_EQ(count(path, saved + " AND $XDATUM <> p.ddDatum"), 0);

    const std::pair<std::string, std::string> values[] = {
        {last("PERSONALIE", "Pl_Id", "%\"Pl_Bezeichnung\"%"), "Pl_Bezeichnung"},
        {last("ADRESSE", "ADR_ID", "%\"ADR_STRASSE\"%"), "ADR_STRASSE"},
        {last("BANKKONTO", "BK_ID", "%\"BA_ID\"%"), "BA_ID"},
        {last("BANKKONTO", "BK_ID", "%\"BK_IBAN\"%"), "BK_IBAN"},
        {last("STM_BKTOZUSATZ", "BKZ_Id", "%\"BKZ_VERMERK\"%"), "BKZ_VERMERK"},
        {last("TKULIEFKOND", "IDKLK", "%\"diTageZahlungsziel\"%"), "diTageZahlungsziel"},
    };
    for (const auto& [latest, live] : values) {
        EXPECT_GT(count(path, latest), 0) << live;
        // What the document has to escape is left out.
        EXPECT_EQ(
            count(path, latest + " AND p.dmData NOT LIKE '%&%' AND p.dmData NOT LIKE '%<NewValue>' || " +
                            live + " || '</NewValue>%'"),
            0)
            << live;
    }
}

TEST_P(SamplePartners, HasNothingMoreOfWhatTheLogDeleted) {
    const std::string path = write("a.db", {1, 5000, section});
    const std::pair<const char*, const char*> keys[] = {
        {"$MASTER", "$ID"},           {"PERSON_V4", "Ps_Id"},        {"PERSONALIE", "Pl_Id"},
        {"ADRESSE", "ADR_ID"},        {"BANKKONTO", "BK_ID"},        {"STM_BKTOZUSATZ", "BKZ_Id"},
        {"PERSON_ADRESSE", "ADR_ID"}, {"PERSON_BANKKONTO", "BK_ID"},
    };
    for (const auto& [table, key] : keys) {
        const std::string deleted = std::string("tProtokoll WHERE dlEvent = 2 AND dcTable = '") + table + "'";
        EXPECT_GT(count(path, deleted), 0) << table;
        EXPECT_EQ(count(path, deleted + " AND dlPrimaryKey1 IN (SELECT " + key + " FROM " + table + ")"), 0)
            << table;
    }
}

}  // namespace
}  // namespace prot
