#include "core/field_rules.h"

#include <gtest/gtest.h>

#include "tests/unit/support/fakes.h"
#include "tests/unit/support/log_record.h"
#include "tests/unit/support/statements.h"

namespace prot {
namespace {

using test::LogRecord;

constexpr CaptionRule rules[] = {
    {{"ADRESSE", "ADR_ID"}, Caption::none()},
    {{"ADRESSE", "ADR_TYP"}, Caption::text("Art der Anschrift")},
    {{"ADRESSE", "ORT"}, Caption::none(), Events::created},
    {{.table = "LINK"}, Caption::none()},
    {{.field = "GEHEIM"}, Caption::none()},
    {{"ADRESSE", "ADR_TYP"}, Caption::none()},
};

class Captions : public testing::Test {
protected:
    test::FakeHost host;
    test::FakeDatabase oDBU;
    prot::Run run{host.environment, oDBU};

    std::string caption(const char* table, const char* field, std::int64_t event = 1,
                        NameMatch match = NameMatch::in_capitals) {
        const LogRecord record({.table = table, .event = event});
        return std::string(caption_by(rules, match, record.field(field), run));
    }
};

TEST_F(Captions, FollowTheFirstRuleThatFits) {
    oDBU.answers[test::caption_statement("ADRESSE", "PLZ")] = {{std::string("Postleitzahl")}};
    oDBU.answers[test::caption_statement("ADRESSE", "ORT")] = {{std::string("Ort")}};
    oDBU.answers[test::caption_statement("BANK", "ADR_ID")] = {{std::string("Nummer")}};
    const struct {
        const char *table, *field;
        std::int64_t event;
        const char *caption, *why;
    } cases[] = {
        {"ADRESSE", "ADR_ID", 1, "", "named by table and field"},
        {"BANK", "ADR_ID", 1, "Nummer", "another table"},
        {"ADRESSE", "ADR_TYP", 1, "Art der Anschrift", "words of the rule, before the rule that hides it"},
        {"adresse", "adr_typ", 1, "Art der Anschrift", "compared in capitals"},
        {"ADRESSE", "PLZ", 1, "Postleitzahl", "no rule: the general caption"},
        {"LINK", "ORT", 1, "", "any field of the table"},
        {"BANK", "GEHEIM", 1, "", "the field of any table"},
        {"ADRESSE", "ORT", 0, "", "a rule about creations only"},
        {"ADRESSE", "ORT", 1, "Ort", "which is none about changes"},
        {"ADRESSE", "ORT", 2, "Ort", "nor about deletions"},
    };
    for (const auto& row : cases) EXPECT_EQ(caption(row.table, row.field, row.event), row.caption) << row.why;
}

TEST_F(Captions, CompareLetterByLetterWhereCaseCounts) {
    oDBU.answers[test::caption_statement("ADRESSE", "adr_id")] = {{std::string("Nummer")}};
    oDBU.answers[test::caption_statement("adresse", "ADR_ID")] = {{std::string("Zahl")}};
    EXPECT_EQ(caption("ADRESSE", "adr_id", 1, NameMatch::exact), "Nummer");
    EXPECT_EQ(caption("adresse", "ADR_ID", 1, NameMatch::exact), "Zahl");
    EXPECT_EQ(caption("ADRESSE", "ADR_ID", 1, NameMatch::exact), "");
}

TEST_F(Captions, ThatShouldBeThereAndAreNotAreToldToTheNotices) {
    EXPECT_EQ(caption("ADRESSE", "FAX"), "");
    oDBU.answers[test::caption_statement("ADRESSE", "TELEX")] = {{std::string()}};
    EXPECT_EQ(caption("ADRESSE", "TELEX"), "");
    EXPECT_EQ(caption("ADRESSE", "ADR_ID"), "");
    EXPECT_EQ(host.fields_without_caption, (std::vector<std::string>{"ADRESSE.FAX", "ADRESSE.TELEX"}))
        << "what a rule hides is not missed";
}

TEST_F(Captions, EachEventHasItsOwnBit) {
    constexpr CaptionRule by_event[] = {
        {{.field = "A"}, Caption::text("angelegt"), Events::created},
        {{.field = "A"}, Caption::text("geändert"), Events::changed},
        {{.field = "A"}, Caption::text("gelöscht"), Events::deleted},
        {{.field = "A"}, Caption::text("sonst")},
    };
    const char* const expected[] = {"sonst", "angelegt", "geändert", "gelöscht", "sonst"};
    for (std::int64_t event = -1; event <= 3; ++event) {
        const LogRecord record({.event = event});
        EXPECT_EQ(caption_by(by_event, NameMatch::exact, record.field("A"), run), expected[event + 1])
            << event;
    }
}

TEST_F(Captions, OfAFieldOfTheRunAreFoundOnceForEachEvent) {
    oDBU.answers[test::caption_statement("ADRESSE", "ORT")] = {{std::string("Ort")}};
    const auto caption = [&](const char* name, std::size_t number, std::int64_t event) {
        const LogRecord record({.table = "ADRESSE", .event = event});
        ChangedField field = record.field(name);
        field.number = number;
        return std::string(caption_by(rules, NameMatch::in_capitals, field, run));
    };
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(caption("ADR_TYP", 0, 1), "Art der Anschrift");
        EXPECT_EQ(caption("ORT", 1, 0), "");
        EXPECT_EQ(caption("ORT", 1, 1), "Ort") << "another event";
        EXPECT_EQ(caption("ADR_ID", 2, 1), "");
    }
    EXPECT_EQ(caption("GEHEIM", 1, 1), "Ort") << "its number says which field it is";
    EXPECT_TRUE(host.fields_without_caption.empty());
    EXPECT_EQ(caption("FAX", 3, 1), "");
    EXPECT_EQ(caption("FAX", 3, 1), "");
    EXPECT_EQ(host.fields_without_caption.size(), 2U) << "each line that is missing counts";
    EXPECT_EQ(oDBU.statements.size(), 2U);
}

TEST_F(Captions, OfALookupThatFailedAreAskedAgain) {
    const LogRecord record({.table = "ADRESSE"});
    ChangedField field = record.field("ORT");
    field.number = 0;
    oDBU.failures.emplace(test::caption_statement("ADRESSE", "ORT"), test::server_error("gesperrt"));
    EXPECT_EQ(caption_by(rules, NameMatch::exact, field, run), "");
    oDBU.failures.clear();
    oDBU.answers[test::caption_statement("ADRESSE", "ORT")] = {{std::string("Ort")}};
    EXPECT_EQ(caption_by(rules, NameMatch::exact, field, run), "Ort");
}

TEST_F(Captions, ANameByIdIsTheOneOfTheMoment) {
    constexpr IdRule rule = {{.field = "BANK_ID"}, "ohne Bank", "TBANK", "dcBLZ", "idBank"};
    EXPECT_EQ(name_by(rule, 0, Date{46000}, run), "ohne Bank");
    EXPECT_TRUE(oDBU.statements.empty());
    oDBU.answers["SELECT [dcBLZ] FROM [TBANK] WHERE [idBank] = 7"] = {{std::string("50050201")}};
    EXPECT_EQ(name_by(rule, 7, Date{46000}, run), "50050201");
    EXPECT_EQ(oDBU.statements.at(0),
              "value: SELECT TOP 1 dmData FROM tProtokoll WHERE dcTable = 'TBANK' AND dlPrimaryKey1 = 7 AND "
              "ddDatum "
              ">= <08.12.2025 23:59:59> AND dmData LIKE '%Name=\"dcBLZ\"><OldValue>%' ORDER BY ddDatum ASC");
}

TEST_F(Captions, ANameByIdMayHaveAnotherColumnInFront) {
    constexpr IdRule rule = {{.field = "BA_ID"}, "ohne Bank", "TBANK", "dcBezeichnung", "idBank", "dcBLZ"};
    oDBU.answers["SELECT [dcBezeichnung] FROM [TBANK] WHERE [idBank] = 7"] = {{std::string("Sparkasse")}};
    oDBU.answers["SELECT [dcBLZ] FROM [TBANK] WHERE [idBank] = 7"] = {{std::string("50050201")}};
    EXPECT_EQ(name_by(rule, 7, Date{46000}, run), "50050201 Sparkasse");
    oDBU.answers["SELECT [dcBezeichnung] FROM [TBANK] WHERE [idBank] = 8"] = {{std::string("Hausbank")}};
    oDBU.answers["SELECT [dcBLZ] FROM [TBANK] WHERE [idBank] = 8"] = {{Value()}};
    EXPECT_EQ(name_by(rule, 8, Date{46000}, run), "Hausbank") << "no blank before it";
    EXPECT_EQ(name_by(rule, 0, Date{46000}, run), "ohne Bank");
}

}  // namespace
}  // namespace prot
