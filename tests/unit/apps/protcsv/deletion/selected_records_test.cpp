#include "apps/protcsv/deletion/selected_records.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/automation/error.h"
#include "tests/unit/platform/portable/sqlite/sqlite_fixture.h"

namespace prot {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::string_view condition = "dcUser = 'x' AND dcTable IN ('A', 'B')";

std::string with_condition(std::string_view head, std::string_view tail = "") {
    return std::string(head).append(condition).append(tail);
}

class SelectedRecordsTest : public SqliteFixture {
protected:
    SelectedRecordsTest() {
        write(
            "CREATE TABLE tProtokoll (idProtokoll INTEGER PRIMARY KEY, dcUser, dcTable);"
            "INSERT INTO tProtokoll VALUES (7, 'x', 'A'), (3, 'x', 'B'), (5, 'y', 'A'), (4, 'x', 'C');"
            "CREATE TABLE tProtokollMemo (idProtokollMemo INTEGER PRIMARY KEY, flProtokoll, dmData);"
            "INSERT INTO tProtokollMemo VALUES (1, 7, 'a'), (2, 7, 'b'), (3, 5, 'c');"
            "CREATE TABLE tAlt (idAlt INTEGER PRIMARY KEY, dcUser, dcTable);"
            "INSERT INTO tAlt VALUES (1, 'x', 'A')");
    }
};

TEST_F(SelectedRecordsTest, AreKnownByTheStatementThatCountsThem) {
    const std::string sql = with_condition("SELECT COUNT(*) FROM tProtokoll WHERE ");
    ASSERT_TRUE(SelectedRecords::is_counting(sql));
    const SelectedRecords records = SelectedRecords::counted_by(sql);
    EXPECT_EQ(records.table(), "tProtokoll");
    EXPECT_EQ(records.id_column(), "idProtokoll");
    const auto database = open();
    EXPECT_THAT(records.ids(*database), ElementsAre(3, 7)) << "in ascending order";
    EXPECT_EQ(records.memos(*database), 2);
}

TEST_F(SelectedRecordsTest, AreKnownByTheStatementThatDeletesTheirMemoTexts) {
    const std::string sql = with_condition(
        "DELETE tProtokollMemo WHERE flProtokoll in (SELECT idProtokoll FROM tProtokoll WHERE ", ")");
    ASSERT_TRUE(SelectedRecords::is_deleting(sql));
    const SelectedRecords records = SelectedRecords::deleted_by(sql);
    EXPECT_THAT(records.ids(*open()), ElementsAre(3, 7));
    EXPECT_FALSE(records.are_deleted_by(sql));
    EXPECT_TRUE(records.are_deleted_by(with_condition("DELETE tProtokoll WHERE ")));
    EXPECT_FALSE(records.are_deleted_by(with_condition("DELETE tProtokoll WHERE ", " OR 1 = 1")));
    EXPECT_FALSE(records.are_deleted_by(with_condition("DELETE tAlt WHERE ")));
}

TEST_F(SelectedRecordsTest, OfAnotherTableHaveNoMemoTexts) {
    const std::string sql = with_condition("DELETE tAlt WHERE ");
    const SelectedRecords records = SelectedRecords::deleted_by(sql);
    EXPECT_TRUE(records.are_deleted_by(sql));
    EXPECT_FALSE(records.have_memos());
    EXPECT_EQ(records.memos(*open()), 0);
    EXPECT_EQ(records.id_column(), "idAlt");
    EXPECT_THAT(records.ids(*open()), ElementsAre(1));
}

TEST_F(SelectedRecordsTest, HaveMemoTextsWhateverTheLetterCaseOfTheirTable) {
    EXPECT_TRUE(SelectedRecords::counted_by("SELECT COUNT(*) FROM TPROTOKOLL WHERE 1 = 1").have_memos());
    EXPECT_FALSE(SelectedRecords::counted_by("SELECT COUNT(*) FROM tProtokollAlt WHERE 1 = 1").have_memos());
}

TEST_F(SelectedRecordsTest, MayBeNone) {
    const auto records = SelectedRecords::deleted_by("DELETE tProtokoll WHERE dcUser = 'niemand'");
    EXPECT_THAT(records.ids(*open()), IsEmpty());
    EXPECT_EQ(records.memos(*open()), 0);
}

TEST_F(SelectedRecordsTest, AreNotKnownByOtherStatements) {
    for (const char* sql :
         {"SELECT TOP 1 COUNT(*) FROM T WHERE a", "DROP TABLE #T", "SELECT * FROM DELETE"}) {
        EXPECT_FALSE(SelectedRecords::is_counting(sql)) << sql;
        EXPECT_FALSE(SelectedRecords::is_deleting(sql)) << sql;
    }
    EXPECT_THROW(SelectedRecords::counted_by("SELECT COUNT(*) FROM T"), AutomationError);
    EXPECT_THROW(SelectedRecords::deleted_by("DELETE T"), AutomationError);
    EXPECT_THROW(
        SelectedRecords::deleted_by("DELETE TMemo WHERE flProtokoll in (SELECT idProtokoll FROM T WHERE a"),
        AutomationError);
}

TEST_F(SelectedRecordsTest, WithoutANumberAreRefused) {
    write(
        "INSERT INTO tProtokoll (idProtokoll, dcUser) VALUES (9, 'z'); CREATE TABLE tText (idText, a);"
        "INSERT INTO tText VALUES ('neun', 1)");
    const auto records = SelectedRecords::deleted_by("DELETE tText WHERE a = 1");
    EXPECT_THROW(records.ids(*open()), AutomationError);
}

}  // namespace
}  // namespace prot
