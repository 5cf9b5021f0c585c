#include "apps/protcsv/sample/sample_database.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "apps/protcsv/sample/sample_sections.h"
#include "platform/automation/error.h"
#include "tests/unit/apps/protcsv/sample/sample_fixture.h"

namespace prot {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Not;

class SampleDatabase : public SampleFixture {
protected:
    /// Everything that the file holds: its statements and each row of each table as text.
    std::vector<std::string> content(const std::string& path) {
        std::vector<std::string> all = column(path, "SELECT sql FROM sqlite_schema ORDER BY name");
        for (const std::string& table : column(path, "SELECT name FROM sqlite_schema WHERE type = 'table'")) {
            const auto parts =
                column(path, "SELECT 'quote(' || name || ')' FROM pragma_table_info('" + table + "')");
            std::string row;
            for (const std::string& part : parts) row += (row.empty() ? "" : " || ',' || ") + part;
            for (std::string& text : column(path, "SELECT " + row + " FROM " + table))
                all.push_back(std::move(text));
        }
        return all;
    }
};

TEST_F(SampleDatabase, HasTheSameContentForTheSameSeed) {
    EXPECT_EQ(content(write("a.db", {})), content(write("b.db", {})));
    EXPECT_EQ(content(write("c.db", {7, 3000})), content(write("d.db", {7, 3000})));
}

TEST_F(SampleDatabase, HasAnotherContentForAnotherSeed) {
    EXPECT_NE(content(write("a.db", {1, {}})), content(write("b.db", {2, {}})));
}

TEST_F(SampleDatabase, SpellsTablesAndColumnsAsTheLogDoes) {
    const std::string path = write("a.db", {});
    EXPECT_THAT(columns_of(path, "tSysQuvoLogSections"), ElementsAre("IDSysQuvoLogSections", "dcLogTable"));
    EXPECT_THAT(
        columns_of(path, "tProtokoll"),
        ElementsAre("idProtokoll", "dcTable", "dcWorkstation", "dcUser", "ddDatum", "dlEvent", "dmData",
                    "dcSystemUser", "dcApplication", "dlPrimaryKey1", "dlPrimaryKey2", "dlSuchId1",
                    "dlSuchId2", "dlSuchId3", "dlSuchId4", "flSuchId1", "flSuchId2", "flSuchId3"));
    EXPECT_THAT(columns_of(path, "tProtokollMemo"), IsSupersetOf({"flProtokoll", "dmData"}));
    EXPECT_THAT(columns_of(path, "tSysQuvoTables"), ElementsAre("IDSysQuvoTables", "dcTableName"));
    EXPECT_THAT(columns_of(path, "tSysQuvoColumns"),
                IsSupersetOf({"flTable", "dcColumnName", "dmDescription"}));
}

// Persons of customers and suppliers, and all that belongs to report frameworks, are logged in capitals.
TEST_F(SampleDatabase, HasEachLoggedTableSpelledAsTheLogSpellsIt) {
    const std::string path = write("a.db", {});
    EXPECT_THAT(column(path,
                       "SELECT name FROM sqlite_schema WHERE type = 'table'"
                       " UNION SELECT upper(name) FROM sqlite_schema WHERE name LIKE 'Person%'"
                       " OR name LIKE 'Auswertung%'"
                       " OR name IN ('Zeilenart', 'Formel_Position', 'Spaltenformate')"),
                IsSupersetOf(column(path, "SELECT DISTINCT dcTable COLLATE BINARY FROM tProtokoll")));
}

TEST_F(SampleDatabase, GivesEachColumnOneCaptionWhereSectionsShareATable) {
    const std::string path = write("a.db", {});
    EXPECT_EQ(number(path, "SELECT COUNT(*) FROM tSysQuvoTables WHERE dcTableName = 'PERSON_V4'"), 1);
    EXPECT_THAT(column(path,
                       "SELECT dmDescription FROM tSysQuvoColumns JOIN tSysQuvoTables"
                       " ON flTable = IDSysQuvoTables WHERE dcTableName = 'PERSON_V4'"
                       " AND dcColumnName IN ('Ps_KurzName', 'PS_ZUHAENDEN') ORDER BY 1"),
                ElementsAre("Kurzname", "Zu Händen"));
}

TEST_F(SampleDatabase, DeclaresTextWithoutLetterCaseAndDatesAsDates) {
    const std::string path = write("a.db", {});
    const std::string columns =
        " FROM sqlite_schema AS s, pragma_table_info(s.name) AS c WHERE s.type = 'table'"
        " AND s.name NOT LIKE 'sqlite%'";
    EXPECT_THAT(column(path, "SELECT DISTINCT c.type" + columns + " AND c.name LIKE 'dd%'"),
                ElementsAre("DATETIME"));
    EXPECT_THAT(
        column(path, "SELECT DISTINCT c.type" + columns + " AND (c.name LIKE 'dc%' OR c.name LIKE 'dm%')"),
        ElementsAre("TEXT"));
    EXPECT_EQ(number(path, "SELECT COUNT(*) FROM tProtokoll WHERE dcTable = lower(dcTable)"),
              number(path, "SELECT COUNT(*) FROM tProtokoll"));
    EXPECT_EQ(
        number(path,
               "SELECT COUNT(*) FROM tProtokoll WHERE ddDatum <> strftime('%Y-%m-%d %H:%M:%S', ddDatum)"),
        0);
}

TEST_F(SampleDatabase, KeepsEverySectionInTheSameLogTable) {
    const std::string path = write("a.db", {});
    const auto numbers = column(path, "SELECT IDSysQuvoLogSections FROM tSysQuvoLogSections");
    for (const sample::SectionKind& kind : sample::section_kinds())
        EXPECT_THAT(numbers, Contains(std::to_string(kind.number)));
    EXPECT_THAT(column(path, "SELECT DISTINCT dcLogTable FROM tSysQuvoLogSections"),
                ElementsAre("tProtokoll"));
}

TEST_F(SampleDatabase, IsIndexedWhereTheLogIsSearched) {
    const std::string path = write("a.db", {});
    EXPECT_THAT(column(path,
                       "SELECT group_concat(c.name) FROM sqlite_schema AS s, pragma_index_info(s.name) AS c"
                       " WHERE s.type = 'index' AND s.tbl_name LIKE 'tProtokoll%' GROUP BY s.name"),
                IsSupersetOf({"dcTable,dlSuchId1,ddDatum", "dcTable,dlSuchId2,ddDatum",
                              "dcTable,dlPrimaryKey1,ddDatum", "ddDatum", "flProtokoll"}));
}

// clang-format off
constexpr Feature features[] = {
    {"SELECT COUNT(*) FROM tProtokoll WHERE dcUser LIKE '%ü%' AND dcWorkstation LIKE 'KANZLEI%'", "a user with umlaut"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dcUser LIKE '%''%'", "a user with apostrophe"},
    {"SELECT COUNT(DISTINCT dcSystemUser COLLATE BINARY) >= 4 FROM tProtokoll WHERE dcUser LIKE '\\_UNBEKANNT\\_%' ESCAPE '\\'", "several database logins without application login"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dcUser LIKE '\\_UNBEKANNT\\_%' ESCAPE '\\' AND dcSystemUser = 'QuvoSQLDBServer' AND dcSystemUser <> 'QuvoSQLDBServer' COLLATE BINARY", "the suite's own login in another letter case"},
    {"SELECT COUNT(DISTINCT dcApplication) >= 4 FROM tProtokoll", "several applications"},
    {"SELECT COUNT(DISTINCT dcWorkstation) >= 6 FROM tProtokoll", "several workstations"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData IS NULL", "a document that is missing"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData = ''", "a document that is empty"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData <> '' AND dmData NOT LIKE '%</Cols>'", "a document that does not load"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData LIKE '%<NewValue>=%'", "a value that a spreadsheet would run"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData LIKE '%<NewValue>- %'", "a text that begins with a minus"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData GLOB '*<NewValue>-[0-9]*,[0-9]*'", "a negative number"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData LIKE '%<OldValue>NULL</OldValue>%'", "a value that was not set"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData LIKE '%\"; %</NewValue>%'", "a value with quotes and separator"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData LIKE '%&lt;%' AND dmData LIKE '%&amp;%'", "a value with markup characters"},
    {"SELECT COUNT(*) FROM tProtokoll JOIN tProtokollMemo ON flProtokoll = idProtokoll WHERE tProtokoll.dmData LIKE '%<NewValue>\\_MEMO\\_<%' ESCAPE '\\'", "a memo value with its text"},
    {"SELECT COUNT(*) FROM tProtokoll a JOIN tProtokoll b ON b.idProtokoll > a.idProtokoll AND b.ddDatum < a.ddDatum", "rows whose ids do not follow their moments"},
    {"SELECT COUNT(*) FROM tSysQuvoColumns WHERE dmDescription LIKE '%ä%'", "a caption with umlaut"},
};
// clang-format on

TEST_F(SampleDatabase, ShowsEveryKindOfChangeAuthorAndValueWhateverTheSeed) {
    expect_whatever_the_seed({}, features);
}

TEST_F(SampleDatabase, HasOfEachSectionALogThatAPersonCanReadThrough) {
    for (const sample::SectionKind& kind : sample::section_kinds()) {
        const std::string name = std::to_string(kind.number) + ".db";
        const int rows = number(write(name, {1, {}, kind.number}), "SELECT COUNT(*) FROM tProtokoll");
        EXPECT_GE(rows, 60) << kind.number;
        EXPECT_LE(rows, 150) << kind.number;
    }
}

TEST_F(SampleDatabase, KeepsASectionsRowsWhateverOthersLog) {
    const std::string all = write("all.db", {});
    for (const sample::SectionKind& kind : sample::section_kinds()) {
        const std::string alone = write(std::to_string(kind.number) + ".db", {1, {}, kind.number});
        const std::string rows =
            "SELECT dcTable || ddDatum || dlPrimaryKey1 || quote(dmData) FROM tProtokoll";
        const auto of_all = column(all, rows);
        const auto own = column(alone, rows);
        EXPECT_EQ(own.size(), static_cast<std::size_t>(kind.usual_rows));
        EXPECT_THAT(of_all, IsSupersetOf(own)) << kind.number;
    }
}

TEST_F(SampleDatabase, HasTheMasterDataOfSectionsThatLogNothing) {
    const std::string rates_only = write("a.db", {1, 500, 15});
    EXPECT_EQ(number(rates_only, "SELECT COUNT(*) FROM tProtokoll WHERE dcTable = 'OFFENER_POSTEN'"), 0);
    EXPECT_EQ(number(rates_only, "SELECT COUNT(*) FROM tProtokoll"), 500);
    EXPECT_GT(number(rates_only, "SELECT COUNT(*) FROM OFFENER_POSTEN"), 50);
}

TEST_F(SampleDatabase, GivesEachSectionAChanceOfItsOwn) {
    std::set<std::uint64_t> streams;
    for (const sample::SectionKind& kind : sample::section_kinds()) {
        EXPECT_TRUE(streams.insert(kind.stream).second) << kind.number;
        EXPECT_LT(kind.stream, 1000U) << kind.number;
    }
}

TEST_F(SampleDatabase, NeverLogsTwoChangesOfOneRecordInOneSecond) {
    for (const sample::SectionKind& kind : sample::section_kinds()) {
        const std::string path = write(std::to_string(kind.number) + ".db", {1, 10000, kind.number});
        EXPECT_EQ(number(path,
                         "SELECT COUNT(*) FROM (SELECT DISTINCT ddDatum, dcTable, dlPrimaryKey1,"
                         " dlPrimaryKey2 FROM tProtokoll)"),
                  10000)
            << kind.number;
    }
}

TEST_F(SampleDatabase, LogsThreeYearsAndMostlyInOfficeHours) {
    const std::string path = write("a.db", {1, 20000});
    EXPECT_EQ(
        number(path, "SELECT MIN(ddDatum) >= '2023-11-06' AND MAX(ddDatum) < '2026-11-02' FROM tProtokoll"),
        1);
    EXPECT_LT(
        number(path,
               "SELECT COUNT(*) FROM tProtokoll WHERE time(ddDatum) < '07:30' OR time(ddDatum) > '18:00'"),
        2000);
}

TEST_F(SampleDatabase, LogsOldAndNewValuesAsTheEventDemands) {
    const std::string path = write("a.db", {1, 5000});
    const auto wrong = [&](const std::string& event, const std::string& pattern) {
        return number(path, "SELECT COUNT(*) FROM tProtokoll WHERE dlEvent = " + event +
                                " AND dmData LIKE '%" + pattern + "%' AND dmData LIKE '%</Cols>'");
    };
    EXPECT_EQ(wrong("0", "<OldValue>_%</OldValue><NewValue></NewValue>"), 0);
    EXPECT_EQ(wrong("1", "<OldValue></OldValue>"), 0);
    EXPECT_EQ(wrong("1", "<NewValue></NewValue>"), 0);
}

TEST_F(SampleDatabase, BeginsTheDocumentOfACreationOrDeletionWithTheKey) {
    const std::string path = write("a.db", {1, 5000});
    const auto wrong = [&](const std::string& event, const std::string& values) {
        return column(path,
                      "SELECT dcTable || ': ' || dmData FROM tProtokoll WHERE dlEvent = " + event +
                          " AND dmData LIKE '%</Cols>' AND dmData NOT LIKE '<Cols><Col Name=\"' ||"
                          " COALESCE((SELECT name FROM pragma_table_info(dcTable) WHERE pk = 1), '?') || '" +
                          values + "%'");
    };
    EXPECT_THAT(wrong("0", "\"><OldValue></OldValue><NewValue>_"), IsEmpty());
    EXPECT_THAT(wrong("2", "\"><OldValue>_%</OldValue><NewValue></NewValue>"), IsEmpty());
}

TEST_F(SampleDatabase, WritesEveryLoadableDocumentInTheLogsShape) {
    const std::string path = write("a.db", {1, 3000});
    const auto documents = column(path, "SELECT dmData FROM tProtokoll WHERE dmData LIKE '%</Cols>'");
    const std::regex column_of_a_document(
        "<Col Name=\"[A-Za-z_0-9]+\"><OldValue>[^<>]*</OldValue><NewValue>[^<>]*");
    // All but a missing, an empty and a broken one in each section.
    EXPECT_EQ(documents.size(), 3000U - 3U * sample::section_kinds().size());
    for (std::string document : documents) {
        // What is left when every column is taken out is the frame alone, when all columns have the one
        // shape.
        for (const std::string part : {"<Cols>", "</Cols>"}) document.erase(document.find(part), part.size());
        while (!document.empty()) {
            const auto end = document.find("</NewValue></Col>");
            ASSERT_NE(end, std::string::npos) << document;
            const std::string one = document.substr(0, end);
            document.erase(0, end + std::string("</NewValue></Col>").size());
            ASSERT_TRUE(std::regex_match(one, column_of_a_document)) << one;
            ASSERT_THAT(one, Not(HasSubstr("& ")));
        }
    }
}

TEST_F(SampleDatabase, HasExactlyTheRowsThatAreAskedFor) {
    for (const int rows : {0, 1, 2, 3, 37, 74, 1000, 12345}) {
        const std::string path = write(std::to_string(rows) + ".db", {1, rows});
        EXPECT_EQ(number(path, "SELECT COUNT(*) FROM tProtokoll"), rows);
        for (const std::string& table : column(path, "SELECT dcTableName FROM tSysQuvoTables"))
            EXPECT_GT(number(path, "SELECT COUNT(*) FROM " + table), 0) << table << ", " << rows;
    }
}

TEST_F(SampleDatabase, TellsWhyAFileCannotBeWrittenAndWhere) {
    try {
        write("no such folder/a.db", {});
        FAIL() << "no error";
    } catch (const AutomationError& error) {
        EXPECT_THAT(error.description(),
                    HasSubstr("a.db“ kann nicht geschrieben werden: die Datei kann nicht"));
    }
}

}  // namespace
}  // namespace prot
