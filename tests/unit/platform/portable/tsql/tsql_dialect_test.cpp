#include "platform/portable/tsql/tsql_dialect.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace prot {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TsqlStatement translate_one(std::string_view sql) {
    std::vector<TsqlStatement> statements = translate_tsql(sql);
    EXPECT_EQ(statements.size(), 1U) << sql;
    return std::move(statements.front());
}

std::string translated(std::string_view sql) { return translate_one(sql).text; }

TEST(TsqlDialect, QuotesEveryName) {
    EXPECT_EQ(translated("SELECT [x], T.\"y\", limit FROM T"), R"(SELECT "x" , "T"."y" , "limit" FROM "T")");
    EXPECT_EQ(translated("SELECT [a]]b] FROM [c\"d]"), R"(SELECT "a]b" FROM "c""d")");
    EXPECT_EQ(translated("SELECT true FROM T"), R"(SELECT "true" FROM "T")");
}

TEST(TsqlDialect, PutsTopAsLimitAtTheEndOfItsSelect) {
    struct Row {
        const char* sql;
        const char* text;
        const char* why;
    };
    const Row rows[] = {
        {"SELECT TOP 1 a FROM T ORDER BY b ASC", R"(SELECT "a" FROM "T" ORDER BY "b" LIMIT 1)",
         "behind ORDER BY"},
        {"SELECT DISTINCT TOP (3) a FROM T", R"(SELECT DISTINCT "a" FROM "T" LIMIT 3)", "DISTINCT first"},
        {"SELECT a FROM T WHERE b IN (SELECT TOP 2 c FROM U)",
         R"(SELECT "a" FROM "T" WHERE "b" IN ( SELECT "c" FROM "U" LIMIT 2 ))", "in a subquery"},
        {"SELECT TOP 1 a FROM T UNION SELECT b FROM U ORDER BY 1",
         R"(SELECT * FROM ( SELECT "a" FROM "T" LIMIT 1 ) UNION SELECT "b" FROM "U" ORDER BY 1)",
         "TOP belongs to its own SELECT, not to the union"},
        {"SELECT b FROM U UNION ALL SELECT TOP 1 a FROM T",
         R"(SELECT "b" FROM "U" UNION ALL SELECT * FROM ( SELECT "a" FROM "T" LIMIT 1 ))",
         "the last SELECT too"},
        {"(SELECT TOP 1 a FROM T ORDER BY b) ORDER BY a DESC",
         R"(SELECT * FROM ( SELECT "a" FROM "T" ORDER BY "b" LIMIT 1 ) ORDER BY "a" DESC)",
         "ordered once for the choice and once for the result"},
        {"(SELECT TOP 1 a FROM T ORDER BY b) UNION SELECT c FROM U",
         R"(SELECT * FROM ( SELECT "a" FROM "T" ORDER BY "b" LIMIT 1 ) UNION SELECT "c" FROM "U")",
         "a chosen row stays chosen, also when others are added"},
        {"SELECT c FROM U UNION (SELECT TOP 1 a FROM T ORDER BY b)",
         R"(SELECT "c" FROM "U" UNION SELECT * FROM ( SELECT "a" FROM "T" ORDER BY "b" LIMIT 1 ))",
         "likewise on the right"},
        {"SELECT TOP 1 a FROM T UNION SELECT b FROM U UNION SELECT c FROM V",
         R"(SELECT * FROM ( SELECT "a" FROM "T" LIMIT 1 ) UNION SELECT "b" FROM "U" UNION SELECT "c" FROM "V")",
         "once, however many follow"},
        {"SELECT TOP 999999999999999999 a FROM T", R"(SELECT "a" FROM "T" LIMIT 999999999999999999)",
         "the largest number"},
    };
    for (const Row& row : rows) EXPECT_EQ(translated(row.sql), row.text) << row.why;
}

