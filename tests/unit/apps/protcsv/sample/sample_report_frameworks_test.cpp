#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/unit/apps/protcsv/sample/sample_fixture.h"

namespace prot {
namespace {

using testing::ElementsAre;
using testing::IsSupersetOf;

constexpr std::int32_t report_frameworks = 10;

class SampleReportFrameworks : public SampleFixture {
protected:
    int count(const std::string& path, const std::string& condition) {
        return number(path, "SELECT COUNT(*) FROM " + condition);
    }
};

/// A logged table, and where its key and that of what it belongs to stand: in the table and in the log.
struct LoggedTable {
    std::string table, key, parent_key, parent_log, parent_table;
    std::string second_key = {}, second_log = {}, second_table = {};
};

// clang-format off
const LoggedTable logged_tables[] = {
    {"Auswertungsrahmen",   "ARa_Id", "ARa_Id", "dlSuchId1", "Auswertungsrahmen"},
    {"Auswertungsdichte",   "Ad_Id",  "ARa_Id", "dlSuchId1", "Auswertungsrahmen"},
    {"Auswertungsart",      "Aa_Id",  "ARa_Id", "dlSuchId1", "Auswertungsrahmen"},
    {"Auswertungsspalte",   "As_Id",  "Aa_Id",  "dlSuchId1", "Auswertungsart"},
    {"Zeilenart",           "Za_Id",  "ARa_Id", "dlSuchId1", "Auswertungsrahmen"},
    {"AuswertungsPosition", "Ap_Id",  "Za_Id",  "dlSuchId1", "Zeilenart"},
    {"Auswertungszelle",    "Az_Id",  "Ap_Id",  "dlSuchId1", "AuswertungsPosition"},
    {"Formel_Position",     "Fo_Id",  "AP_ID",  "dlSuchId2", "AuswertungsPosition", "KR_Id", "dlSuchId1", "Kontenrahmen"},
    {"Spaltenformate",      "Spf_Id", "Za_Id",  "dlSuchId2", "Zeilenart",           "As_Id", "dlSuchId1", "Auswertungsspalte"},
};

constexpr Feature features[] = {
    {"SELECT COUNT(*) = 10 FROM (SELECT ARa_Art FROM Auswertungsrahmen WHERE ARa_Typ = 0 AND ARa_Art IN (0, 10, 20, 30, 40, 45, 50, 55, 60, 70) GROUP BY ARa_Art)", "standard frameworks of all types"},
    {"SELECT COUNT(*) = 10 FROM (SELECT ARa_Art FROM Auswertungsrahmen WHERE ARa_Typ = 1 AND ARa_Art IN (0, 10, 20, 30, 40, 45, 50, 55, 60, 70) GROUP BY ARa_Art)", "office frameworks of all types"},
    {"SELECT COUNT(*) FROM Auswertungsrahmen WHERE ddGueltigVon IS NULL AND ddGueltigBis IS NULL", "a framework without validity"},
    {"SELECT COUNT(*) FROM Auswertungsrahmen WHERE ddGueltigVon IS NOT NULL AND ddGueltigBis IS NULL", "... valid from a day on"},
    {"SELECT COUNT(*) FROM Auswertungsrahmen WHERE ddGueltigVon IS NULL AND ddGueltigBis IS NOT NULL", "... valid until a day"},
    {"SELECT COUNT(*) FROM Auswertungsrahmen WHERE ddGueltigVon < ddGueltigBis", "... valid between two days"},
    {"SELECT COUNT(*) FROM Auswertungsrahmen WHERE ARa_Bezeichnung LIKE '%/%'", "a name with a slash"},
    {"SELECT COUNT(*) FROM Auswertungsrahmen WHERE ARa_Bezeichnung LIKE '%\"; %'", "a name with quotes and separator"},
    {"SELECT COUNT(*) FROM Auswertungsrahmen a JOIN Auswertungsrahmen b USING (ARa_Bezeichnung, ARa_Art, ARa_Typ, dcGUID) WHERE a.ddGueltigVon < b.ddGueltigVon", "two versions under one name"},
    {"SELECT COUNT(*) = 5 FROM Kontenrahmen WHERE typeof(KR_Kennzeichen) = 'integer'", "charts of accounts"},
    {"SELECT COUNT(*) = 9 FROM (SELECT DISTINCT dcTable FROM tProtokoll WHERE dlEvent = 0)", "a record of every kind created"},
    {"SELECT COUNT(*) = 9 FROM (SELECT DISTINCT dcTable FROM tProtokoll WHERE dlEvent = 1)", "... changed"},
    {"SELECT COUNT(*) = 9 FROM (SELECT DISTINCT dcTable FROM tProtokoll WHERE dlEvent = 2)", "... deleted"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dcTable = 'AUSWERTUNGSPOSITION' AND dlEvent = 1 AND dmData GLOB '*\"AP_NR\"*'", "a position with another number, which yields no line"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dcTable = 'AUSWERTUNGSPOSITION' AND dlEvent = 1 AND dmData GLOB '*\"Za_Id\"*'", "a position moved to another kind of line"},
    {"SELECT COUNT(*) FROM tProtokoll p JOIN Zeilenart ON Za_Id = dlSuchId1 WHERE dcTable = 'AUSWERTUNGSPOSITION' AND dlEvent = 2", "a position deleted from a kind of line that exists"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dcTable = 'AUSWERTUNGSZELLE' AND dlEvent = 1 AND dmData GLOB '*\"Ad_Id\"*'", "a cell moved to another density"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dcTable = 'AUSWERTUNGSZELLE' AND dlEvent = 1 AND dmData GLOB '<Cols><Col Name=\"AZ_ABWBEZEICHNUNG\"*' AND dmData NOT GLOB '*BEZEICHNUNG[234]*'", "a cell with another name, which yields no line"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dcTable = 'FORMEL_POSITION' AND dlEvent = 1 AND dmData GLOB '<Cols><Col Name=\"FO_FORMELMENGE\"*'", "other quantities, which yield no line"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dlEvent = 1 AND dmData GLOB '<Cols><Col Name=\"AP_DATUM\"*'", "a change that yields no line"},
    {"SELECT COUNT(*) FROM tProtokoll JOIN tProtokollMemo m ON flProtokoll = idProtokoll WHERE dcTable = 'FORMEL_POSITION' AND dlEvent = 0", "an assignment created with its memo"},
    {"SELECT COUNT(*) FROM tProtokollMemo m JOIN tProtokoll ON flProtokoll = idProtokoll WHERE dcTable = 'FORMEL_POSITION' AND instr(m.dmData, char(13, 10)) AND m.dmData LIKE '%;%\"%\"%'", "a memo with lines, separator and quotes"},
    {"SELECT COUNT(*) FROM (SELECT dlPrimaryKey1 FROM tProtokoll WHERE dcTable = 'FORMEL_POSITION' AND dlEvent = 1 AND dmData LIKE '%\"Fo_Formel\"%' GROUP BY 1 HAVING COUNT(*) >= 3)", "an assignment that changes again and again"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dcTable = 'FORMEL_POSITION' AND dmData LIKE '%<NewValue>\\_MEMO\\_<%' ESCAPE '\\' AND idProtokoll NOT IN (SELECT flProtokoll FROM tProtokollMemo)", "a changed assignment without its memo"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData LIKE '%<OldValue>NULL<%'", "a value that was not set"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData LIKE '%<NewValue>NULL<%'", "a value that is not set any more"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData GLOB '*\"ap_bezeichnung\"*'", "a column spelled in lower case"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData GLOB '*\"AP_IMPORT_KZ\"><OldValue>*' AND NOT EXISTS (SELECT * FROM tSysQuvoColumns WHERE dcColumnName = 'AP_IMPORT_KZ')", "a logged field without caption"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE ddDatum IS NULL AND dmData LIKE '%\"Ap_Bezeichnung\"%'", "a change without date"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData IS NULL", "a document that is missing"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData = ''", "a document that is empty"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData <> '' AND dmData NOT LIKE '%</Cols>'", "a document that does not load"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData LIKE '%<NewValue>=%'", "a value that a spreadsheet would run"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData LIKE '%<NewValue>- %'", "a text that begins with a minus"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData LIKE '%&lt;%' AND dmData LIKE '%&amp;%'", "a value with markup characters"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData LIKE '%&#13;&#10;%'", "a value of several lines"},
};
// clang-format on

TEST_F(SampleReportFrameworks, SpellsItsTablesAndColumnsAsTheLogDoes) {
    const std::string path = write("a.db", {1, {}, report_frameworks});
    const std::pair<const char*, std::vector<std::string>> columns[] = {
        {"Auswertungsrahmen",
         {"ARa_Id", "ARa_Bezeichnung", "ARa_Art", "ARa_Typ", "ARa_Kennzeichen", "ddGueltigVon",
          "ddGueltigBis", "dcGUID", "MIT_ID", "ARa_Datum"}},
        {"Auswertungsdichte", {"Ad_Id", "ARa_Id", "Ad_Bezeichnung", "dcGUID", "MIT_ID", "Ad_Datum"}},
        {"Auswertungsart", {"Aa_Id", "ARa_Id", "Aa_Bezeichnung", "dcGUID", "MIT_ID", "Aa_Datum"}},
        {"Auswertungsspalte", {"As_Id", "Aa_Id", "As_Bezeichnung", "dcGUID", "MIT_ID", "As_Datum"}},
        {"Zeilenart", {"Za_Id", "ARa_Id", "Za_Bezeichnung", "dcGUID", "MIT_ID", "Za_Datum"}},
        {"AuswertungsPosition",
         {"Ap_Id", "Za_Id", "Ap_Bezeichnung", "AP_NR", "dcGUID", "MIT_ID", "AP_DATUM"}},
        {"Auswertungszelle",
         {"Az_Id", "Ap_Id", "Ad_Id", "AZ_ABWBEZEICHNUNG", "AZ_ATBEZEICHNUNG2", "AZ_ATBEZEICHNUNG3",
          "AZ_ATBEZEICHNUNG4", "MIT_ID", "AZ_DATUM"}},
        {"Formel_Position", {"Fo_Id", "AP_ID", "KR_Id", "Fo_Formel", "FO_FORMELMENGE", "MIT_ID", "FO_DATUM"}},
        {"Spaltenformate", {"Spf_Id", "Za_Id", "As_Id", "MIT_ID", "SPF_DATUM"}},
        {"Kontenrahmen", {"KR_Id", "KR_Bezeichnung", "KR_Kennzeichen"}},
    };
    for (const auto& [table, names] : columns) {
        EXPECT_THAT(columns_of(path, table), IsSupersetOf(names));
        EXPECT_EQ(count(path, std::string("sqlite_schema WHERE name = '") + table + "'"), 1) << table;
    }
}

TEST_F(SampleReportFrameworks, IsIndexedWhereRecordsAreSearched) {
    const std::string path = write("a.db", {1, {}, report_frameworks});
    std::vector<std::string> expected;
    for (const LoggedTable& logged : logged_tables) {
        if (logged.key != logged.parent_key) expected.push_back(logged.table + ": " + logged.parent_key);
        if (!logged.second_key.empty()) expected.push_back(logged.table + ": " + logged.second_key);
    }
    expected.insert(expected.end(), {"AuswertungsPosition: Ap_Bezeichnung", "Auswertungszelle: Ad_Id",
                                     "Auswertungsrahmen: ARa_Art,ARa_Typ"});
    EXPECT_THAT(column(path,
                       "SELECT s.tbl_name || ': ' || group_concat(c.name) FROM sqlite_schema AS s,"
                       " pragma_index_info(s.name) AS c WHERE s.type = 'index' GROUP BY s.name"),
                IsSupersetOf(expected));
}

TEST_F(SampleReportFrameworks, ShowsEveryKindOfChangeFrameworkAndValueWhateverTheSeed) {
    expect_whatever_the_seed(report_frameworks, features);
}

TEST_F(SampleReportFrameworks, HasNoKeyThatFitsIntoAnotherTable) {
    const std::string path = write("a.db", {1, 20'000, report_frameworks});
    std::string keys = "(SELECT KR_Id AS id FROM Kontenrahmen";
    for (const LoggedTable& logged : logged_tables)
        keys += " UNION ALL SELECT " + logged.key + " FROM " + logged.table +
                " UNION ALL SELECT DISTINCT dlPrimaryKey1 FROM tProtokoll WHERE dcTable = '" + logged.table +
                "' AND dlPrimaryKey1 NOT IN (SELECT " + logged.key + " FROM " + logged.table + ")";
    EXPECT_EQ(number(path, "SELECT COUNT(DISTINCT id) FROM " + keys + ")"), count(path, keys + ")"));
}

TEST_F(SampleReportFrameworks, TellsTheKeysOfParentsInEveryRow) {
    const std::string path = write("a.db", {1, 20'000, report_frameworks});
    for (const LoggedTable& logged : logged_tables) {
        const std::string rows = "tProtokoll WHERE dcTable = '" + logged.table + "'";
        EXPECT_GT(count(path, rows), 0) << logged.table;
        EXPECT_EQ(count(path, rows + " AND dcTable COLLATE BINARY <> upper('" + logged.table + "')"), 0);
        EXPECT_EQ(count(path, rows + " AND " + logged.parent_log + " IS NULL"), 0) << logged.table;
        const std::string live = "tProtokoll JOIN " + logged.table + " ON " + logged.key +
                                 " = dlPrimaryKey1 WHERE dcTable = '" + logged.table + "' AND ";
        // A position may have been moved since.
        EXPECT_EQ(count(path, live + logged.parent_log + " <> " + logged.parent_key +
                                  " AND dlPrimaryKey1 NOT IN (SELECT dlPrimaryKey1 FROM tProtokoll"
                                  " WHERE dlEvent = 1 AND dmData LIKE '%\"Za_Id\"%')"),
                  0)
            << logged.table;
        if (logged.second_key.empty()) continue;
        EXPECT_EQ(count(path, live + logged.second_log + " IS NOT " + logged.second_key), 0) << logged.table;
    }
    EXPECT_EQ(count(path,
                    "tProtokoll WHERE dcTable = 'AUSWERTUNGSRAHMEN' AND (dlPrimaryKey1 IS NOT dlSuchId1"
                    " OR dlSuchId2 IS NULL OR dlSuchId3 NOT IN (0, 1))"),
              0);
}

TEST_F(SampleReportFrameworks, RefersToNothingThatIsMissing) {
    const std::string path = write("a.db", {1, 20'000, report_frameworks});
    for (const LoggedTable& logged : logged_tables) {
        const auto missing = [&](const std::string& key, const std::string& table) {
            return count(path,
                         logged.table + " WHERE " + key + " NOT IN (SELECT " + key + " FROM " + table + ")");
        };
        EXPECT_EQ(missing(logged.parent_key, logged.parent_table), 0) << logged.table;
        if (!logged.second_key.empty()) {
            EXPECT_EQ(missing(logged.second_key, logged.second_table), 0) << logged.table;
        }
    }
    EXPECT_EQ(count(path, "Auswertungszelle WHERE Ad_Id NOT IN (SELECT Ad_Id FROM Auswertungsdichte)"), 0);
}

TEST_F(SampleReportFrameworks, LeavesTheLiveRecordsAsTheLogLeftThem) {
    const std::string path = write("a.db", {1, 20'000, report_frameworks});
    const std::pair<const char*, const char*> dates[] = {
        {"Auswertungsrahmen ARa_Id", "ARa_Datum"}, {"Auswertungsspalte As_Id", "As_Datum"},
        {"Zeilenart Za_Id", "Za_Datum"},           {"AuswertungsPosition Ap_Id", "AP_DATUM"},
        {"Auswertungszelle Az_Id", "AZ_DATUM"},    {"Formel_Position Fo_Id", "FO_DATUM"},
        {"Spaltenformate Spf_Id", "SPF_DATUM"},
    };
    for (const auto& [table_and_key, date] : dates) {
        const std::string both(table_and_key);
        const std::string table = both.substr(0, both.find(' ')), key = both.substr(both.find(' ') + 1);
        const std::string latest =
            "(SELECT dlPrimaryKey1, MAX(ddDatum) AS latest FROM tProtokoll WHERE dcTable = '" + table +
            "' AND dmData LIKE '%\"" + date + "\"%' GROUP BY 1) JOIN " + table + " ON " + key +
            " = dlPrimaryKey1";
        EXPECT_GT(count(path, latest), 0) << table;
        EXPECT_EQ(count(path, latest + " WHERE " + date + " <> latest"), 0) << table;
    }
    for (const LoggedTable& logged : logged_tables)
        EXPECT_EQ(
            count(path, "tProtokoll WHERE dlEvent = 2 AND dcTable = '" + logged.table +
                            "' AND dlPrimaryKey1 IN (SELECT " + logged.key + " FROM " + logged.table + ")"),
            0)
            << logged.table;
}

/// What is known of a deleted record, is known from its deletion.
TEST_F(SampleReportFrameworks, DeletesAFrameworkWithEverythingInOneSecondWhateverIsBelowFirst) {
    const std::string path = write("a.db", {1, {}, report_frameworks});
    for (const std::string kind : {"0", "1"}) {
        const std::string moment =
            "(SELECT ddDatum FROM tProtokoll WHERE dcTable = 'AUSWERTUNGSRAHMEN'"
            " AND dlEvent = 2 AND dlSuchId3 = " +
            kind + ")";
        EXPECT_THAT(
            column(path,
                   "SELECT group_concat(dcTable) FROM (SELECT dcTable FROM tProtokoll"
                   " WHERE dlEvent = 2 AND ddDatum = " +
                       moment + " GROUP BY dcTable ORDER BY AVG(idProtokoll))"),
            ElementsAre("AUSWERTUNGSZELLE,FORMEL_POSITION,AUSWERTUNGSPOSITION,SPALTENFORMATE,ZEILENART,"
                        "AUSWERTUNGSSPALTE,AUSWERTUNGSART,AUSWERTUNGSDICHTE,AUSWERTUNGSRAHMEN"))
            << kind;
        for (const std::string table : {"AUSWERTUNGSPOSITION", "AUSWERTUNGSZELLE", "ZEILENART",
                                        "AUSWERTUNGSSPALTE", "SPALTENFORMATE", "FORMEL_POSITION"})
            EXPECT_GT(count(path, "tProtokoll WHERE dlEvent = 2 AND dcTable = '" + table +
                                      "' AND ddDatum = " + moment),
                      0);
    }
}

TEST_F(SampleReportFrameworks, HasChangesOfRecordsWhosePositionLineKindOrFrameworkIsGone) {
    for (const std::uint64_t seed : {1U, 2U, 3U}) {
        const std::string path = write(std::to_string(seed) + ".db", {seed, {}, report_frameworks});
        const auto deleted = [](const std::string& table, const std::string& condition) {
            return "(SELECT dlPrimaryKey1 FROM tProtokoll WHERE dcTable = '" + table +
                   "' AND dlEvent = 2 AND " + condition + ")";
        };
        for (const std::string kind : {"0", "1"}) {
            const std::string framework = deleted("AUSWERTUNGSRAHMEN", "dlSuchId3 = " + kind);
            const std::string line = deleted("ZEILENART", "dlSuchId1 IN " + framework);
            const std::string position = deleted("AUSWERTUNGSPOSITION", "dlSuchId1 IN " + line);
            for (const std::string& rows : {"dcTable = 'ZEILENART' AND dlSuchId1 IN " + framework,
                                            "dcTable = 'AUSWERTUNGSPOSITION' AND dlSuchId1 IN " + line,
                                            "dcTable = 'FORMEL_POSITION' AND dlSuchId2 IN " + position})
                EXPECT_GT(count(path, "tProtokoll WHERE dlEvent = 1 AND " + rows), 0) << rows << seed;
            for (const std::string& rows : {"dcTable = 'AUSWERTUNGSZELLE' AND dlSuchId1 IN " + position,
                                            "dcTable = 'SPALTENFORMATE' AND dlSuchId2 IN " + line,
                                            "dcTable = 'AUSWERTUNGSSPALTE' AND dlSuchId1 IN " +
                                                deleted("AUSWERTUNGSART", "dlSuchId1 IN " + framework)})
                EXPECT_GT(count(path, "tProtokoll WHERE dlEvent = 2 AND " + rows), 0) << rows << seed;
        }
        // A line kind and its position, of a framework that exists and has rows of its own.
        const std::string line =
            deleted("ZEILENART",
                    "dlSuchId1 IN (SELECT ARa_Id FROM Auswertungsrahmen JOIN tProtokoll f"
                    " ON f.dlPrimaryKey1 = ARa_Id WHERE f.dcTable = 'AUSWERTUNGSRAHMEN')");
        EXPECT_GT(count(path,
                        "tProtokoll WHERE dcTable = 'AUSWERTUNGSPOSITION' AND dlEvent = 1"
                        " AND dlSuchId1 IN " +
                            line),
                  0)
            << seed;
    }
}

TEST_F(SampleReportFrameworks, HasInTheStandardFrameworkTheFormerFormulaOfAnOfficesFirstAssignment) {
    for (const std::uint64_t seed : {1U, 2U, 3U}) {
        const std::string path = write(std::to_string(seed) + ".db", {seed, {}, report_frameworks});
        const std::string formulas_of_standard =
            " FROM Formel_Position s JOIN AuswertungsPosition sp ON sp.Ap_Id = s.AP_ID"
            " JOIN Zeilenart sz ON sz.Za_Id = sp.Za_Id JOIN Auswertungsrahmen sr ON sr.ARa_Id = sz.ARa_Id"
            " WHERE sr.ARa_Typ = 0 AND s.KR_Id = p.dlSuchId1";
        const std::string first_of_office =
            "tProtokoll p JOIN Formel_Position f ON f.Fo_Id = p.dlPrimaryKey1"
            " JOIN AuswertungsPosition o ON o.Ap_Id = f.AP_ID JOIN Zeilenart z ON z.Za_Id = o.Za_Id"
            " JOIN Auswertungsrahmen r ON r.ARa_Id = z.ARa_Id WHERE p.dcTable = 'FORMEL_POSITION'"
            " AND p.dlEvent = 1 AND r.ARa_Typ = 1 AND NOT EXISTS (SELECT * FROM tProtokoll q"
            " WHERE q.dcTable = p.dcTable AND q.dlPrimaryKey1 = p.dlPrimaryKey1 AND q.ddDatum < p.ddDatum)"
            " AND (SELECT COUNT(*)" +
            formulas_of_standard +
            " AND sr.ARa_Art = r.ARa_Art AND sr.ARa_Kennzeichen = r.ARa_Kennzeichen"
            " AND sp.Ap_Bezeichnung = o.Ap_Bezeichnung) = 1";
        EXPECT_GT(count(path, first_of_office), 0) << seed;

        // The same where everything of the office is known from the log alone.
        const std::string value =
            "(SELECT substr(rest, 1, instr(rest, '<') - 1) FROM (SELECT substr(dmData,"
            " instr(dmData, '\"$\"><OldValue>') + length('\"$\"><OldValue>')) AS rest";
        const auto logged = [&](const std::string& name, const std::string& condition) {
            std::string text = value + " FROM tProtokoll d WHERE d.dlEvent = 2 AND " + condition + "))";
            for (auto at = text.find('$'); at != std::string::npos; at = text.find('$'))
                text.replace(at, 1, name);
            return text;
        };
        const std::string framework =
            "d.dcTable = 'AUSWERTUNGSRAHMEN' AND d.dlPrimaryKey1 = (SELECT z.dlSuchId1 FROM tProtokoll z"
            " JOIN tProtokoll o ON o.dlSuchId1 = z.dlPrimaryKey1 WHERE z.dcTable = 'ZEILENART'"
            " AND o.dcTable = 'AUSWERTUNGSPOSITION' AND o.dlPrimaryKey1 = p.dlSuchId2) AND d.dlSuchId3 = 1";
        EXPECT_GT(count(path,
                        "tProtokoll p WHERE p.dcTable = 'FORMEL_POSITION' AND p.dlEvent = 1"
                        " AND (SELECT COUNT(*)" +
                            formulas_of_standard + " AND sr.ARa_Art = " + logged("ARa_Art", framework) +
                            " AND sr.ARa_Kennzeichen = " + logged("ARa_Kennzeichen", framework) +
                            " AND sp.Ap_Bezeichnung = 'Umsatzerlöse') = 1"),
                  0)
            << seed;
    }
}

// The search for a formula writes names into its statement as they are.
TEST_F(SampleReportFrameworks, HasNoApostropheInAName) {
    const std::string path = write("a.db", {1, 20'000, report_frameworks});
    EXPECT_EQ(count(path, "AuswertungsPosition WHERE Ap_Bezeichnung LIKE '%''%'"), 0);
    EXPECT_EQ(count(path, "tProtokoll WHERE dmData LIKE '%''%'"), 0);
}

TEST_F(SampleReportFrameworks, NeverEndsAmidTheRowsOfOneChange) {
    for (const std::int64_t rows : {150, 151, 152, 153, 1000, 20'000}) {
        const std::string path = write(std::to_string(rows) + ".db", {1, rows, report_frameworks});
        EXPECT_EQ(
            count(
                path,
                "(SELECT ddDatum FROM tProtokoll WHERE dlEvent <> 1 GROUP BY ddDatum HAVING"
                " SUM(dcTable = 'AUSWERTUNGSART') <> SUM(dcTable = 'AUSWERTUNGSRAHMEN')"
                " OR (SUM(dcTable = 'AUSWERTUNGSPOSITION') > 0"
                " AND SUM(dcTable = 'AUSWERTUNGSPOSITION') > SUM(dcTable = 'AUSWERTUNGSZELLE'))"
                " OR (SUM(dcTable = 'AUSWERTUNGSZELLE') > 1 AND SUM(dcTable = 'AUSWERTUNGSPOSITION') = 0))"),
            0)
            << rows;
    }
}

TEST_F(SampleReportFrameworks, HasMoreFrameworksAndPositionsForALargerLog) {
    const std::string small = write("small.db", {1, 1000, report_frameworks});
    const std::string large = write("large.db", {1, 40'000, report_frameworks});
    for (const std::string table : {"Auswertungsrahmen", "AuswertungsPosition", "Formel_Position"})
        EXPECT_GT(count(large, table), 3 * count(small, table)) << table;
    EXPECT_GT(count(large, "AuswertungsPosition"), 9'000);
    EXPECT_GT(count(large, "tProtokoll WHERE dcTable = 'AUSWERTUNGSRAHMEN' AND dlEvent = 2"), 10);
}

}  // namespace
}  // namespace prot
