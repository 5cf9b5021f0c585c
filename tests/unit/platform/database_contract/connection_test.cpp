#include <gmock/gmock.h>

#include <functional>

#include "tests/unit/platform/database_contract/contract_fixture.h"

namespace prot {
namespace {

using testing::ElementsAre;

using DatabaseContractConnection = DatabaseContract;

TEST_P(DatabaseContractConnection, ThatFailedAnswersEverythingWithItsError) {
    EXPECT_NO_THROW(database().require_connection());
    server().break_connections();
    EXPECT_NO_THROW(database().require_connection()) << "nothing was sent, so nothing is known";
    const AutomationError first = error_of([&] { database().query_array("SELECT id FROM T"); });
    EXPECT_LT(first.number(), 0);
    EXPECT_THAT(first.description(), testing::HasSubstr("SELECT id FROM T"));
    const std::function<void()> calls[] = {
        [&] { database().query_value("SELECT 1"); },
        [&] { database().query_array("SELECT id FROM Fehlt"); },
        [&] { database().query_array("nicht einmal eine Anweisung"); },
        [&] { database().execute("DROP TABLE IF EXISTS #t"); },
        [&] { database().require_connection(); },
        [&] { database().require_connection(); },
    };
    for (const auto& call : calls) {
        const AutomationError later = error_of(call);
        EXPECT_EQ(later.number(), first.number());
        EXPECT_EQ(later.source(), first.source());
        EXPECT_EQ(later.description(), first.description());
    }
}

TEST_P(DatabaseContractConnection, FailsForWhicheverCallComesFirst) {
    const auto second = server().connect();
    const auto third = server().connect();
    server().break_connections();
    EXPECT_LT(error_of([&] { second->query_value("SELECT id FROM T"); }).number(), 0);
    EXPECT_LT(error_of([&] { second->require_connection(); }).number(), 0);
    EXPECT_LT(error_of([&] { third->execute("DELETE T WHERE id = 1"); }).number(), 0);
    EXPECT_LT(error_of([&] { third->require_connection(); }).number(), 0);
    EXPECT_NO_THROW(database().require_connection()) << "its own statement has not failed";
}

TEST_P(DatabaseContractConnection, AnswersTheSameWithinABracketOfLookups) {
    database().begin_lookups();
    EXPECT_EQ(database().query_value("SELECT name FROM T WHERE id = 1"), Value("Müller"));
    EXPECT_LT(error_of([&] { database().query_value("SELECT x FROM Fehlt"); }).number(), 0);
    EXPECT_THAT(rows("SELECT id FROM T ORDER BY id"), ElementsAre("1", "2", "3"))
        << "a failed look-up ends neither the bracket nor the connection";
    EXPECT_NO_THROW(database().require_connection());
    database().end_lookups();
    EXPECT_EQ(database().query_value("SELECT name FROM T WHERE id = 1"), Value("Müller"));
    EXPECT_NO_THROW(database().execute("DELETE T WHERE id = 1")) << "nothing stays locked";
    set_up("UPDATE T SET name = " + server().literal("neu"));
}

TEST_P(DatabaseContractConnection, KeepsATemporaryTableThatWasMadeWithinABracket) {
    database().begin_lookups();
    database().execute("SELECT id INTO #t FROM T WHERE id = 1");
    EXPECT_THAT(rows("SELECT id FROM #t"), ElementsAre("1"));
    database().end_lookups();
    EXPECT_THAT(rows("SELECT id FROM #t"), ElementsAre("1"));
}

TEST_P(DatabaseContractConnection, SeesOneStateWithinABracketAndTheNewOneBehindIt) {
    if (!GetParam().lookups_see_one_state) GTEST_SKIP() << "the server has no such thing";
    const std::string name = "SELECT name FROM T WHERE id = 1";
    const std::string deletion = "DELETE FROM T WHERE id = 2";
    for (const char* const before : {"Müller", "zum zweiten"}) {
        database().begin_lookups();
        server().run("UPDATE T SET name = " + server().literal("dazwischen"));
        EXPECT_EQ(database().query_value(name), Value(before)) << "also where nothing was asked yet";
        server().run(deletion);
        EXPECT_EQ(rows("SELECT id FROM T").size(), 3U);
        database().end_lookups();
        set_up("UPDATE T SET name = " + server().literal("zum zweiten"));
        EXPECT_EQ(database().query_value(name), Value("zum zweiten"));
    }
}

INSTANTIATE_TEST_SUITE_P(Every, DatabaseContractConnection, testing::ValuesIn(database_implementations()),
                         implementation_name);

}  // namespace
}  // namespace prot
