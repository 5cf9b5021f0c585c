#include "sections/report_frameworks/framework_values.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "tests/unit/support/database_answers.h"
#include "tests/unit/support/fakes.h"

namespace prot::report_frameworks {
namespace {

const Date moment = to_date(CivilTime{2026, 3, 5, 14, 7, 9});

class Values : public testing::Test {
protected:
    test::FakeHost host;
    test::FakeDatabase oDBU;
    prot::Run run{host.environment, oDBU};
    FrameworkValues values{run};

    std::string translated(const std::string& table, std::int32_t value = 31) {
        return values.msTranslateValue(table, "Spalte", value, moment);
    }
};

/// Tells all that it was given.
std::string told(std::int32_t value, std::string_view column, Date at) {
    return std::string(column) + " " + std::to_string(value) + " " + to_text(at);
}

struct Kind {
    const char *table, *in_other_letters, *program_id;
};

void PrintTo(const Kind& kind, std::ostream* out) { *out << kind.table; }

// clang-format off
constexpr Kind kinds[] = {
    {"AUSWERTUNGSPOSITION", "AuswertungsPosition", "srvKWAusw.KWAuswPositionBrowsClass"},
    {"ZEILENART",           "Zeilenart",           "srvKWAusw.KWAuswZeilenartClass"},
    {"SPALTENFORMATE",      "spaltenformate",      "srvKWAusw.KWAuswSpfLstClass"},
    {"AUSWERTUNGSSPALTE",   "AuswertungsSpalte",   "srvKWAusw.KWAuswSpalteLstClass"},
    {"AUSWERTUNGSZELLE",    "AuswertungsZelle",    "srvKWAusw.KWAuswZelleListClass"},
    {"FORMEL_POSITION",     "Formel_Position",     "srvKWAusw.KWAuswFormelLstClass"},
};
// clang-format on

class FrameworkValue : public Values, public testing::WithParamInterface<Kind> {
protected:
    const Kind& kind = GetParam();
};

TEST_P(FrameworkValue, IsTranslatedByTheObjectOfItsTable) {
    host.translators[kind.program_id] = told;
    EXPECT_EQ(translated(kind.table), "Spalte 31 05.03.2026 14:07:09");
    EXPECT_EQ(host.translators_asked_for, std::vector<std::string>{kind.program_id});
    EXPECT_TRUE(oDBU.statements.empty());
}

TEST_P(FrameworkValue, IsTranslatedWhateverTheLetterCaseOfItsTable) {
    host.translators[kind.program_id] = told;
    EXPECT_EQ(translated(kind.in_other_letters, 32), "Spalte 32 05.03.2026 14:07:09");
}

TEST_P(FrameworkValue, IsTranslatedByAnObjectThatIsCreatedOnce) {
    host.translators[kind.program_id] = told;
    EXPECT_TRUE(host.translators_asked_for.empty()) << "not before the first value";
    for (const std::int32_t value : {0, -1, 2147483647})
        EXPECT_EQ(translated(kind.table, value), "Spalte " + std::to_string(value) + " 05.03.2026 14:07:09");
    translated(kind.in_other_letters);
    EXPECT_EQ(host.translators_asked_for.size(), 1U);
}

TEST_P(FrameworkValue, StaysRawWhenItsObjectCannotBeCreatedWhichIsTriedOnce) {
    EXPECT_EQ(translated(kind.table), "");
    host.translators[kind.program_id] = told;
    EXPECT_EQ(translated(kind.table), "");
    EXPECT_EQ(host.translators_asked_for.size(), 1U);
    EXPECT_TRUE(host.errors.empty());
}

TEST_P(FrameworkValue, NamesItsProcedureInAnErrorOfTheObject) {
    host.translators[kind.program_id] = [](std::int32_t, std::string_view, Date) -> std::string {
        throw AutomationError(-2147352567, "srvKWAusw", "keine Bezeichnung");
    };
    const AutomationError error = error_of([&] { translated(kind.table); });
    EXPECT_EQ(error.source(), PROT_STAMP "|srvprotqrbcsv|srvKWAusw\r\nProtAuswCsvClass.msTranslateValue");
    EXPECT_EQ(error.number(), -2147352567);
    EXPECT_EQ(error.description(), "keine Bezeichnung");
}

INSTANTIATE_TEST_SUITE_P(Each, FrameworkValue, testing::ValuesIn(kinds),
                         [](const auto& each) { return each.param.table; });

TEST_F(Values, OfSeveralTablesHaveAnObjectEach) {
    for (const Kind& kind : kinds)
        host.translators[kind.program_id] = [&kind](std::int32_t, std::string_view, Date) {
            return std::string(kind.program_id);
        };
    for (const int round : {1, 2})
        for (const Kind& kind : kinds) EXPECT_EQ(translated(kind.table), kind.program_id) << round;
    EXPECT_EQ(host.translators_asked_for.size(), std::size(kinds));
}

TEST_F(Values, OfOtherTablesAskForNoObject) {
    for (const char* table :
         {"AUSWERTUNGSRAHMEN", "AUSWERTUNGSDICHTE", "AUSWERTUNGSART", "ZEILENARTEN", "ZEILEN", ""})
        EXPECT_EQ(translated(table), "") << table;
    EXPECT_TRUE(host.translators_asked_for.empty());
}

TEST_F(Values, OfTheNextRunHaveAnObjectOfTheirOwn) {
    host.translators[kinds[0].program_id] = told;
    translated(kinds[0].table);
    FrameworkValues{run}.msTranslateValue(kinds[0].table, "Spalte", 31, moment);
    EXPECT_EQ(host.translators_asked_for.size(), 2U);
}

}  // namespace
}  // namespace prot::report_frameworks
