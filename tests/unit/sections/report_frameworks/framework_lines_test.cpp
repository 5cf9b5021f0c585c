#include "sections/report_frameworks/framework_lines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "platform/automation/letter_case.h"
#include "tests/unit/support/database_answers.h"
#include "tests/unit/support/fakes.h"
#include "tests/unit/support/log_record.h"
#include "tests/unit/support/statements.h"

namespace prot::report_frameworks {
namespace {

const Date moment = to_date(CivilTime{2026, 3, 5, 14, 7, 9});

class Lines : public testing::Test {
protected:
    test::FakeHost host;
    test::FakeDatabase oDBU;
    prot::Run run{host.environment, oDBU};

    /// The caption of a field that has a general one, too.
    std::string caption(const std::string& table, const std::string& field, std::int64_t event) {
        oDBU.answers[test::caption_statement(table, field)] = {{std::string("allgemein")}};
        const test::LogRecord record({.table = table, .event = event});
        return std::string(msDBGetFieldDescription(record.field(field), run));
    }
};

constexpr std::int64_t creation = 0, change = 1, deletion = 2;

/// The fields of a table that have a line or none, by event.
struct TableRule {
    const char *table, *name;            ///< null: a creation has no line
    std::vector<const char*> technical;  ///< no line of a change or deletion
    const char* ordinary;
};

void PrintTo(const TableRule& rule, std::ostream* out) { *out << rule.table; }

// clang-format off
const TableRule table_rules[] = {
    {"AUSWERTUNGSRAHMEN",   "ARA_BEZEICHNUNG", {"ARA_ID", "MIT_ID", "ARA_DATUM", "DCGUID"},         "ARA_KENNZEICHEN"},
    {"AUSWERTUNGSART",      "AA_BEZEICHNUNG",  {"AA_ID", "MIT_ID", "AA_DATUM", "DCGUID"},           "ARA_ID"},
    {"AUSWERTUNGSDICHTE",   "AD_BEZEICHNUNG",  {"AD_ID", "MIT_ID", "AD_DATUM", "DCGUID"},           "AD_NR"},
    {"AUSWERTUNGSSPALTE",   "AS_BEZEICHNUNG",  {"AS_ID", "MIT_ID", "AS_DATUM", "DCGUID"},           "AA_ID"},
    {"AUSWERTUNGSPOSITION", "AP_BEZEICHNUNG",  {"AP_ID", "MIT_ID", "AP_DATUM", "AP_NR", "DCGUID"},  "ZA_ID"},
    {"ZEILENART",           "ZA_BEZEICHNUNG",  {"ZA_ID", "MIT_ID", "ZA_DATUM", "DCGUID"},           "ARA_ID"},
    {"AUSWERTUNGSZELLE",    nullptr,           {"AZ_ID", "MIT_ID", "AZ_DATUM", "AZ_ABWBEZEICHNUNG", "AZ_ATBEZEICHNUNG2",
                                                "AZ_ATBEZEICHNUNG3", "AZ_ATBEZEICHNUNG4"},          "DCGUID"},
    {"SPALTENFORMATE",      nullptr,           {"SPF_ID", "MIT_ID", "SPF_DATUM"},                   "DCGUID"},
};
// clang-format on

class FrameworkCaptions : public Lines, public testing::WithParamInterface<TableRule> {
protected:
    const TableRule& rule = GetParam();
};

TEST_P(FrameworkCaptions, OfACreationAreThatOfTheNameAlone) {
    for (const char* field : rule.technical) EXPECT_EQ(caption(rule.table, field, creation), "") << field;
    EXPECT_EQ(caption(rule.table, rule.ordinary, creation), "");
    EXPECT_EQ(caption(rule.table, "AZ_BEZEICHNUNG", creation), "") << "no name of this table";
    if (rule.name) {
        EXPECT_EQ(caption(rule.table, rule.name, creation), "allgemein");
    }
}

TEST_P(FrameworkCaptions, OfAChangeOrDeletionAreMissingForTheTechnicalFields) {
    for (const std::int64_t event : {change, deletion, std::int64_t{3}}) {
        for (const char* field : rule.technical) EXPECT_EQ(caption(rule.table, field, event), "") << field;
        EXPECT_EQ(caption(rule.table, rule.ordinary, event), "allgemein");
        if (rule.name) {
            EXPECT_EQ(caption(rule.table, rule.name, event), "allgemein");
        }
    }
}

TEST_P(FrameworkCaptions, DoNotDependOnTheLetterCaseOfTableAndField) {
    const std::string table = to_lower(rule.table);
    for (const char* field : rule.technical) EXPECT_EQ(caption(table, to_lower(field), change), "") << field;
    EXPECT_EQ(caption(table, to_lower(rule.ordinary), creation), "");
    EXPECT_EQ(caption(table, to_lower(rule.ordinary), change), "allgemein");
    if (rule.name) {
        EXPECT_EQ(caption(table, to_lower(rule.name), creation), "allgemein");
    }
}

TEST_P(FrameworkCaptions, AreMissingForThisTablesTechnicalFieldsOnly) {
    for (const TableRule& other : table_rules)
        for (const char* field : other.technical) {
            const bool technical = std::ranges::any_of(
                rule.technical, [&](const char* each) { return std::string(each) == field; });
            EXPECT_EQ(caption(rule.table, field, change), technical ? "" : "allgemein") << field;
        }
}

INSTANTIATE_TEST_SUITE_P(Each, FrameworkCaptions, testing::ValuesIn(table_rules),
                         [](const auto& each) { return each.param.table; });

TEST_F(Lines, OfAccountAssignmentsHaveTheSameCaptionsWhateverTheEvent) {
    for (const std::int64_t event : {creation, change, deletion}) {
        for (const char* field : {"FO_ID", "MIT_ID", "FO_DATUM", "FO_FORMELMENGE", "Fo_Id"})
            EXPECT_EQ(caption("FORMEL_POSITION", field, event), "") << field << event;
        for (const char* field : {"FO_FORMEL", "KR_ID", "AP_ID", "DCGUID", "Fo_Formel"})
            EXPECT_EQ(caption("FORMEL_POSITION", field, event), "allgemein") << field << event;
    }
    EXPECT_EQ(caption("Formel_Position", "Fo_FormelMenge", creation), "");
}

TEST_F(Lines, OfATableThatIsNotListedHaveACaptionForEveryField) {
    for (const std::int64_t event : {creation, change, deletion})
        for (const char* field : {"MIT_ID", "DCGUID", "KR_ID"})
            EXPECT_EQ(caption("KONTENRAHMEN", field, event), "allgemein") << field << event;
}

TEST_F(Lines, OfAFieldThatTheDatabaseDoesNotKnowHaveNoCaption) {
    const test::LogRecord record({.table = "ZEILENART"});
    EXPECT_EQ(msDBGetFieldDescription(record.field("ZA_NEU"), run), "");
    EXPECT_EQ(oDBU.statements,
              std::vector<std::string>{"value: " + test::caption_statement("ZEILENART", "ZA_NEU")});
    for (const char* text : {"", "_UNDEFINIERT_"}) {
        prot::Run fresh{host.environment, oDBU};
        oDBU.answers[test::caption_statement("ZEILENART", "ZA_NEU")] = {{std::string(text)}};
        EXPECT_EQ(msDBGetFieldDescription(record.field("ZA_NEU"), fresh), "") << text;
    }
    oDBU.failures.emplace(test::caption_statement("ZEILENART", "ZA_ALT"), test::server_error("fort"));
    EXPECT_EQ(msDBGetFieldDescription(record.field("ZA_ALT"), run), "") << "a failed lookup is no error";
}

TEST_F(Lines, AskForTheCaptionOfTableAndFieldAsTheyAreLogged) {
    const test::LogRecord record({.table = "Zeilenart"});
    FrameworkLines lines(run);
    oDBU.answers[test::caption_statement("Zeilenart", "Za_Bezeichnung")] = {{std::string("Bezeichnung")}};
    EXPECT_EQ(lines.caption(record.field("Za_Bezeichnung")), "Bezeichnung");
}

TEST_F(Lines, AreDescribedWithTheFirstOneAndHaveLeerForNothing) {
    const LineRules rules = FrameworkLines(run).rules();
    EXPECT_EQ(rules.described, LineRules::Description::with_first_line);
    EXPECT_EQ(rules.empty_value, "leer");
    EXPECT_TRUE(rules.only_dated);
    EXPECT_EQ(rules.progress_end, LineRules::ProgressEnd::last_row);
    EXPECT_EQ(std::vector<std::string>(std::begin(framework_captions), std::end(framework_captions)),
              (std::vector<std::string>{"Auswertungsrahmen", "Auswertungsdichte", "Änderung in"}));
}

TEST_F(Lines, BeginWithFrameworkDensityAndRecord) {
    oDBU.answers["SELECT ARa_Bezeichnung FROM AuswertungsRahmen WHERE ARa_Id = 12"] = {
        {std::string("Bilanz")}};
    oDBU.answers["SELECT [Ad_Id] FROM [AUSWERTUNGSDICHTE] WHERE [ARa_Id] = 12"] = {{std::int64_t{51}}};
    oDBU.answers["SELECT Ad_Bezeichnung FROM AuswertungsDichte WHERE Ad_Id = 51"] = {{std::string("fein")}};
    oDBU.answers["SELECT Za_Bezeichnung FROM Zeilenart WHERE Za_Id = 11"] = {{std::string("Aktiva")}};
    const test::LogRecord record({.table = "ZEILENART", .date = moment});
    CsvLine line(4);
    line[3] = "bleibt";
    EXPECT_TRUE(FrameworkLines(run).describe_record(record.row(), line));
    EXPECT_EQ(std::vector<std::string>(line.cells().begin(), line.cells().end()),
              (std::vector<std::string>{"Bilanz", "fein", "Aktiva", "bleibt"}));
}

TEST_F(Lines, OfARecordWithoutNamesAreWrittenAllTheSame) {
    const test::LogRecord record({.table = "AUSWERTUNGSRAHMEN", .date = moment});
    CsvLine line(3);
    EXPECT_TRUE(FrameworkLines(run).describe_record(record.row(), line));
    EXPECT_EQ(line[0] + line[1] + line[2], "");
}

TEST_F(Lines, HaveMemosInPlaceOfTheirMarkInAnyLetterCase) {
    oDBU.answers["SELECT dmData FROM tProtokollMemo WHERE flProtokoll = 900"] = {{std::string("danach")}};
    oDBU.answers["SELECT dmData FROM tProtokollMemo WHERE flProtokoll = 880"] = {{std::string("davor")}};
    oDBU.answers
        ["SELECT idProtokoll FROM tProtokoll WHERE  dcTable = 'ZEILENART' AND dlPrimaryKey1 = 11 AND "
         "dlSuchId1 = 12 AND dlSuchId2 = 13 AND idProtokoll <> 900 ORDER BY ddDatum"] = {{std::int64_t{880}}};
    const test::LogRecord record({.table = "ZEILENART", .date = moment});
    const ChangedField field = record.field("ZA_MEMO");
    FrameworkLines lines(run);
    for (const char* mark : {"_MEMO_", "_memo_", "_Memo_"}) {
        EXPECT_EQ(lines.marked_old_value(field, mark), "davor") << mark;
        EXPECT_EQ(lines.marked_new_value(field, mark), "danach") << mark;
    }
    oDBU.statements.clear();
    for (const char* value : {"", "MEMO", "_MEMO", "_MEMO_ ", " _MEMO_", "_MEMO__", "x"}) {
        EXPECT_EQ(lines.marked_old_value(field, value), std::nullopt) << value;
        EXPECT_EQ(lines.marked_new_value(field, value), std::nullopt) << value;
    }
    EXPECT_TRUE(oDBU.statements.empty());
}

TEST_F(Lines, HandTheLeadingNumberOfAValueToTheTranslationObject) {
    std::vector<std::int32_t> handed;
    host.translators["srvKWAusw.KWAuswZeilenartClass"] = [&](std::int32_t value, std::string_view column,
                                                             Date at) {
        handed.push_back(value);
        EXPECT_EQ(column, "Za_Art");
        EXPECT_EQ(at, moment);
        return std::string("Text");
    };
    const test::LogRecord record({.table = "ZEILENART", .date = moment});
    FrameworkLines lines(run);
    for (const char* value :
         {"12", "12abc", " 7 ", "-3", "Kasse", "_MEMO_", "2147483647", "-2147483648", "2,5"})
        EXPECT_EQ(lines.translated_value(record.field("Za_Art"), value), "Text") << value;
    EXPECT_EQ(handed, (std::vector<std::int32_t>{12, 12, 7, -3, 0, 0, 2147483647, -2147483647 - 1, 2}));
    handed.clear();
    for (const char* value : {"2147483648", "-2147483649", "99999999999"})
        EXPECT_EQ(lines.translated_value(record.field("Za_Art"), value), "") << value;
    EXPECT_TRUE(handed.empty()) << "outside 32 bits";
}

TEST_F(Lines, KeepTheRawValueOfATableWithoutTranslationObject) {
    const test::LogRecord record({.table = "AUSWERTUNGSRAHMEN", .date = moment});
    EXPECT_EQ(FrameworkLines(run).translated_value(record.field("ARA_ART"), "20"), "");
}

TEST_F(Lines, NameTheirProcedureInAnErrorOfTheTranslation) {
    host.translators["srvKWAusw.KWAuswZeilenartClass"] = [](std::int32_t, std::string_view,
                                                            Date) -> std::string {
        throw test::server_error("keine Bezeichnung");
    };
    const test::LogRecord record({.table = "ZEILENART", .date = moment});
    FrameworkLines lines(run);
    EXPECT_EQ(error_of([&] { lines.translated_value(record.field("ZA_ART"), "1"); }).source(),
              PROT_STAMP "|srvprotqrbcsv|Testserver\r\nProtAuswCsvClass.msTranslateValue");
}

}  // namespace
}  // namespace prot::report_frameworks
