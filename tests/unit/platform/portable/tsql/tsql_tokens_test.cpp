#include "platform/portable/tsql/tsql_tokens.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/automation/error.h"
#include "platform/portable/tsql/tsql_refusal.h"

namespace prot {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

std::vector<std::string> texts(std::string_view sql) {
    std::vector<std::string> result;
    for (const Token& token : tokenize(sql))
        if (token.kind != Token::Kind::end) result.emplace_back(token.text);
    return result;
}

Token only(std::string_view sql) {
    const std::vector<Token> tokens = tokenize(sql);
    EXPECT_EQ(tokens.size(), 2U) << sql;
    return tokens.front();
}

TEST(TsqlTokens, PartsNamesNumbersTextsAndSymbols) {
    EXPECT_THAT(texts("SELECT a,[b c] FROM #t WHERE x>=1.5e-3 AND y<>'z'"),
                ElementsAre("SELECT", "a", ",", "[b c]", "FROM", "#t", "WHERE", "x", ">=", "1.5e-3", "AND",
                            "y", "<>", "'z'"));
}

TEST(TsqlTokens, TakesSignsAndDigitsIntoANameButNotToItsFront) {
    EXPECT_THAT(texts("a@b$c#1_ä b1"), ElementsAre("a@b$c#1_ä", "b1"));
    EXPECT_THAT(texts("_a #b ä"), ElementsAre("_a", "#b", "ä"));
}

TEST(TsqlTokens, TakesTwoSignsForOneSymbolWhereTheyAreOne) {
    EXPECT_THAT(texts("<><=>=!=!<!>=<=>>"),
                ElementsAre("<>", "<=", ">=", "!=", "!<", "!>", "=", "<=", ">", ">"));
    EXPECT_THAT(texts("(),;.*=<>+-/%&|^~"),
                ElementsAre("(", ")", ",", ";", ".", "*", "=", "<>", "+", "-", "/", "%", "&", "|", "^", "~"));
}

TEST(TsqlTokens, LeavesOutBlanksAndComments) {
    EXPECT_THAT(texts("a\t\r\n\v\f b -- DELETE 'x\nc /* SELECT ' ( */ d"), ElementsAre("a", "b", "c", "d"));
}

TEST(TsqlTokens, ReadsCommentsInsideCommentsAsOneComment) {
    EXPECT_THAT(texts("a /* x /* y */ z */ b"), ElementsAre("a", "b"));
}

TEST(TsqlTokens, TakesASlashOrDashOfItsOwnAsSymbol) { EXPECT_THAT(texts("- /"), ElementsAre("-", "/")); }

TEST(TsqlTokens, FindsNoCommentInsideATextOrName) {
    EXPECT_THAT(texts("'--' [/*] \"--\""), ElementsAre("'--'", "[/*]", "\"--\""));
}

TEST(TsqlTokens, UndoublesDelimiters) {
    struct Row {
        const char* sql;
        const char* meaning;
        const char* why;
    };
    const Row names[] = {
        {"[a]]b]", "a]b", "closing bracket doubled"},
        {"[a[b]", "a[b", "an opening bracket is an ordinary character"},
        {"\"a\"\"b\"", "a\"b", "quote doubled"},
        {"Währung", "Währung", "umlauts belong to names"},
        {"#t", "#t", "a temporary table keeps its sign"},
    };
    for (const Row& row : names) EXPECT_EQ(name_of(only(row.sql)), row.meaning) << row.why;
    const Row strings[] = {
        {"'O''Brien'", "O'Brien", "apostrophe doubled"}, {"''", "", "the empty text"},
        {"''''", "'", "one apostrophe alone"},           {"N'ä'", "ä", "national text"},
        {"n'x'", "x", "national text, small letter"},
    };
    for (const Row& row : strings) EXPECT_EQ(string_of(only(row.sql).text), row.meaning) << row.why;
}

TEST(TsqlTokens, KnowsKeywordsInAnyLetterCaseButNotInBrackets) {
    EXPECT_EQ(only("sElEcT").keyword, Keyword::select);
    EXPECT_EQ(only("UPDATE").keyword, Keyword::reserved);
    EXPECT_EQ(only("[SELECT]").keyword, Keyword::none);
    EXPECT_EQ(only("selects").keyword, Keyword::none);
    EXPECT_EQ(only("limit").keyword, Keyword::none);
}

TEST(TsqlTokens, ReadsNumbers) {
    for (const char* number : {"0", "42", "1.5", ".5", "1.", "1e5", "1E+5", "1.5e-3"}) {
        EXPECT_EQ(only(number).kind, Token::Kind::number) << number;
        EXPECT_EQ(only(number).text, number);
    }
}

TEST(TsqlTokens, MatchesParentheses) {
    const std::vector<Token> tokens = tokenize("(a (b) ())");
    EXPECT_EQ(tokens[0].closing, 7U);
    EXPECT_EQ(tokens[2].closing, 4U);
    EXPECT_EQ(tokens[5].closing, 6U);
}

TEST(TsqlTokens, KeepsTheOffsetOfEachToken) {
    const std::vector<Token> tokens = tokenize(" ä  b");
    EXPECT_EQ(tokens[0].offset, 1U);
    EXPECT_EQ(tokens[1].offset, 5U);
    EXPECT_EQ(tokens[2].offset, 6U);
}

TEST(TsqlTokens, RefusesWhatItCannotReadWithThePlace) {
    struct Row {
        std::string sql;
        const char* place;
        const char* why;
    };
    const Row rows[] = {
        {"a = 'x", "(Zeile 1, Spalte 5, ", "text without an end"},
        {"a = 'x''", "(Zeile 1, Spalte 5, ", "a doubled apostrophe does not end a text"},
        {"a\n[b", "(Zeile 2, Spalte 1, ", "name without an end"},
        {"a \"b", "(Zeile 1, Spalte 3, ", "quoted name without an end"},
        {"a []", "(Zeile 1, Spalte 3, bei „[]“)", "empty name"},
        {"a /* /* */", "(Zeile 1, Spalte 3, bei „/*“)", "nested comment without an end"},
        {"a /*/", "(Zeile 1, Spalte 3, bei „/*“)", "the star of the opening does not close"},
        {"(a", "(Zeile 1, Spalte 1, bei „(“)", "parenthesis not closed"},
        {"a)", "(Zeile 1, Spalte 2, bei „)“)", "parenthesis not opened"},
        {"a = ?", "(Zeile 1, Spalte 5, bei „?“)", "a parameter of SQLite's"},
        {"a = @x", "(Zeile 1, Spalte 5, bei „@“)", "variable"},
        {"a = $1", "(Zeile 1, Spalte 5, bei „$“)", "money"},
        {"`a`", "(Zeile 1, Spalte 1, bei „`“)", "quotes of another dialect"},
        {"a = 0x1F", "(Zeile 1, Spalte 5, ", "binary constant: a number in SQLite, bytes on the server"},
        {"1abc", "(Zeile 1, Spalte 1, ", "number grown into a name"},
        {std::string("a\0b", 3), "(Zeile 1, Spalte 2, am Ende): hier steht ein Nullzeichen. Anweisung: a",
         "NUL byte"},
    };
    for (const Row& row : rows) {
        try {
            tokenize(row.sql);
            ADD_FAILURE() << row.why;
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.number(), statement_refused) << row.why;
            EXPECT_THAT(error.description(), HasSubstr(row.place)) << row.why;
            EXPECT_EQ(error.description().find('\0'), std::string::npos) << "no text that ends in its middle";
        }
    }
}

}  // namespace
}  // namespace prot
