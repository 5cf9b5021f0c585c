#include "platform/portable/tsql/tsql_translations.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/automation/error.h"

namespace prot {
namespace {

constexpr std::string_view lookup = "SELECT TOP 1 a FROM T WHERE b = 1 AND c LIKE '%x%'";

// What of the translation reaches SQLite and error messages, or the refusal.
template <class Translate>
std::string outcome(Translate translate) {
    try {
        const TsqlStatement& statement = translate();
        return statement.text + " <- " + testing::PrintToString(statement.parameters) + " <- " +
               std::string(statement.source);
    } catch (const AutomationError& error) {
        return error.description();
    }
}

TEST(TsqlTranslations, AreThoseOfEachStatementAloneWhateverCameBefore) {
    struct Row {
        std::string_view first;
        std::string_view second;
        const char* why;
    };
    const Row rows[] = {
        {lookup, "SELECT TOP 1 a FROM T WHERE b = 27 AND c LIKE '%yy%'", "other values"},
        {lookup, "SELECT TOP 1 a FROM T WHERE b = 2.5e3 AND c LIKE '%y%'", "another type of number"},
        {lookup, "SELECT TOP 1 a FROM T WHERE b = 1 AND c LIKE 'it''s'", "a doubled apostrophe"},
        {lookup, "SELECT TOP 1 a FROM T WHERE b = 1 AND c LIKE ''", "an empty text"},
        {lookup, "SELECT TOP 2 a FROM T WHERE b = 1 AND c LIKE '%x%'", "TOP is no parameter"},
        {lookup, "SELECT TOP 1 a FROM T WHERE b = 1 AND c LIKE '%[x]%'", "a pattern that is refused"},
        {lookup, "SELECT TOP 1 a FROM T WHERE b = 1e999 AND c LIKE '%x%'", "a number that is refused"},
        {lookup, "SELECT TOP 1 a FROM T WHERE b = 'x' AND c LIKE '%x%'", "a text for a number"},
        {lookup, "SELECT TOP 1 a FROM T WHERE b = 1 AND d LIKE '%x%'", "another column"},
        {lookup, "SELECT TOP 1 a FROM T WHERE b = 1 AND c LIKE '%x%' ORDER BY a", "a longer statement"},
        {lookup, "SELECT TOP 1 a FROM T WHERE b = 1", "a shorter one"},
        {lookup, "SELECT TOP 1 a FROM T WHERE b = 1 AND c LIKE '%x", "a text without an end"},
        {lookup, "SELECT TOP 1 a FROM T WHERE b = \2 AND c LIKE '%x%'", "a character that is no statement's"},
        {lookup, "SELECT TOP 1 a FROM T WHERE b = 1 AND c LIKE \1", "another one"},
        {"SELECT a FROM T WHERE b = 'x'AND c = 1", "SELECT a FROM T WHERE b = 5AND c = 1",
         "a name right behind a text, but not behind a number"},
        {"SELECT a FROM T WHERE b = -1", "SELECT a FROM T WHERE b = -2", "the sign belongs to the value"},
        {"SELECT a FROM T WHERE b = -1", "SELECT a FROM T WHERE b = - 2", "apart from it, too"},
        {"SELECT a FROM T WHERE b = -1", "SELECT a FROM T WHERE b = 1", "without it"},
        {"SELECT a FROM T WHERE b = N'x'", "SELECT a FROM T WHERE b = N'y'", "the other kind of text"},
        {"SELECT a FROM T WHERE b = N'x'", "SELECT a FROM T WHERE b = 'y'", "and back"},
        {"SELECT a FROM T WHERE b = 1 -- 1", "SELECT a FROM T WHERE b = 2 -- 1", "a comment"},
        {"SELECT a FROM T WHERE b = 1 /* '1 */", "SELECT a FROM T WHERE b = 2 /* '1 */", "the other comment"},
        {"SELECT a AS 'x' FROM T WHERE b = 1", "SELECT a AS 'y' FROM T WHERE b = 1", "a name in apostrophes"},
        {"SELECT a FROM T WHERE [b'1] = 1", "SELECT a FROM T WHERE [b'2] = 1", "a name in brackets"},
        {"SELECT a FROM T WHERE \"b'1\" = 1", "SELECT a FROM T WHERE \"b'2\" = 1", "and in quotation marks"},
        {"SELECT a FROM T WHERE b1 = 1", "SELECT a FROM T WHERE b2 = 1", "a digit of a name"},
        {"SELECT a FROM T WHERE b IN (1, 2)", "SELECT a FROM T WHERE b IN (3, 4)", "values keep their order"},
        {"  SELECT a FROM T WHERE b = 1 ;", "  SELECT a FROM T WHERE b = 234 ;", "blanks around it"},
        {"SELECT a FROM T WHERE b = 1", "DELETE FROM T WHERE b = 1", "no query"},
    };
    for (const Row& row : rows) {
        TsqlTranslations translations;
        for (const std::string_view sql : {row.first, row.second, row.first})
            EXPECT_EQ(outcome([&]() -> const TsqlStatement& { return translations.of_query(sql); }),
                      outcome([&] { return translate_query(sql); }))
                << row.why;
    }
}

TEST(TsqlTranslations, TakeAStatementOfAKnownShapeNotApartAgain) {
    struct {
        std::string_view first;
        std::string_view second;
    } const rows[] = {
        {lookup, "SELECT TOP 1 a FROM T WHERE b = 2 AND c LIKE '%y%'"},
        {"SELECT a FROM T WHERE b1 = -1 AND c = N'x'", "SELECT a FROM T WHERE b1 = -2.5 AND c = N''"},
        {"SELECT a FROM T WHERE b IN (1, 2)", "SELECT a FROM T WHERE b IN (2, 1)"},
    };
    for (const auto& row : rows) {
        TsqlTranslations translations;
        const TsqlParameter* const parameters = translations.of_query(row.first).parameters.data();
        EXPECT_EQ(translations.of_query(row.second).parameters.data(), parameters)
            << row.second << ": the earlier translation with other values";
    }
}

TEST(TsqlTranslations, KeepValuesInTheTextBeyondTheMostParameters) {
    TsqlTranslations translations;
    const auto list_of = [](const std::string& last) {
        std::string sql = "SELECT a FROM T WHERE b IN (";
        for (std::size_t i = 0; i < most_parameters; ++i) sql += "1, ";
        return sql + last + ")";
    };
    const std::string first = list_of("1");
    const std::string second = list_of("2");
    translations.of_query(first);
    EXPECT_EQ(translations.of_query(second).text, translate_query(second).text);
}

TEST(TsqlTranslations, ForgetShapesBeyondTheirCapacity) {
    TsqlTranslations translations;
    for (std::size_t i = 0; i < 2 * TsqlTranslations::capacity + 1; ++i) {
        const std::string sql = "SELECT a" + std::to_string(i) + " FROM T WHERE b = 1";
        EXPECT_EQ(translations.of_query(sql).text, translate_query(sql).text);
        EXPECT_LE(translations.size(), TsqlTranslations::capacity);
    }
}

}  // namespace
}  // namespace prot
