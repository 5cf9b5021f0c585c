#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "tests/unit/apps/protcsv/sample/sample_fixture.h"

/// What customers and suppliers of one sample database have to do with each other.
namespace prot {
namespace {

using testing::IsEmpty;

class SamplePartnersOfBothSides : public SampleFixture {
protected:
    /// All keys, each table's once.
    const std::string keys =
        "(SELECT Ps_Id AS id FROM Person_v4 UNION ALL SELECT Pl_Id FROM Personalie UNION ALL"
        " SELECT Akt_Id FROM Akten UNION ALL SELECT WJ_Id FROM Person_Wirtschaftsjahr UNION ALL"
        " SELECT KUN_ID FROM KUNDEN_V4 UNION ALL SELECT LIEF_ID FROM LIEFERANTEN_V4 UNION ALL"
        " SELECT ADR_ID FROM ADRESSE UNION ALL SELECT BK_ID FROM BANKKONTO UNION ALL"
        " SELECT BKZ_Id FROM STM_BKTOZUSATZ UNION ALL SELECT IDKLK FROM TKULIEFKOND UNION ALL"
        " SELECT IDVWZ FROM TVERWENDZWECK UNION ALL SELECT IDTH FROM TTEXTHAUPTGRUPPE UNION ALL"
        " SELECT MB_ID FROM MAHNBEDINGUNGEN_V4 UNION ALL SELECT idBank FROM TBANK)";
};

TEST_F(SamplePartnersOfBothSides, HaveNoKeyThatFitsIntoAnotherTable) {
    const std::string path = write("a.db", {1, 10000});
    EXPECT_EQ(number(path, "SELECT COUNT(DISTINCT id) FROM " + keys),
              number(path, "SELECT COUNT(*) FROM " + keys));
}

TEST_F(SamplePartnersOfBothSides, ShareTermsOfPaymentButNoPersonAddressOrAccount) {
    for (const std::optional<std::int32_t> section : {std::optional<std::int32_t>(), {8}, {9}}) {
        const std::string path = write(std::to_string(section.value_or(0)) + ".db", {1, {}, section});
        EXPECT_GT(number(path,
                         "SELECT COUNT(*) FROM TKULIEFKOND WHERE IDKLK IN (SELECT KLKD_ID FROM KUNDEN_V4)"
                         " AND IDKLK IN (SELECT KLKD_ID FROM LIEFERANTEN_V4)"),
                  0);
        EXPECT_THAT(column(path,
                           "SELECT Ps_Id_Kunde FROM KUNDEN_V4 JOIN LIEFERANTEN_V4"
                           " ON Ps_Id_Lieferant = Ps_Id_Kunde"),
                    IsEmpty());
        EXPECT_THAT(column(path, "SELECT ADR_ID FROM PERSON_ADRESSE GROUP BY ADR_ID HAVING COUNT(*) > 1"),
                    IsEmpty());
        EXPECT_THAT(column(path, "SELECT BK_ID FROM PERSON_BANKKONTO GROUP BY BK_ID HAVING COUNT(*) > 1"),
                    IsEmpty());
    }
}

TEST_F(SamplePartnersOfBothSides, ReferToNothingThatIsMissing) {
    // The deleted bank is one that the story means to be missing.
    const std::string path = write("a.db", {1, 5000});
    for (const std::string table : {"KUNDEN_V4", "LIEFERANTEN_V4"}) {
        const std::string person = table == "KUNDEN_V4" ? "Ps_Id_Kunde" : "Ps_Id_Lieferant";
        EXPECT_EQ(
            number(path, "SELECT COUNT(*) FROM " + table + " LEFT JOIN Personalie ON Ps_Id = " + person +
                             " LEFT JOIN TKULIEFKOND ON IDKLK = KLKD_ID WHERE Pl_Bezeichnung IS NULL"
                             " OR (IDKLK IS NULL AND KLKD_ID <> 0)"),
            0)
            << table;
    }
    EXPECT_EQ(number(path,
                     "SELECT COUNT(DISTINCT BA_ID) FROM BANKKONTO LEFT JOIN TBANK ON idBank = BA_ID"
                     " WHERE idBank IS NULL AND BA_ID <> 0"),
              2);
}

TEST_F(SamplePartnersOfBothSides, AreMoreForALargerLog) {
    for (const std::int32_t section : {8, 9}) {
        const std::string small = write("small" + std::to_string(section), {1, 1000, section});
        const std::string large = write("large" + std::to_string(section), {1, 40000, section});
        for (const std::string table :
             {"ADRESSE", "BANKKONTO", section == 9 ? "KUNDEN_V4" : "LIEFERANTEN_V4"})
            EXPECT_GT(number(large, "SELECT COUNT(*) FROM " + table),
                      5 * number(small, "SELECT COUNT(*) FROM " + table))
                << table;
    }
}

}  // namespace
}  // namespace prot
