// Tables that only repeat the rows of a subquery in IN ( … ), as whole texts.

#include "platform/portable/tsql/tsql_cross_product.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/portable/tsql/tsql_dialect.h"

namespace prot {
namespace {

struct Row {
    const char* sql;
    const char* text;
    const char* why;
};

std::string translated(std::string_view sql) { return translate_tsql(sql).front().text; }

// Behind SELECT x FROM S WHERE.
void expect_conditions(const auto& rows) {
    for (const Row& row : rows)
        EXPECT_EQ(translated(std::string("SELECT x FROM S WHERE ") + row.sql),
                  std::string(R"(SELECT "x" FROM "S" WHERE )") + row.text)
            << row.why;
}

TEST(TsqlCrossProduct, TakesOneRowOfATableThatOnlyRepeatsOthers) {
    constexpr Row rows[] = {
        {"x IN (SELECT A.x FROM A, B)",
         R"("x" IN ( SELECT "A"."x" FROM "A" , ( SELECT 1 FROM "B" LIMIT 1 ) ))", "the last table"},
        {"x IN (SELECT B.x FROM A, B WHERE B.y = 1)",
         R"("x" IN ( SELECT "B"."x" FROM ( SELECT 1 FROM "A" LIMIT 1 ) , "B" WHERE "B"."y" = ? ))",
         "the first table"},
        {"x NOT IN ( ( (SELECT A.x FROM B, A, C WHERE A.y = D.y)))",
         R"("x" NOT IN ( SELECT "A"."x" FROM ( SELECT 1 FROM "B" LIMIT 1 ) , "A" , ( SELECT 1 FROM "C" LIMIT 1 ) )"
         R"(WHERE "A"."y" = "D"."y" ))",
         "several, in any parentheses, beside a column of a statement around"},
        {"x IN (SELECT a.x FROM A, [B], #t WHERE \"b\".y = 1)",
         R"("x" IN ( SELECT "a"."x" FROM "A" , "B" , ( SELECT 1 FROM temp."#t" LIMIT 1 ) WHERE "b"."y" = ? ))",
         "letter case and quotes make no other name"},
        {"x IN (SELECT 1 FROM A, B)",
         R"("x" IN ( SELECT 1 FROM ( SELECT 1 FROM "A" LIMIT 1 ) , ( SELECT 1 FROM "B" LIMIT 1 ) ))",
         "all of them: what counts is whether there are rows"},
        {"x IN (SELECT A.x FROM A, B WHERE (A.y BETWEEN 1 AND -2 OR NOT A.z LIKE 'u%' AND A.z IS NOT NULL) "
         "AND "
         "A.z IN (1, 2))",
         R"("x" IN ( SELECT "A"."x" FROM "A" , ( SELECT 1 FROM "B" LIMIT 1 ) WHERE ( "A"."y" BETWEEN ? AND ? )"
         R"(OR NOT "A"."z" LIKE ? AND "A"."z" IS NOT NULL ) AND "A"."z" IN ( ? , ? ) ))",
         "any condition"},
        {"x IN (SELECT A.x FROM A, B WHERE A.y IN (SELECT B.y FROM B WHERE B.z = 1))",
         R"("x" IN ( SELECT "A"."x" FROM "A" , ( SELECT 1 FROM "B" LIMIT 1 ) WHERE "A"."y" IN )"
         R"(( SELECT "B"."y" FROM "B" WHERE "B"."z" = ? ) ))",
         "the inner B is a table of its own"},
        {"x IN (SELECT A.x FROM A, B WHERE EXISTS (SELECT 1 FROM C WHERE C.y = A.y))",
         R"("x" IN ( SELECT "A"."x" FROM "A" , ( SELECT 1 FROM "B" LIMIT 1 ) WHERE EXISTS )"
         R"(( SELECT 1 FROM "C" WHERE "C"."y" = "A"."y" ) ))",
         "the inner query uses another table"},
        {"x IN (SELECT y FROM T WHERE y IN (SELECT A.x FROM A, B))",
         R"("x" IN ( SELECT "y" FROM "T" WHERE "y" IN ( SELECT "A"."x" FROM "A" , ( SELECT 1 FROM "B" LIMIT 1 ) ) ))",
         "in a subquery that is itself left alone"},
        {"x IN (SELECT A.x FROM A, B WHERE A.y IN (SELECT C.y FROM C, B))",
         R"("x" IN ( SELECT "A"."x" FROM "A" , ( SELECT 1 FROM "B" LIMIT 1 ) WHERE "A"."y" IN )"
         R"(( SELECT "C"."y" FROM "C" , ( SELECT 1 FROM "B" LIMIT 1 ) ) ))",
         "in both"},
        {"x IN (SELECT A.x FROM A, B) AND x IN (SELECT B.x FROM A, B)",
         R"("x" IN ( SELECT "A"."x" FROM "A" , ( SELECT 1 FROM "B" LIMIT 1 ) ) AND )"
         R"("x" IN ( SELECT "B"."x" FROM ( SELECT 1 FROM "A" LIMIT 1 ) , "B" ))",
         "each list for itself"},
    };
    expect_conditions(rows);
}

TEST(TsqlCrossProduct, DoesSoInADeletion) {
    EXPECT_EQ(
        translated("DELETE T WHERE x IN (SELECT A.x FROM A, B)"),
        R"(DELETE FROM "T" WHERE rowid IN ( SELECT rowid FROM "T" WHERE "x" IN ( SELECT "A"."x" FROM "A" , ( SELECT 1 FROM "B" LIMIT 1 ) ) ))");
}

TEST(TsqlCrossProduct, LeavesATableWhoseColumnsMayBeUsed) {
    constexpr Row rows[] = {
        {"x IN (SELECT A.x FROM A, B WHERE A.y = B.y)",
         R"("x" IN ( SELECT "A"."x" FROM "A" , "B" WHERE "A"."y" = "B"."y" ))", "used in the condition"},
        {"x IN (SELECT A.x FROM A, B WHERE A.y = b.y)",
         R"("x" IN ( SELECT "A"."x" FROM "A" , "B" WHERE "A"."y" = "b"."y" ))", "in other letters"},
        {"x IN (SELECT y FROM A, B)", R"("x" IN ( SELECT "y" FROM "A" , "B" ))", "a column of either table"},
        {"x IN (SELECT A.x FROM A, B WHERE y = 1)",
         R"("x" IN ( SELECT "A"."x" FROM "A" , "B" WHERE "y" = ? ))", "likewise in the condition"},
        {"x IN (SELECT A.x FROM A, B WHERE A.y IN (SELECT y FROM C))",
         R"("x" IN ( SELECT "A"."x" FROM "A" , "B" WHERE "A"."y" IN ( SELECT "y" FROM "C" ) ))",
         "C may have no y, then it is B's"},
        {"x IN (SELECT A.x FROM A, B WHERE EXISTS (SELECT 1 FROM C WHERE C.y = B.y))",
         R"("x" IN ( SELECT "A"."x" FROM "A" , "B" WHERE EXISTS ( SELECT 1 FROM "C" WHERE "C"."y" = "B"."y" ) ))",
         "used by an inner query"},
        {"x IN (SELECT A.x FROM A, B WHERE EXISTS (SELECT 1 FROM C WHERE C.y IN (SELECT B.y FROM D)))",
         R"("x" IN ( SELECT "A"."x" FROM "A" , "B" WHERE EXISTS ( SELECT 1 FROM "C" WHERE "C"."y" IN )"
         R"(( SELECT "B"."y" FROM "D" ) ) ))",
         "by one within it"},
        {"x IN (SELECT A.x FROM A, B WHERE EXISTS (SELECT B.y FROM C B))",
         R"("x" IN ( SELECT "A"."x" FROM "A" , "B" WHERE EXISTS ( SELECT "B"."y" FROM "C" AS "B" ) ))",
         "the inner B may have no y, then it is the outer B's"},
        {"x IN (SELECT * FROM A, B)", R"("x" IN ( SELECT * FROM "A" , "B" ))", "all columns"},
        {"x IN (SELECT A.* FROM A, B)", R"("x" IN ( SELECT "A".* FROM "A" , "B" ))",
         "all columns of a table"},
    };
    expect_conditions(rows);
}

TEST(TsqlCrossProduct, LeavesASubqueryInWhichRepeatedRowsMayCount) {
    constexpr Row rows[] = {
        {"x IN (SELECT COUNT(*) FROM A, B)", R"("x" IN ( SELECT COUNT ( * ) FROM "A" , "B" ))",
         "counted rows"},
        {"x IN (SELECT SUM(A.x) FROM A, B)", R"("x" IN ( SELECT SUM ( "A"."x" ) FROM "A" , "B" ))", "a sum"},
        {"x IN (SELECT (SELECT SUM(A.x) FROM C) FROM A, B)",
         R"("x" IN ( SELECT ( SELECT SUM ( "A"."x" ) FROM "C" ) FROM "A" , "B" ))",
         "a sum over A and B, although it stands inside"},
        {"x IN (SELECT TOP 2 A.x FROM A, B)", R"("x" IN ( SELECT "A"."x" FROM "A" , "B" LIMIT 2 ))",
         "two rows of the product"},
        {"x IN (SELECT TOP 2 A.x FROM A, B ORDER BY A.x)",
         R"("x" IN ( SELECT "A"."x" FROM "A" , "B" ORDER BY "A"."x" LIMIT 2 ))", "likewise"},
        {"x IN (SELECT A.x FROM A, B GROUP BY A.x)",
         R"("x" IN ( SELECT "A"."x" FROM "A" , "B" GROUP BY "A"."x" ))", "groups"},
        {"x IN (SELECT DISTINCT A.x FROM A, B)", R"("x" IN ( SELECT DISTINCT "A"."x" FROM "A" , "B" ))",
         "SQLite sees to that"},
        {"x IN (SELECT A.x FROM A, B UNION SELECT C.x FROM C, D)",
         R"("x" IN ( SELECT "A"."x" FROM "A" , "B" UNION SELECT "C"."x" FROM "C" , "D" ))", "joined queries"},
        {"x IN ((SELECT A.x FROM A, B) EXCEPT (SELECT C.x FROM C, D))",
         R"("x" IN ( SELECT "A"."x" FROM "A" , "B" EXCEPT SELECT "C"."x" FROM "C" , "D" ))",
         "joined queries in parentheses"},
    };
    expect_conditions(rows);
}

TEST(TsqlCrossProduct, LeavesAnyListOfTablesThatIsNotPlain) {
    constexpr Row rows[] = {
        {"x IN (SELECT 1 FROM A)", R"("x" IN ( SELECT 1 FROM "A" ))", "one table is no product"},
        {"x IN (SELECT A.x FROM A, B C)", R"("x" IN ( SELECT "A"."x" FROM "A" , "B" AS "C" ))", "alias"},
        {"x IN (SELECT A.x FROM A AS D, B)", R"("x" IN ( SELECT "A"."x" FROM "A" AS "D" , "B" ))",
         "alias of another table"},
        {"x IN (SELECT A.x FROM A, B, b)", R"("x" IN ( SELECT "A"."x" FROM "A" , "B" , "b" ))",
         "table listed twice"},
        {"x IN (SELECT A.x FROM A CROSS JOIN B)", R"("x" IN ( SELECT "A"."x" FROM "A" CROSS JOIN "B" ))",
         "join"},
        {"x IN (SELECT A.x FROM A JOIN C ON A.y = C.y, B)",
         R"("x" IN ( SELECT "A"."x" FROM "A" JOIN "C" ON "A"."y" = "C"."y" , "B" ))", "join beside it"},
        {"x IN (SELECT A.x FROM (A JOIN C ON A.y = C.y), B)",
         R"("x" IN ( SELECT "A"."x" FROM "A" JOIN "C" ON "A"."y" = "C"."y" , "B" ))", "in parentheses"},
        {"x IN (SELECT A.x FROM A, B, (SELECT C.x FROM C) D)",
         R"("x" IN ( SELECT "A"."x" FROM "A" , "B" , ( SELECT "C"."x" FROM "C" ) AS "D" ))", "derived table"},
        {"x IN (SELECT A.x FROM A, B WHERE EXISTS (SELECT 1 FROM C D))",
         R"("x" IN ( SELECT "A"."x" FROM "A" , "B" WHERE EXISTS ( SELECT 1 FROM "C" AS "D" ) ))",
         "alias in an inner query"},
    };
    expect_conditions(rows);
}

TEST(TsqlCrossProduct, LeavesEverySelectThatIsNoListOfIn) {
    constexpr Row rows[] = {
        {"x = (SELECT A.x FROM A, B)", R"("x" = ( SELECT "A"."x" FROM "A" , "B" ))", "single value"},
        {"x IN ((SELECT A.x FROM A, B), 3)", R"("x" IN ( ( SELECT "A"."x" FROM "A" , "B" ) , ? ))",
         "single value in a list"},
        {"EXISTS (SELECT A.x FROM A, B)", R"(EXISTS ( SELECT "A"."x" FROM "A" , "B" ))", "existence"},
    };
    expect_conditions(rows);
    EXPECT_EQ(translated("SELECT A.x FROM A, B"), R"(SELECT "A"."x" FROM "A" , "B")");
    EXPECT_EQ(translated("SELECT C.x FROM (SELECT A.x FROM A, B) C"),
              R"(SELECT "C"."x" FROM ( SELECT "A"."x" FROM "A" , "B" ) AS "C")");
}

TEST(TsqlCrossProduct, DoesNotExhaustTheStack) {
    std::string sql = "(SELECT A.x FROM A";
    for (int i = 0; i < 100000; ++i) sql += " WHERE A.x IN (SELECT A.x FROM A";
    sql += std::string(100001, ')');
    EXPECT_TRUE(repeating_tables(tokenize(sql), 0).empty());
}

}  // namespace
}  // namespace prot
