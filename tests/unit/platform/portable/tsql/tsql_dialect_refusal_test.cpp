#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "platform/automation/error.h"
#include "platform/portable/tsql/tsql_dialect.h"
#include "platform/portable/tsql/tsql_refusal.h"

namespace prot {
namespace {

using testing::EndsWith;
using testing::HasSubstr;

struct Row {
    const char* sql;
    const char* place;
    const char* why;
};

void expect_refused(const Row& row) {
    try {
        const auto statements = translate_tsql(row.sql);
        ADD_FAILURE() << row.why << ": " << statements.front().text;
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.number(), statement_refused) << row.why;
        EXPECT_EQ(error.source(), "SQLite") << row.why;
        EXPECT_THAT(error.description(), HasSubstr(row.place)) << row.why;
        EXPECT_THAT(error.description(), EndsWith(std::string("Anweisung: ") + row.sql)) << row.why;
    }
}

constexpr Row broken[] = {
    {"", "Spalte 1, am Ende", "no statement"},
    {" ; -- x", "am Ende", "only separators"},
    {"SELECT", "am Ende", "no columns"},
    {"SELECT a FROM", "am Ende", "no table"},
    {"SELECT a FROM T WHERE", "am Ende", "no condition"},
    {"SELECT a FROM T WHERE a = 1 AND ", "am Ende", "condition breaks off"},
    {"SELECT a FROM T WHERE dcUser = 'O'Brien' AND b = 1", "Spalte 40, bei „' AND b = 1“",
     "text without an end"},
    {"SELECT a FROM T WHERE dcUser = 'O'B'rien' AND b = 1", "Spalte 35, bei „B“",
     "even number of apostrophes"},
    {"DELETE T WHERE dcUser = 'O'Brien'", "Spalte 33, bei „'“", "odd number of apostrophes"},
    {"SELECT a FROM T WHERE dcUser = 'O' SELECT ' AND b = '1'", "bei „'“",
     "apostrophe and keyword in a name"},
    {"SELECT a FROM T WHERE a IN ()", "Spalte 29, bei „)“", "the server takes no empty list, SQLite does"},
    {"SELECT a FROM T WHERE  dlEvent IN) AND b = 1", "bei „)“", "list broken off"},
    {"SELECT a b c FROM T", "bei „c“", "two aliases"},
    {"SELECT a FROM T\nWHERE b = 1 c", "Zeile 2, Spalte 13, bei „c“", "something behind the condition"},
    {"SELECT a FROM T WHERE b = 1e999", "bei „1e999“", "number too large"},
    {"SELECT a FROM (T)", "bei „)“", "parentheses around a table that is joined to nothing"},
    {"SELECT a FROM A JOIN B", "am Ende", "INNER JOIN without ON"},
    {"SELECT a FROM (SELECT a FROM T)", "am Ende", "derived table without name"},
    {"SELECT a FROM T WHERE a", "am Ende", "a value is no condition"},
    {"SELECT a FROM T WHERE a AND b = 1", "bei „AND“", "a value is no condition, left of AND"},
    {"SELECT a FROM T WHERE b = 1 AND a ORDER BY a", "bei „ORDER“", "nor right of it"},
    {"SELECT a FROM T WHERE a OR b = 1", "bei „OR“", "nor left of OR"},
    {"SELECT a FROM T WHERE b = 1 OR a ORDER BY a", "bei „ORDER“", "nor right of it"},
    {"SELECT a FROM T WHERE NOT a", "am Ende", "nor behind NOT"},
    {"SELECT a FROM T JOIN U ON a", "am Ende", "nor behind ON"},
    {"SELECT a FROM T GROUP BY a HAVING a", "am Ende", "nor behind HAVING"},
    {"SELECT a FROM T WHERE (a = 1) = 2", "bei „=“", "a condition is no value"},
    {"SELECT a FROM T WHERE 1 = (a = 1)", "bei „(“", "nor on the right"},
    {"SELECT a FROM T WHERE a BETWEEN 1 AND (b = 2)", "bei „(“", "nor a bound"},
    {"SELECT a FROM T WHERE a IN (1, (b = 2))", "bei „(“", "nor in a list"},
    {"SELECT a FROM T WHERE NOT NOT a = 1", "bei „NOT“", "the server takes one NOT"},
    {"SELECT (a = 1) FROM T", "bei „(“", "a condition is no column"},
    {"SELECT x = a FROM T", "bei „=“", "alias on the server, comparison in SQLite"},
    {"SELECT a FROM T WHERE EXISTS (1)", "bei „(“", "EXISTS needs a query"},
    {"SELECT COUNT() FROM T", "bei „)“", "COUNT without a value"},
    {"SELECT MAX(*) FROM T", "bei „*“", "only COUNT counts rows"},
    {"SELECT MIN(*) FROM T", "bei „*“", "likewise"},
    {"SELECT SUM(*) FROM T", "bei „*“", "likewise"},
    {"SELECT MAX(a, b) FROM T", "bei „,“", "the largest of several values in SQLite only"},
};

constexpr Row unsupported[] = {
    {"INSERT INTO T VALUES (1)", "bei „INSERT“", "INSERT"},
    {"UPDATE T SET a = 1", "bei „UPDATE“", "UPDATE"},
    {"SELECT a FROM T EXEC p", "bei „EXEC“", "procedure behind a query"},
    {"PRAGMA journal_mode", "bei „PRAGMA“", "SQLite's own statement"},
    {"ATTACH 'x' AS y", "bei „ATTACH“", "SQLite's own statement"},
    {"WITH c AS (SELECT 1) SELECT 1", "bei „WITH“", "common table expression"},
    {"DROP TABLE T", "bei „T“", "a real table"},
    {"DROP TABLE IF EXISTS T", "bei „T“", "a real table"},
    {"DROP TABLE ##t", "bei „##t“", "table of all connections"},
    {"DROP TABLE #a, #b", "bei „,“", "several at once"},
    {"DROP VIEW v", "bei „VIEW“", "not a table"},
    {"SELECT a INTO T FROM U", "bei „T“", "into a real table"},
    {"SELECT COUNT(*) INTO #t FROM U", "bei „INTO“", "column without name"},
    {"SELECT a FROM T WHERE a IN (SELECT a INTO #t FROM U)", "bei „INTO“", "in a subquery"},
    {"SELECT a FROM T UNION SELECT a INTO #t FROM U", "bei „INTO“", "not in the first SELECT"},
    {"SELECT TOP 10 PERCENT a FROM T", "bei „PERCENT“", "share of the rows"},
    {"SELECT TOP 1 WITH TIES a FROM T ORDER BY a", "bei „WITH“", "ties"},
    {"SELECT TOP 1.5 a FROM T", "bei „1.5“", "no whole number"},
    {"SELECT TOP 9999999999999999999 a FROM T", "bei „9999999999999999999“", "beyond 64 bits"},
    {"DELETE TOP (1) T", "bei „TOP“", "DELETE with TOP"},
    {"DELETE T FROM T JOIN U ON T.a = U.a", "bei „FROM“", "DELETE with joins"},
    {"SELECT a FROM T CROSS APPLY f(a)", "bei „APPLY“", "APPLY"},
    {"SELECT a FROM T FULL OUTER JOIN U ON T.a = U.a", "bei „FULL“", "full join"},
    {"SELECT a FROM T RIGHT JOIN U ON T.a = U.a", "bei „RIGHT“", "right join"},
    {"SELECT a FROM dbo.T", "bei „.“", "schema"},
    {"SELECT dbo.T.a FROM T", "bei „.“", "schema of a column"},
    {"SELECT a FROM T WITH (NOLOCK)", "bei „WITH“", "table hint"},
    {"SELECT a FROM T (NOLOCK)", "bei „(“", "table hint, old form"},
    {"SELECT a FROM f(1)", "bei „(“", "table function"},
    {"SELECT a + b FROM T", "bei „+“", "joins texts on the server"},
    {"SELECT a FROM T WHERE d > e - 1", "bei „-“", "moves a date on the server"},
    {"SELECT a * 2 FROM T", "bei „*“", "arithmetic"},
    {"SELECT a / 2 FROM T", "bei „/“", "arithmetic"},
    {"SELECT a % 2 FROM T", "bei „%“", "arithmetic"},
    {"SELECT a & 2 FROM T", "bei „&“", "arithmetic of bits"},
    {"SELECT a | 2 FROM T", "bei „|“", "arithmetic of bits"},
    {"SELECT a ^ 2 FROM T", "bei „^“", "arithmetic of bits"},
    {"SELECT a ~ 2 FROM T", "bei „~“", "arithmetic of bits"},
    {"SELECT ~a FROM T", "bei „~“", "arithmetic of bits"},
    {"SELECT a FROM T EXCEPT ALL SELECT a FROM U", "bei „ALL“", "only UNION takes ALL"},
    {"SELECT a FROM T INTERSECT ALL SELECT a FROM U", "bei „ALL“", "only UNION takes ALL"},
    {"SELECT LEN(a) FROM T", "bei „LEN“", "function of the server's"},
    {"SELECT AVG(a) FROM T", "bei „AVG“", "rounds whole numbers on the server"},
    {"SELECT length(a) FROM T", "bei „length“", "function of SQLite's"},
    {"SELECT [COUNT](*) FROM T", "bei „(“", "function in brackets"},
    {"SELECT COUNT(*) OVER (ORDER BY a) FROM T", "bei „OVER“", "window"},
    {"SELECT CASE WHEN a = 1 THEN 2 END FROM T", "bei „CASE“", "CASE"},
    {"SELECT a FROM T WHERE a LIKE '[ab]%'", "bei „'[ab]%'“", "a set of characters on the server only"},
    {"SELECT a FROM T WHERE a LIKE b", "bei „b“", "pattern from a column may hold sets"},
    {"SELECT a FROM T WHERE a LIKE 'x' ESCAPE '!'", "bei „ESCAPE“", "escape character"},
    {"SELECT a FROM T WHERE a = ANY (SELECT b FROM U)", "bei „ANY“", "ANY"},
    {"SELECT a FROM T WHERE (a, b) IN (SELECT c, d FROM U)", "bei „,“", "row values"},
    {"SELECT a FROM T WHERE a IN U", "bei „U“", "SQLite's short form"},
    {"SELECT a FROM T WHERE a == 1", "bei „=“", "SQLite's operator"},
    {"SELECT a FROM T WHERE a !< 1", "bei „!<“", "operator of the server's only"},
    {"SELECT a FROM T WHERE a !> 1", "bei „!>“", "operator of the server's only"},
    {"SELECT a FROM T WHERE a COLLATE x = 1", "bei „COLLATE“", "collation"},
    {"SELECT a FROM T LIMIT 1", "bei „1“", "LIMIT is an alias on the server"},
    {"SELECT a FROM T ORDER BY a OFFSET 1 ROWS", "bei „OFFSET“", "OFFSET"},
    {"SELECT a FROM T ORDER BY 'x'", "bei „'x'“", "constant order"},
    {"SELECT a FROM T GROUP BY 1", "bei „1“", "a position in SQLite only"},
    {"SELECT a FROM T HAVING COUNT(*) > 1", "bei „HAVING“", "HAVING without GROUP BY"},
    {"SELECT a FROM T WHERE b IN (SELECT c FROM U ORDER BY c)", "bei „ORDER“", "order of a set"},
    {"SELECT a FROM T UNION SELECT b FROM U INTERSECT SELECT c FROM V", "bei „INTERSECT“",
     "goes first on the server, last in SQLite"},
    {"SELECT user FROM T", "bei „user“", "a keyword of the server's needs brackets"},
    {"SELECT CURRENT_TIMESTAMP", "bei „CURRENT_TIMESTAMP“", "function without parentheses"},
};

TEST(TsqlDialect, RefusesABrokenStatementWithItsPlace) {
    for (const Row& row : broken) expect_refused(row);
}

TEST(TsqlDialect, RefusesWhatSqliteCannotDoOrWouldDoOtherwise) {
    for (const Row& row : unsupported) expect_refused(row);
}

TEST(TsqlDialect, RefusesTheWholeBatchForOneStatement) {
    EXPECT_THROW(translate_tsql("DELETE T; DELETE U WHERE a +"), AutomationError);
}

TEST(TsqlDialect, RefusesBottomlessNestingInsteadOfExhaustingTheStack) {
    const std::size_t depth = 100000;
    const std::string deep =
        "SELECT a FROM T WHERE " + std::string(depth, '(') + "a = 1" + std::string(depth, ')');
    EXPECT_THROW(translate_tsql(deep), AutomationError);
    std::string queries = "SELECT a FROM T WHERE a = 1";
    for (int i = 0; i < 500; ++i) queries = "SELECT a FROM T WHERE a IN (" + queries + ")";
    EXPECT_THROW(translate_tsql(queries), AutomationError);
}

}  // namespace
}  // namespace prot
