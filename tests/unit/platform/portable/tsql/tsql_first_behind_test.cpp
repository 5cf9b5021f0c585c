#include "platform/portable/tsql/tsql_first_behind.h"

#include <gtest/gtest.h>

namespace prot {
namespace {

TEST(TsqlFirstBehind, GivesTheQueryWithThePlaceOfItsAnswer) {
    struct Row {
        std::string_view query, with_place, from_bound;
    };
    const Row rows[] = {
        {"SELECT TOP 1 dmData FROM tProtokoll WHERE dcTable = 'T' AND dlPrimaryKey1 = 5 AND ddDatum >= "
         "'2026-01-01' AND dmData LIKE '%x%' ORDER BY ddDatum ASC",
         "SELECT TOP 1 dmData, ddDatum FROM tProtokoll WHERE dcTable = 'T' AND dlPrimaryKey1 = 5 AND ddDatum "
         ">= '2026-01-01' AND dmData LIKE '%x%' ORDER BY ddDatum ASC",
         "'2026-01-01' AND dmData LIKE '%x%' ORDER BY ddDatum ASC"},
        {"select top 1 a from T where c >= 'x' order by C",
         "select top 1 a, C from T where c >= 'x' order by C", "'x' order by C"},
        {"SELECT TOP 1 [a b] FROM T WHERE \"c\" >= N'x' AND d < 1.5 ORDER BY [c]",
         "SELECT TOP 1 [a b], [c] FROM T WHERE \"c\" >= N'x' AND d < 1.5 ORDER BY [c]",
         "'x' AND d < 1.5 ORDER BY [c]"},
        {"SELECT TOP 1 a /* , */ FROM T WHERE d <> 2 AND c >= 'x' ORDER BY c",
         "SELECT TOP 1 a, c /* , */ FROM T WHERE d <> 2 AND c >= 'x' ORDER BY c", "'x' ORDER BY c"},
        {"SELECT TOP 1 a FROM T WHERE d >= 2 AND c >= 'x' ORDER BY c",
         "SELECT TOP 1 a, c FROM T WHERE d >= 2 AND c >= 'x' ORDER BY c", "'x' ORDER BY c"},
    };
    for (const auto& [query, with_place, from_bound] : rows) {
        const auto found = find_first_behind(query);
        ASSERT_TRUE(found) << query;
        EXPECT_EQ(found->with_place, with_place);
        EXPECT_EQ(query.substr(found->bound), from_bound);
    }
}

TEST(TsqlFirstBehind, KnowsNoOtherQueries) {
    const std::string_view queries[] = {
        "SELECT a FROM T WHERE c >= 'x' ORDER BY c",
        "SELECT TOP 2 a FROM T WHERE c >= 'x' ORDER BY c",
        "SELECT DISTINCT TOP 1 a FROM T WHERE c >= 'x' ORDER BY c",
        "SELECT TOP 1 a, b FROM T WHERE c >= 'x' ORDER BY c",
        "SELECT TOP 1 * FROM T WHERE c >= 'x' ORDER BY c",
        "SELECT TOP 1 MAX(a) FROM T WHERE c >= 'x' ORDER BY c",
        "SELECT TOP 1 a FROM T, U WHERE c >= 'x' ORDER BY c",
        "SELECT TOP 1 a FROM T WHERE c >= 'x'",
        "SELECT TOP 1 a FROM T WHERE c >= 'x' ORDER BY d",
        "SELECT TOP 1 a FROM T WHERE c >= 'x' ORDER BY c DESC",
        "SELECT TOP 1 a FROM T WHERE c >= 'x' ORDER BY c, d",
        "SELECT TOP 1 a FROM T WHERE c > 'x' ORDER BY c",
        "SELECT TOP 1 a FROM T WHERE c <= 'x' ORDER BY c",
        "SELECT TOP 1 a FROM T WHERE c >= 5 ORDER BY c",
        "SELECT TOP 1 a FROM T WHERE c >= d ORDER BY c",
        "SELECT TOP 1 a FROM T WHERE NOT c >= 'x' ORDER BY c",
        "SELECT TOP 1 a FROM T WHERE c >= 'x' OR d = 1 ORDER BY c",
        "SELECT TOP 1 a FROM T WHERE (c >= 'x') ORDER BY c",
        "SELECT TOP 1 a FROM T WHERE c >= 'x' AND c <= 'y' ORDER BY c",
        "SELECT TOP 1 a FROM T WHERE c >= 'x' AND c >= 'y' ORDER BY c",
        "SELECT TOP 1 a FROM T WHERE c LIKE 'x%' AND c >= 'y' ORDER BY c",
        "SELECT TOP 1 a FROM T WHERE c >= 'x' AND d IN (SELECT e FROM U) ORDER BY c",
        "SELECT TOP 1 a FROM T WHERE c >= 'x' AND d = e ORDER BY c",
        "SELECT TOP 1 a FROM T WHERE c >= 'x' GROUP BY a ORDER BY c",
        "SELECT TOP 1 a FROM T WHERE c >= 'x' UNION SELECT a FROM T ORDER BY c",
        "SELECT TOP 1 a FROM T ORDER BY c",
    };
    for (const std::string_view query : queries) EXPECT_FALSE(find_first_behind(query)) << query;
}

}  // namespace
}  // namespace prot
