#include <gmock/gmock.h>

#include <functional>

#include "tests/unit/platform/database_contract/contract_fixture.h"

namespace prot {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class DatabaseContractStatements : public DatabaseContract {
protected:
    /// Whether the statement is an error that says so, after which the connection goes on.
    void expect_statement_error(const std::string& sql, const std::function<void()>& call) {
        const AutomationError error = error_of(call);
        EXPECT_LT(error.number(), 0) << "the server's number, as automation errors are";
        EXPECT_FALSE(error.source().empty());
        EXPECT_THAT(error.description(), HasSubstr(sql));
        EXPECT_GT(error.description().size(), sql.size()) << "the server's text stands beside it";
        EXPECT_NO_THROW(database().require_connection());
        EXPECT_EQ(database().query_value("SELECT COUNT(*) FROM T"), Value(std::int64_t{3}));
    }
};

TEST_P(DatabaseContractStatements, ChooseTheRowsOfADeletionBeforeTheFirstIsDeleted) {
    make_table("R", {{"id", ColumnKind::integer}, {"parent", ColumnKind::integer}},
               {{std::int64_t{1}, std::int64_t{0}},
                {std::int64_t{2}, std::int64_t{1}},
                {std::int64_t{3}, std::int64_t{2}},
                {std::int64_t{4}, std::int64_t{9}}});
    database().execute(
        "DELETE R WHERE parent = 0 OR (parent > 0 AND parent IN (SELECT id FROM R WHERE id < 9))");
    EXPECT_THAT(rows("SELECT id FROM R"), ElementsAre("4"));
}

TEST_P(DatabaseContractStatements, MeanWhatTheyMeanInTransactSql) {
    make_table("U", {{"tid", ColumnKind::integer}, {"label", ColumnKind::text}},
               {{std::int64_t{2}, "zwei"}, {std::int64_t{2}, "noch einmal"}, {std::int64_t{9}, "fremd"}});
    const struct {
        const char* sql;
        std::vector<std::string> rows;
        const char* why;
    } cases[] = {
        {"SELECT TOP 2 id FROM T ORDER BY id DESC", {"3", "2"}, "TOP after ORDER BY"},
        {"SELECT TOP 1 id FROM T WHERE id > 1 ORDER BY id ASC", {"2"}, "TOP after WHERE"},
        {"SELECT id FROM T WHERE name = 'DREI'", {"3"}, "letters in any case"},
        {"SELECT id FROM T WHERE name = 'Müller'", {"1"}, "umlauts"},
        {"SELECT id FROM T WHERE name <> 'Zwei' AND NOT id = 1", {"3"}, "AND, NOT and unequal"},
        {"SELECT id FROM T WHERE amount IS NULL", {"1"}, "IS NULL"},
        {"SELECT id FROM T WHERE amount IS NOT NULL AND amount < -0.5", {"3"}, "a negative real"},
        {"SELECT id FROM T WHERE amount = NULL", {}, "nothing equals Null"},
        {"SELECT id FROM T WHERE id IN (1, 3) ORDER BY id", {"1", "3"}, "a list"},
        {"SELECT id FROM T WHERE id BETWEEN 2 AND 3 ORDER BY id", {"2", "3"}, "both bounds count"},
        {"SELECT id FROM T WHERE id IN (SELECT tid FROM U)", {"2"}, "a subquery"},
        {"SELECT id FROM T WHERE id IN ((SELECT tid FROM U))", {"2"}, "in more parentheses, too"},
        {"SELECT id FROM T WHERE NOT EXISTS (SELECT tid FROM U WHERE U.tid = T.id) ORDER BY id",
         {"1", "3"},
         "EXISTS"},
        {"SELECT T.id, U.[label] FROM T INNER JOIN U ON U.tid = T.id ORDER BY U.[label]",
         {"2|noch einmal", "2|zwei"},
         "a join, and a name in brackets"},
        {"SELECT T.id FROM T LEFT JOIN U ON U.tid = T.id WHERE U.tid IS NULL ORDER BY T.id",
         {"1", "3"},
         "a left join"},
        {"SELECT a.id FROM T a, T AS b WHERE a.id > b.id AND b.id = 2", {"3"}, "a table with itself"},
        {"SELECT DISTINCT tid FROM U ORDER BY tid", {"2", "9"}, "DISTINCT"},
        {"SELECT id FROM T WHERE id < 3 UNION SELECT tid FROM U ORDER BY 1", {"1", "2", "9"}, "UNION"},
        {"SELECT tid, COUNT(*) FROM U GROUP BY tid ORDER BY tid", {"2|2", "9|1"}, "GROUP BY"},
        {"SELECT MIN(id), MAX(id), SUM(id) FROM T", {"1|3|6"}, "aggregates"},
        {"SELECT id FROM T WHERE 1 = 2", {}, "a condition that never holds"},
        {"SELECT 'O''Brien', id FROM T WHERE id = 1 /* Kommentar */", {"O'Brien|1"}, "a doubled apostrophe"},
    };
    for (const auto& [sql, expected, why] : cases) EXPECT_EQ(rows(sql), expected) << why;
}

TEST_P(DatabaseContractStatements, ChangeWhatOthersSee) {
    database().execute("DELETE T WHERE id = 2");
    EXPECT_THAT(rows("SELECT id FROM T ORDER BY id"), ElementsAre("1", "3"));
    EXPECT_THAT(lines(server().connect()->query_array("SELECT id FROM T ORDER BY id")),
                ElementsAre("1", "3"));
    set_up("UPDATE T SET name = " + server().literal("geändert") + " WHERE id = 1");
    EXPECT_EQ(database().query_value("SELECT name FROM T WHERE id = 1"), Value("geändert"))
        << "and see what others change";
}

TEST_P(DatabaseContractStatements, OfABatchRunInTheirOrder) {
    database().execute(
        "DROP TABLE IF EXISTS #ids SELECT id INTO #ids FROM T WHERE id <= 2 "
        "DELETE T WHERE id = 1; DELETE T WHERE id IN (SELECT id FROM #ids)");
    EXPECT_THAT(rows("SELECT id FROM T"), ElementsAre("3"));
    EXPECT_THAT(rows("SELECT id FROM #ids ORDER BY id"), ElementsAre("1", "2"))
        << "filled before the deletions";
}

TEST_P(DatabaseContractStatements, ThatFailAreReportedWithTheirTextAndEndNothing) {
    const std::string missing = "SELECT id FROM Fehlt WHERE id = 7";
    expect_statement_error(missing, [&] { database().query_value(missing); });
    expect_statement_error(missing, [&] { database().query_array(missing); });
    const std::string column = "SELECT fehlt FROM T";
    expect_statement_error(column, [&] { database().query_array(column); });
    const std::string deletion = "DELETE Fehlt WHERE name = 'ä'";
    expect_statement_error(deletion, [&] { database().execute(deletion); });
    const std::string broken = "SELECT id FROM T WHERE name = 'O'Brien'";
    expect_statement_error(broken, [&] { database().query_array(broken); });
}

TEST_P(DatabaseContractStatements, ThatFailNameWhatIsMissing) {
    EXPECT_THAT(error_of([&] { database().query_array("SELECT 1 FROM Fehlt"); }).description(),
                testing::ContainsRegex("Fehlt.*SELECT 1 FROM Fehlt"));
    EXPECT_NE(error_of([&] { database().query_array("SELECT 1 FROM Fehlt"); }).number(),
              error_of([&] { database().query_array("SELECT 1 FROM T WHERE"); }).number());
}

TEST_P(DatabaseContractStatements, FindTheirTemporaryTableAsLongAsTheConnectionLives) {
    database().execute("SELECT id, name, made INTO #auswahl FROM T WHERE id <> 3");
    EXPECT_THAT(rows("SELECT id FROM #auswahl ORDER BY id"), ElementsAre("1", "2"));
    error_of([&] { database().query_array("SELECT id FROM Fehlt"); });
    database().execute("DELETE T WHERE id = 1");
    EXPECT_THAT(rows("SELECT id, name FROM #auswahl ORDER BY id"), ElementsAre("1|Müller", "2|Zwei"))
        << "a copy, whatever happens to the table";
    EXPECT_THAT(rows("SELECT T.id FROM T INNER JOIN #auswahl ON #auswahl.id = T.id"), ElementsAre("2"));
    database().execute("DELETE #auswahl WHERE id = 1");
    EXPECT_THAT(rows("SELECT id FROM #auswahl"), ElementsAre("2"));
}

TEST_P(DatabaseContractStatements, FindNoTemporaryTableOfAnotherConnection) {
    const auto other = server().connect();
    database().execute("SELECT id INTO #auswahl FROM T WHERE id = 1");
    EXPECT_LT(error_of([&] { other->query_array("SELECT id FROM #auswahl"); }).number(), 0);
    other->execute("SELECT id INTO #auswahl FROM T WHERE id = 2");
    EXPECT_THAT(rows("SELECT id FROM #auswahl"), ElementsAre("1")) << "each has its own";
    EXPECT_THAT(lines(other->query_array("SELECT id FROM #auswahl")), ElementsAre("2"));
}

TEST_P(DatabaseContractStatements, MayDropATemporaryTableOnceOrAsOftenAsTheyLike) {
    database().execute("DROP TABLE IF EXISTS #t");
    EXPECT_LT(error_of([&] { database().execute("DROP TABLE #t"); }).number(), 0);
    database().execute("SELECT id INTO #t FROM T");
    EXPECT_LT(error_of([&] { database().execute("SELECT id INTO #t FROM T"); }).number(), 0)
        << "it is there already";
    database().execute("DROP TABLE #t");
    EXPECT_LT(error_of([&] { database().query_array("SELECT id FROM #t"); }).number(), 0);
    database().execute("SELECT name INTO #t FROM T WHERE id = 1");
    EXPECT_THAT(rows("SELECT * FROM #t"), ElementsAre("Müller")) << "with other columns";
}

INSTANTIATE_TEST_SUITE_P(Every, DatabaseContractStatements, testing::ValuesIn(database_implementations()),
                         implementation_name);

using DatabaseContractTemporaryTables = DatabaseContract;

TEST_P(DatabaseContractTemporaryTables, KeepTheTypesOfTheirColumns) {
    database().execute("SELECT id, name, made INTO #auswahl FROM T WHERE id = 2");
    EXPECT_THAT(rows("SELECT id FROM #auswahl WHERE name = 'ZWEI'"), ElementsAre("2"))
        << "texts compare as they did";
    EXPECT_EQ(database().query_array("SELECT made FROM #auswahl").at(0, 0).type(), Cell::Type::date);
}

std::vector<DatabaseImplementation> with_types_in_temporary_tables() {
    std::vector<DatabaseImplementation> all;
    for (const DatabaseImplementation& one : database_implementations())
        if (one.temporary_columns_keep_types) all.push_back(one);
    return all;
}

INSTANTIATE_TEST_SUITE_P(Every, DatabaseContractTemporaryTables,
                         testing::ValuesIn(with_types_in_temporary_tables()), implementation_name);

}  // namespace
}  // namespace prot
