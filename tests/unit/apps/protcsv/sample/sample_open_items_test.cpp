#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "apps/protcsv/sample/sample_clients.h"
#include "tests/unit/apps/protcsv/sample/sample_fixture.h"

namespace prot {
namespace {

constexpr std::int32_t open_items = 6;

// clang-format off
constexpr Feature features[] = {
    {"SELECT COUNT(*) FROM tProtokoll WHERE dlEvent = 0", "an item created"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dlEvent = 1", "an item changed"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dlEvent = 2", "an item deleted"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dcTable = 'Person_v4'", "a change that the section does not select"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dlPrimaryKey1 NOT IN (SELECT OP_ID FROM OFFENER_POSTEN) AND dlEvent < 2", "a change of an item deleted since"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData IS NULL", "a document that is missing"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData = ''", "a document that is empty"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData <> '' AND dmData NOT LIKE '%</Cols>'", "a document that does not load"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dlEvent = 1 AND dmData GLOB '<Cols><Col Name=\"OP_DATUM\"*' OR dmData GLOB '<Cols><Col Name=\"OP_AUSGLEICH_NR\"*'", "a change that yields no line"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData GLOB '*\"op_sperr_kz\"*'", "a column spelled in lower case"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData GLOB '*\"op_mitarbeiter\"*'", "a column that is never exported, in lower case"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData GLOB '*\"OP_ART\"><OldValue>R<*'", "a kind that is no number"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData GLOB '*\"OP_SPERR_KZ\"><OldValue>99999999999<*'", "a number beyond 32 bits"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData GLOB '*\"OP_SPERR_KZ\"><OldValue>gesperrt<*'", "a dunning block that is a word"},
    {"SELECT COUNT(*) FROM tProtokoll JOIN tProtokollMemo ON flProtokoll = idProtokoll WHERE tProtokoll.dmData LIKE '%<NewValue>\\_MEMO\\_<%' ESCAPE '\\'", "a memo value with its text"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData LIKE '%<NewValue>=%'", "a value that a spreadsheet would run"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData LIKE '%&#13;&#10;%'", "a value of several lines"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData LIKE '%\"; %</NewValue>%'", "a value with quotes and separator"},
    {"SELECT COUNT(*) FROM tProtokoll WHERE dmData GLOB '*\"OP_IMPORT_KZ\"*'", "a logged field without caption"},
    {"SELECT COUNT(*) FROM OFFENER_POSTEN WHERE OP_BELEG2 IS NULL", "an item without document number"},
    {"SELECT COUNT(*) >= 24 FROM Akten", "a few dozen clients"},
    {"SELECT COUNT(*) >= 2 FROM Mandant_Zeit WHERE MaZt_Kanzlei = -1", "offices"},
    {"SELECT COUNT(*) FROM Person_v4 a JOIN Person_v4 b USING (Ps_Nr) WHERE a.Ps_Id < b.Ps_Id", "a client and an office of one number"},
    {"SELECT COUNT(*) FROM Akten WHERE Akt_Papierkorb = -1", "a client in the waste basket"},
    {"SELECT COUNT(*) FROM Akten WHERE Ps_Id NOT IN (SELECT Ps_Id FROM Person_Wirtschaftsjahr)", "a client without fiscal years"},
    {"SELECT COUNT(*) FROM Mandant_Zeit GROUP BY Pl_Id HAVING COUNT(*) > 1", "a client with two entries"},
    {"SELECT COUNT(*) FROM Person_Wirtschaftsjahr WHERE dlWJTyp = 2 AND WJ_Bezeichnung <> ''", "a planned year with designation"},
    {"SELECT COUNT(*) FROM Person_Wirtschaftsjahr WHERE dlWJTyp = 2 AND WJ_Bezeichnung IS NULL", "a planned year without designation"},
    {"SELECT COUNT(*) FROM Person_Wirtschaftsjahr WHERE dlWJTyp = 4", "a year of the group"},
    {"SELECT COUNT(*) >= 3 FROM Person_v4 WHERE Ps_Nr BETWEEN 1000 AND 1009", "numbers that begin alike"},
    {"SELECT COUNT(*) >= 3 FROM Person_v4 WHERE Ps_KurzName LIKE 'Müller%' OR Ps_KurzName LIKE 'Mueller%'", "names that begin alike"},
    {"SELECT COUNT(*) FROM Person_v4 WHERE Ps_KurzName LIKE '%\"%;%'", "a name with quotes and separator"},
};
// clang-format on

class SampleOpenItems : public SampleFixture {};

TEST_F(SampleOpenItems, IsIndexedWhereItemsAndClientsAreSearched) {
    const std::string path = write("a.db", {1, {}, open_items});
    EXPECT_THAT(column(path,
                       "SELECT s.tbl_name || ': ' || group_concat(c.name) FROM sqlite_schema AS s,"
                       " pragma_index_info(s.name) AS c WHERE s.type = 'index' GROUP BY s.name"),
                testing::IsSupersetOf({"OFFENER_POSTEN: WJ_ID,OP_SKNR", "OFFENER_POSTEN: OP_SKNR",
                                       "Person_v4: Ps_Nr", "Personalie: Ps_Id", "Mandant_Zeit: Pl_Id",
                                       "Akten: Ps_Id", "Person_Wirtschaftsjahr: Ps_Id"}));
}

TEST_F(SampleOpenItems, ShowsEveryKindOfChangeAndClientWhateverTheSeed) {
    expect_whatever_the_seed(open_items, features);
}

TEST_F(SampleOpenItems, LogsEveryNumberOfDunningBlocksAndEveryKind) {
    const std::string path = write("a.db", {1, {}, open_items});
    const auto logged = [&](const std::string& name, int value) {
        return number(path, "SELECT COUNT(*) FROM tProtokoll WHERE dmData GLOB '*\"" + name +
                                "\"><OldValue>*</OldValue><NewValue>" + std::to_string(value) + "</*'");
    };
    for (int blocks = -1; blocks <= 11; ++blocks) EXPECT_GT(logged("OP_SPERR_KZ", blocks), 0) << blocks;
    for (int kind = 0; kind <= 3; ++kind) EXPECT_GT(logged("OP_ART", kind), 0) << kind;
}

TEST_F(SampleOpenItems, HasLinesForTheAccountsThatTheFormProposes) {
    for (const std::uint64_t seed : {1U, 2U, 3U}) {
        const std::string path = write(std::to_string(seed) + ".db", {seed, {}, open_items});
        EXPECT_GE(number(path,
                         "SELECT COUNT(*) FROM tProtokoll WHERE dlPrimaryKey1 IN (SELECT OP_ID FROM"
                         " OFFENER_POSTEN JOIN Person_Wirtschaftsjahr USING (WJ_ID) JOIN Person_v4"
                         " USING (Ps_Id) WHERE OP_SKNR BETWEEN 10000 AND 10001 AND Ps_Nr = 123)"),
                  3)
            << seed;
    }
}

TEST_F(SampleOpenItems, LeavesTheLiveItemsAsTheLogLeftThem) {
    const std::string path = write("a.db", {1, 5000, open_items});
    const std::string last =
        "SELECT COUNT(*) FROM OFFENER_POSTEN JOIN tProtokoll p ON p.dlPrimaryKey1 = OP_ID"
        " WHERE p.dcTable = 'OFFENER_POSTEN' AND p.dmData LIKE '%\"OP_DATUM\"%' AND p.ddDatum ="
        " (SELECT MAX(q.ddDatum) FROM tProtokoll q WHERE q.dcTable = 'OFFENER_POSTEN'"
        " AND q.dlPrimaryKey1 = OP_ID)";
    EXPECT_GT(number(path, last), 100);
    EXPECT_EQ(number(path, last + " AND OP_DATUM <> p.ddDatum"), 0);
    EXPECT_EQ(number(path,
                     "SELECT COUNT(*) FROM tProtokoll WHERE dcTable = 'OFFENER_POSTEN' AND dlEvent = 2"
                     " AND dlPrimaryKey1 IN (SELECT OP_ID FROM OFFENER_POSTEN)"),
              0);
    EXPECT_EQ(number(path,
                     "SELECT COUNT(*) FROM OFFENER_POSTEN WHERE WJ_ID NOT IN"
                     " (SELECT WJ_Id FROM Person_Wirtschaftsjahr WHERE dlWJTyp = 1)"),
              0);
}

TEST_F(SampleOpenItems, HasMoreClientsForALargerLogUpTo20000) {
    EXPECT_EQ(number(write("a.db", {1, 1000, open_items}), "SELECT COUNT(*) FROM Akten"), 145);
    for (const std::int64_t rows : {200'000, 30'000'000}) {
        sample::Random random(1, 1);
        EXPECT_EQ(sample::ClientBook(random, rows).clients().size(), 20'000U) << rows;
    }
}

}  // namespace
}  // namespace prot