TEST(TsqlDialect, TakesAParenthesisedSubqueryInInAsItsWholeRowSet) {
    struct Row {
        const char* list;
        const char* text;
        const char* why;
    };
    const Row rows[] = {
        {"(SELECT a FROM T)", R"(( SELECT "a" FROM "T" ))", "as it is"},
        {"((SELECT a FROM T))", R"(( SELECT "a" FROM "T" ))", "SQLite would read one value"},
        {"( /* ( */ (\r\n( SELECT a FROM T)) )", R"(( SELECT "a" FROM "T" ))",
         "blanks, comments and lines inside"},
        {"((SELECT a FROM T) UNION SELECT b FROM U)", R"(( SELECT "a" FROM "T" UNION SELECT "b" FROM "U" ))",
         "SQLite knows no parentheses in a union"},
        {"((SELECT a FROM T) UNION (SELECT b FROM U))",
         R"(( SELECT "a" FROM "T" UNION SELECT "b" FROM "U" ))", "on both sides"},
        {"(((SELECT a FROM T) UNION ALL SELECT b FROM U) EXCEPT SELECT c FROM V)",
         R"(( SELECT "a" FROM "T" UNION ALL SELECT "b" FROM "U" EXCEPT SELECT "c" FROM "V" ))",
         "from left to right no parentheses are needed"},
        {"(SELECT a FROM T EXCEPT (SELECT b FROM U UNION SELECT c FROM V))",
         R"(( SELECT "a" FROM "T" EXCEPT SELECT * FROM ( SELECT "b" FROM "U" UNION SELECT "c" FROM "V" ) ))",
         "a compound right side stays together"},
        {"((SELECT a FROM T) INTERSECT SELECT b FROM U)",
         R"(( SELECT "a" FROM "T" INTERSECT SELECT "b" FROM "U" ))", "any joined query"},
        {"((SELECT a FROM T) EXCEPT SELECT b FROM U)",
         R"(( SELECT "a" FROM "T" EXCEPT SELECT "b" FROM "U" ))", "any joined query"},
        {"((SELECT a FROM T), 3)", R"(( ( SELECT "a" FROM "T" ) , ? ))", "a list keeps its single values"},
        {"(((SELECT a FROM T)), ((SELECT b FROM U)))",
         R"(( ( SELECT "a" FROM "T" ) , ( SELECT "b" FROM "U" ) ))", "a list of two single values"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(translated(std::string("SELECT x FROM S WHERE x IN ") + row.list),
                  std::string(R"(SELECT "x" FROM "S" WHERE "x" IN )") + row.text)
            << row.why;
}

TEST(TsqlDialect, KeepsSingleValueSubqueries) {
    EXPECT_EQ(translated("SELECT a FROM T WHERE b = ((SELECT MAX(c) FROM U))"),
              R"(SELECT "a" FROM "T" WHERE "b" = ( SELECT MAX ( "c" ) FROM "U" ))");
    EXPECT_EQ(translated("SELECT a FROM T WHERE NOT EXISTS ((SELECT c FROM U))"),
              R"(SELECT "a" FROM "T" WHERE NOT EXISTS ( SELECT "c" FROM "U" ))");
}

TEST(TsqlDialect, JoinsQueriesFromLeftToRightWhereBothDialectsDo) {
    const std::pair<std::string, std::string> cases[] = {{"INTERSECT", "INTERSECT"},
                                                         {"INTERSECT", "UNION"},
                                                         {"INTERSECT", "EXCEPT"},
                                                         {"EXCEPT", "UNION ALL"},
                                                         {"UNION ALL", "EXCEPT"}};
    for (const auto& [first, second] : cases)
        EXPECT_EQ(translated("SELECT a FROM T " + first + " SELECT b FROM U " + second + " SELECT c FROM V"),
                  R"(SELECT "a" FROM "T" )" + first + R"( SELECT "b" FROM "U" )" + second +
                      R"( SELECT "c" FROM "V")");
}

TEST(TsqlDialect, AddsFromToDelete) {
    EXPECT_EQ(translated("delete from T"), R"(DELETE FROM "T")");
    EXPECT_EQ(translate_one("DELETE T").kind, TsqlStatement::Kind::command);
}

TEST(TsqlDialect, ChoosesTheRowsOfADeletionFirst) {
    EXPECT_EQ(translated("DELETE T WHERE a = 1"),
              R"(DELETE FROM "T" WHERE rowid IN ( SELECT rowid FROM "T" WHERE "a" = ? ))");
    EXPECT_EQ(translated("DELETE FROM #t WHERE a IS NULL"),
              R"(DELETE FROM temp."#t" WHERE rowid IN ( SELECT rowid FROM temp."#t" WHERE "a" IS NULL ))");
}

TEST(TsqlDialect, SaysWhatKindAStatementIs) {
    EXPECT_EQ(translate_one("SELECT 1").kind, TsqlStatement::Kind::query);
    EXPECT_EQ(translate_one("(SELECT 1)").kind, TsqlStatement::Kind::query);
    EXPECT_EQ(translate_one("SELECT a INTO #t FROM T").kind, TsqlStatement::Kind::fill_temporary_table);
    EXPECT_EQ(translate_one("DELETE #t").kind, TsqlStatement::Kind::command);
    EXPECT_EQ(translate_one("DROP TABLE #t").kind, TsqlStatement::Kind::command);
}

TEST(TsqlDialect, LooksForTemporaryTablesInTheTemporarySchemaOnly) {
    EXPECT_EQ(translated("SELECT #t.a, [#t].* FROM #t"), R"(SELECT "#t"."a" , "#t".* FROM temp."#t")");
    EXPECT_EQ(translated("DELETE [#t]"), R"(DELETE FROM temp."#t")");
    EXPECT_EQ(translated("DROP TABLE IF EXISTS #t"), R"(DROP TABLE IF EXISTS temp."#t")");
    EXPECT_EQ(translated("DROP TABLE #t"), R"(DROP TABLE temp."#t")");
}

TEST(TsqlDialect, TakesIntoOutOfItsSelect) {
    const TsqlStatement statement = translate_one("SELECT a, b AS c, * INTO #t FROM T WHERE a = 7");
    EXPECT_EQ(statement.kind, TsqlStatement::Kind::fill_temporary_table);
    EXPECT_EQ(statement.temporary_table, "#t");
    EXPECT_EQ(statement.text, R"(SELECT "a" , "b" AS "c" , * FROM "T" WHERE "a" = ?)");
    EXPECT_THAT(statement.parameters, ElementsAre(TsqlParameter(std::int64_t{7})));
}

TEST(TsqlDialect, SplitsABatchWithAndWithoutSemicolons) {
    const std::string sql =
        "DROP TABLE IF EXISTS #t \r\nSELECT a INTO #t FROM T; \r\n;DELETE T WHERE a IN (SELECT a FROM #t) "
        "DELETE FROM U SELECT a FROM T UNION ALL SELECT b FROM U";
    const std::vector<TsqlStatement> statements = translate_tsql(sql);
    std::vector<std::string> sources;
    for (const TsqlStatement& statement : statements) sources.emplace_back(statement.source);
    EXPECT_THAT(sources, ElementsAre("DROP TABLE IF EXISTS #t", "SELECT a INTO #t FROM T",
                                     "DELETE T WHERE a IN (SELECT a FROM #t)", "DELETE FROM U",
                                     "SELECT a FROM T UNION ALL SELECT b FROM U"));
    EXPECT_EQ(statements[4].text, R"(SELECT "a" FROM "T" UNION ALL SELECT "b" FROM "U")");
    EXPECT_THAT(statements[4].temporary_table, IsEmpty());
}

TEST(TsqlDialect, ReadsJoins) {
    struct Row {
        const char* from;
        const char* text;
        const char* why;
    };
    const Row rows[] = {
        {"A, B b, C AS c", R"("A" , "B" AS "b" , "C" AS "c")", "comma joins and aliases"},
        {"A INNER JOIN B ON A.x = B.x LEFT OUTER JOIN C ON B.y = C.y",
         R"("A" JOIN "B" ON "A"."x" = "B"."x" LEFT JOIN "C" ON "B"."y" = "C"."y")", "a chain"},
        {"((A INNER JOIN B ON A.x = B.x) INNER JOIN C ON B.y = C.y) CROSS JOIN D",
         R"("A" JOIN "B" ON "A"."x" = "B"."x" JOIN "C" ON "B"."y" = "C"."y" CROSS JOIN "D")",
         "parentheses on the left change nothing"},
        {"A LEFT JOIN (B JOIN C ON B.y = C.y) ON A.x = B.x",
         R"("A" LEFT JOIN ( "B" JOIN "C" ON "B"."y" = "C"."y" ) ON "A"."x" = "B"."x")",
         "parentheses on the right change the result"},
        {"A CROSS JOIN (B JOIN C ON B.y = C.y)", R"("A" CROSS JOIN ( "B" JOIN "C" ON "B"."y" = "C"."y" ))",
         "behind CROSS JOIN, too"},
        {"A, (B LEFT JOIN C ON B.y = C.y)", R"("A" , "B" LEFT JOIN "C" ON "B"."y" = "C"."y")",
         "behind a comma they begin a chain of their own"},
        {"(SELECT x FROM A) d", R"(( SELECT "x" FROM "A" ) AS "d")", "derived table"},
        {"((SELECT x FROM A) d JOIN B ON d.x = B.x)",
         R"(( SELECT "x" FROM "A" ) AS "d" JOIN "B" ON "d"."x" = "B"."x")",
         "derived table in a parenthesised join"},
        {"A natural JOIN B ON A.x = B.x", R"("A" AS "natural" JOIN "B" ON "A"."x" = "B"."x")",
         "a keyword of SQLite's is an ordinary alias"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(translated(std::string("SELECT * FROM ") + row.from),
                  std::string("SELECT * FROM ") + row.text)
            << row.why;
}

TEST(TsqlDialect, ReadsConditions) {
    struct Row {
        const char* condition;
        const char* text;
    };
    const Row rows[] = {
        {" 1 = 2 AND  a IN(0, 2)", R"(? = ? AND "a" IN ( ? , ? ))"},
        {"(a = 1 OR (b) <> 2) AND NOT (c >= 3)", R"(( "a" = ? OR ( "b" ) <> ? ) AND NOT ( "c" >= ? ))"},
        {"a NOT BETWEEN 1 AND 2 OR b NOT LIKE 'x%'", R"("a" NOT BETWEEN ? AND ? OR "b" NOT LIKE ?)"},
        {"a IS NULL AND b IS NOT NULL", R"("a" IS NULL AND "b" IS NOT NULL)"},
        {"a != -1", R"("a" != ?)"},
        {"((a = b))", R"(( ( "a" = "b" ) ))"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(translated(std::string("SELECT x FROM T WHERE ") + row.condition),
                  std::string(R"(SELECT "x" FROM "T" WHERE )") + row.text);
}

TEST(TsqlDialect, KeepsEachComparison) {
    for (const std::string comparison : {"=", "<>", "!=", "<", "<=", ">", ">="})
        EXPECT_EQ(translated("SELECT a FROM T WHERE a" + comparison + "b"),
                  R"(SELECT "a" FROM "T" WHERE "a" )" + comparison + R"( "b")");
}

TEST(TsqlDialect, KnowsTheFunctionsThatMeanTheSame) {
    for (const std::string name : {"COUNT", "MAX", "MIN", "SUM"})
        EXPECT_EQ(translated("SELECT " + name + "(a) FROM T"), "SELECT " + name + R"( ( "a" ) FROM "T")");
    EXPECT_EQ(translated("SELECT min(a), Max(b) FROM T"), R"(SELECT MIN ( "a" ) , MAX ( "b" ) FROM "T")");
}

TEST(TsqlDialect, LeavesOutAllWhichChangesNothing) {
    EXPECT_EQ(translated("SELECT ALL a FROM T"), R"(SELECT "a" FROM "T")");
    EXPECT_EQ(translated("SELECT a FROM T ORDER BY a ASC, b"), R"(SELECT "a" FROM "T" ORDER BY "a" , "b")");
}

TEST(TsqlDialect, ReadsGroupsAndAggregates) {
    EXPECT_EQ(translated("SELECT a, count(*), SUM(DISTINCT b) s FROM T GROUP BY a, T.c HAVING COUNT(*) > 1 "
                         "Order By COUNT(*) desc, 1"),
              R"(SELECT "a" , COUNT ( * ) , SUM ( DISTINCT "b" ) AS "s" FROM "T" GROUP BY "a" , "T"."c" )"
              R"(HAVING COUNT ( * ) > 1 ORDER BY COUNT ( * ) DESC , 1)");
}

TEST(TsqlDialect, MakesLiteralsOfWhereParametersAndLeavesAllOthers) {
    const TsqlStatement statement = translate_one(
        "SELECT 5, 'it''s', (SELECT a FROM U WHERE b = 6) FROM T LEFT JOIN V ON V.c = 7 "
        "WHERE d = N'O''Brien' AND e = 4711 AND f = -1 AND g = 2.5 AND h = 9223372036854775808 ORDER BY 1");
    EXPECT_EQ(
        statement.text,
        R"(SELECT 5 , 'it''s' , ( SELECT "a" FROM "U" WHERE "b" = ? ) FROM "T" LEFT JOIN "V" ON "V"."c" = 7 )"
        R"(WHERE "d" = ? AND "e" = ? AND "f" = ? AND "g" = ? AND "h" = ? ORDER BY 1)");
    EXPECT_THAT(statement.parameters,
                ElementsAre(TsqlParameter(std::int64_t{6}), TsqlParameter("O'Brien"),
                            TsqlParameter(std::int64_t{4711}), TsqlParameter(std::int64_t{-1}),
                            TsqlParameter(2.5), TsqlParameter(9223372036854775808.0)));
}

TEST(TsqlDialect, LeavesLiteralsBehindWhereAndInItsSubqueriesLists) {
    const TsqlStatement statement = translate_one(
        "SELECT a FROM T WHERE b = 1 AND c IN (SELECT TOP 2 5 FROM U WHERE d = 2 ORDER BY MAX(6), 1) AND e = "
        "3 "
        "GROUP BY a HAVING MAX(b) > 7 ORDER BY MAX(8)");
    EXPECT_EQ(statement.text,
              R"(SELECT "a" FROM "T" WHERE "b" = ? AND "c" IN ( SELECT 5 FROM "U" WHERE "d" = ? )"
              R"(ORDER BY MAX ( 6 ) , 1 LIMIT 2 ) AND "e" = ? GROUP BY "a" HAVING MAX ( "b" ) > 7 )"
              R"(ORDER BY MAX ( 8 ))");
    EXPECT_THAT(statement.parameters,
                ElementsAre(TsqlParameter(std::int64_t{1}), TsqlParameter(std::int64_t{2}),
                            TsqlParameter(std::int64_t{3})));
}

TEST(TsqlDialect, ReadsNumbersAsSqliteDoes) {
    const struct {
        const char* number;
        TsqlParameter value;
    } cases[] = {
        {"0", std::int64_t{0}},
        {"007", std::int64_t{7}},
        {"9223372036854775807", INT64_MAX},
        {"-5", std::int64_t{-5}},
        {"- 5", std::int64_t{-5}},
        {"-2.5", -2.5},
        {".5", 0.5},
        {"1.", 1.0},
        {"1e3", 1000.0},
        {"1.5E-1", 0.15},
        {"-9223372036854775808", -9223372036854775808.0},
    };
    for (const auto& [number, value] : cases)
        EXPECT_THAT(translate_one(std::string("SELECT a FROM T WHERE a = ") + number).parameters,
                    ElementsAre(value))
            << number;
    EXPECT_EQ(translated("SELECT -5, -2.5 FROM T"), R"(SELECT -5 , -2.5 FROM "T")");
}

TEST(TsqlDialect, LeavesTheLiteralsOfAVeryLongListInTheText) {
    std::string sql = "SELECT a FROM T WHERE a IN ('it''s'";
    for (int i = 0; i < 300; ++i) sql += ", " + std::to_string(i);
    const TsqlStatement statement = translate_one(sql + ") OR b = 'it''s'");
    EXPECT_EQ(statement.parameters.size(), most_parameters);
    EXPECT_THAT(statement.text, testing::HasSubstr("? , 249 , 250"));
    EXPECT_THAT(statement.text, testing::EndsWith("299 ) OR \"b\" = 'it''s'"));
}

TEST(TsqlDialect, GivesStatementsOfOneShapeOneText) {
    EXPECT_EQ(translated("SELECT a FROM T WHERE b = 1 AND c = 'x'"),
              translated("select  a from T where b=22 /* other */ and c='O''Brien' ;"));
}

}  // namespace
}  // namespace prot
