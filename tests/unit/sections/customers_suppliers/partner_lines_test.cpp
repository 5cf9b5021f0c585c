#include "sections/customers_suppliers/partner_lines.h"

#include <gtest/gtest.h>

#include "tests/unit/support/fakes.h"
#include "tests/unit/support/log_record.h"
#include "tests/unit/support/statements.h"

namespace prot {
namespace {

class PartnerCaptions : public testing::Test {
protected:
    test::FakeHost host;
    test::FakeDatabase oDBU;
    prot::Run run{host.environment, oDBU};

    /// The caption of a field that has a general one, too.
    std::string caption(const std::string& table, const std::string& field) {
        oDBU.answers[test::caption_statement(table, field)] = {{std::string("allgemein")}};
        const test::LogRecord record({.table = table});
        return std::string(customers_suppliers::msDBGetFieldDescription(record.field(field), run));
    }
};

TEST_F(PartnerCaptions, DependOnTheTable) {
    const char* const general = "allgemein";
    const char* const none = "";
    const struct {
        const char *table, *field, *caption;
    } rows[] = {
        {"PERSON_V4", "PS_KURZNAME", general},
        {"PERSON_V4", "Ps_KurzName", general},
        {"Person_v4", "PS_USTIDFK", general},
        {"PERSON_V4", "PS_ZUHAENDEN", general},
        {"PERSON_V4", "PS_NR", none},
        {"PERSON_V4", "PL_BEZEICHNUNG", none},
        {"PERSONALIE", "Pl_Bezeichnung", general},
        {"PERSONALIE", "PL_ID", none},
        {"PERSONALIE", "PS_KURZNAME", none},
        {"ADRESSE", "ADR_ORT", general},
        {"ADRESSE", "ADR_TYP", general},
        {"ADRESSE", "ADR_ID", none},
        {"ADRESSE", "adr_id", none},
        {"ADRESSE", "LA_ID", none},
        {"PERSON_ADRESSE", "ADR_TYP", general},
        {"PERSON_ADRESSE", "ADR_ID", none},
        {"PERSON_ADRESSE", "PS_ID", none},
        {"BANKKONTO", "BK_IBAN", general},
        {"BANKKONTO", "BA_ID", general},
        {"BANKKONTO", "ADR_ID", general},
        {"BANKKONTO", "BK_ID", none},
        {"PERSON_BANKKONTO", "BK_ID", none},
        {"PERSON_BANKKONTO", "BK_IBAN", none},
        {"TKUNDVWZ", "FLVWZ", "Verwendungszweck"},
        {"TKUNDVWZ", "FLKD", none},
        {"TLIEFVWZ", "flVwz", "Verwendungszweck"},
        {"TLIEFVWZ", "FLLI", none},
        {"KUNDEN_V4", "KUN_NR", general},
        {"KUNDEN_V4", "KLKD_ID", general},
        {"KUNDEN_V4", "PS_ID_SAMMEL_KUNDE", general},
        {"KUNDEN_V4", "LIEF_ID", general},
        {"KUNDEN_V4", "KUN_ID", none},
        {"KUNDEN_V4", "Ps_Id_Kunde", none},
        {"KUNDEN_V4", "KUN_DATUM", none},
        {"KUNDEN_V4", "KUN_MITARBEITER", none},
        {"KUNDEN_V4", "PS_ID_MANDANT", none},
        {"LIEFERANTEN_V4", "LIEF_NR", general},
        {"LIEFERANTEN_V4", "KUN_ID", general},
        {"LIEFERANTEN_V4", "LIEF_ID", none},
        {"LIEFERANTEN_V4", "Ps_Id_Lieferant", none},
        {"LIEFERANTEN_V4", "LIEF_DATUM", none},
        {"LIEFERANTEN_V4", "LIEF_MITARBEITER", none},
        {"LIEFERANTEN_V4", "LIEF_MEMO", none},
        {"LIEFERANTEN_V4", "PS_ID_MANDANT", none},
        {"TKULIEFKOND", "DITAGEZAHLUNGSZIEL", "Anzahl Tage für die Berechnung des Fälligkeitsdatum"},
        {"TKULIEFKOND", "dcBezeichnung", "Bezeichnung der Zahlungskondition"},
        {"TKULIEFKOND", "DISKONTOSATZ1", "Prozentsatz für Skontoabzug"},
        {"TKULIEFKOND", "DISKONTOSATZ2", "Prozentsatz für Skontoabzug"},
        {"TKULIEFKOND", "DISKONTOTAGE1", "Anzahl Tage für Skontoabzug"},
        {"TKULIEFKOND", "DDDATUM", none},
        {"TKULIEFKOND", "FLMANID", none},
        {"TKULIEFKOND", "FLMITID", none},
        {"TKULIEFKOND", "DITYP", none},
        {"STM_BKTOZUSATZ", "BKZ_ID", general},
        {"TBANK", "dcBLZ", general},
    };
    for (const auto& row : rows)
        EXPECT_EQ(caption(row.table, row.field), row.caption) << row.table << "." << row.field;
}

TEST_F(PartnerCaptions, OfMemosAndOfTheSecondDiscountDaysAreNone) {
    EXPECT_EQ(caption("KUNDEN_V4", "KUN_MEMO"), "");
    EXPECT_EQ(caption("TKULIEFKOND", "DISKONTOTAGE2"), "");
}

TEST_F(PartnerCaptions, ThatTheDatabaseDoesNotKnowAreNone) {
    const test::LogRecord record({.table = "ADRESSE"});
    EXPECT_EQ(customers_suppliers::msDBGetFieldDescription(record.field("ADR_NEU"), run), "");
    EXPECT_EQ(host.fields_without_caption, std::vector<std::string>{"ADRESSE.ADR_NEU"});
}

}  // namespace
}  // namespace prot
