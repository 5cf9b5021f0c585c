#include "tests/unit/platform/portable/odbc/double_fixture.h"

namespace prot {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using OdbcConnectionsOnDouble = OdbcOnDouble;

TEST_F(OdbcConnectionsOnDouble, BeginWithGivingWayToOthers) {
    OdbcSource patient = source();
    patient.lock_seconds = 7;
    OdbcSource endless = source();
    endless.lock_seconds = 0;
    open_odbc_database(std::move(patient));
    open_odbc_database(std::move(endless));
    EXPECT_THAT(
        journal(),
        ElementsAre("1: [connect]", "1: SET DEADLOCK_PRIORITY LOW; SET LOCK_TIMEOUT 7000", "1: [disconnect]",
                    "2: [connect]", "2: SET DEADLOCK_PRIORITY LOW; SET LOCK_TIMEOUT -1", "2: [disconnect]"));
}

TEST_F(OdbcConnectionsOnDouble, ComeAboutThoughTheServerGreetsWithWarnings) {
    script("when\t[connect]\nwarn\t01000\t5701\tChanged database context.\t01000\t5703\tChanged language.\n");
    EXPECT_EQ(connect()->query_value("SELECT name FROM T WHERE id = 1"), Value("Name 1"));
}

TEST_F(OdbcConnectionsOnDouble, NameTheServerAsItCallsItself) {
    EXPECT_EQ(connect()->server_name(), "doppel\\suite");
}

TEST_F(OdbcConnectionsOnDouble, AreTwoWhereLookupsAreAskedWhileRowsAreRead) {
    const auto database = connect();
    const auto stream = database->query_rows("SELECT id FROM T ORDER BY id");
    stream->next_batch();
    EXPECT_EQ(database->query_value("SELECT name FROM T WHERE id = 1"), Value("Name 1"));
    EXPECT_EQ(database->query_value("SELECT name FROM T WHERE id = 2"), Value("Name 2"));
    stream->release();
    EXPECT_EQ(database->query_value("SELECT name FROM T WHERE id = 3"), Value("Name 3"));
    EXPECT_THAT(sent(),
                ElementsAre("1: SELECT id FROM T ORDER BY id", "2: SELECT name FROM T WHERE id = 1",
                            "2: SELECT name FROM T WHERE id = 2", "1: SELECT name FROM T WHERE id = 3"));
}

TEST_F(OdbcConnectionsOnDouble, KeepTemporaryTablesOnTheOneThatReadsTheRows) {
    const auto database = connect();
    const std::string batch = "DROP TABLE IF EXISTS #t SELECT id INTO #t FROM T WHERE id <= 300";
    const std::string query = "SELECT id FROM T WHERE id IN (SELECT id FROM #t)";
    database->execute(batch);
    for (int run = 0; run < 2; ++run) {
        const auto stream = database->query_rows(query);
        EXPECT_EQ(stream->next_batch().rows(), 256U);
        database->query_value("SELECT name FROM T WHERE id = 1");
        EXPECT_EQ(stream->next_batch().rows(), 44U);
    }
    EXPECT_THAT(sent(), ElementsAre("1: " + batch, "1: " + query, "2: SELECT name FROM T WHERE id = 1",
                                    "1: " + query, "2: SELECT name FROM T WHERE id = 1"));
}

TEST_F(OdbcConnectionsOnDouble, SendEachStatementOnceAsItIsWritten) {
    const auto database = connect();
    const std::string written = "SELECT TOP 1 [name] FROM T\r\n WHERE id = 5 /* fünf */ ORDER BY id ASC";
    const std::string line = "1: SELECT TOP 1 [name] FROM T   WHERE id = 5 /* fünf */ ORDER BY id ASC";
    EXPECT_EQ(database->query_value(written), Value("Name 5"));
    EXPECT_THAT(sent(), ElementsAre(line));
    forget_journal();
    EXPECT_THAT(lines(database->query_array(written)), ElementsAre("Name 5"));
    EXPECT_THAT(sent(), ElementsAre(line));
    forget_journal();
    const auto stream = database->query_rows(written);
    EXPECT_THAT(sent(), IsEmpty());
    EXPECT_THAT(lines(stream->next_batch()), ElementsAre("Name 5"));
    EXPECT_TRUE(stream->next_batch().empty());
    EXPECT_TRUE(stream->next_batch().empty());
    EXPECT_THAT(sent(), ElementsAre(line));
    forget_journal();
    database->execute("DELETE T WHERE id = 1 DELETE T WHERE id = 2");
    EXPECT_THAT(sent(), ElementsAre("1: DELETE T WHERE id = 1 DELETE T WHERE id = 2"));
    forget_journal();
    database->begin_lookups();
    database->end_lookups();
    database->require_connection();
    EXPECT_THAT(journal(), IsEmpty());
}

TEST_F(OdbcConnectionsOnDouble, ThatMayOnlyReadSendNoDeletion) {
    const auto database = connect(OdbcAccess::read_only);
    for (const char* const deletion :
         {"DELETE T WHERE id = 1", "DELETE #t", "SELECT id INTO #t FROM T DELETE T WHERE id = 1",
          "UPDATE T SET name = 'x'", "DROP TABLE T", "EXEC sp_who"}) {
        const AutomationError error = error_of([&] { database->execute(deletion); });
        EXPECT_LT(error.number(), 0) << deletion;
        EXPECT_THAT(error.description(), HasSubstr(deletion));
    }
    for (const char* const writing :
         {"DELETE T WHERE id = 1", "SELECT id INTO #t FROM T", "UPDATE T SET id = 1"}) {
        EXPECT_LT(error_of([&] { database->query_value(writing); }).number(), 0) << writing;
        EXPECT_LT(error_of([&] { database->query_array(writing); }).number(), 0) << writing;
        EXPECT_LT(error_of([&] { database->query_rows(writing)->next_batch(); }).number(), 0) << writing;
        EXPECT_LT(error_of([&] { database->query_stored(writing); }).number(), 0) << writing;
    }
    EXPECT_THAT(sent(), IsEmpty());
    EXPECT_NO_THROW(database->execute("DROP TABLE IF EXISTS #t SELECT id INTO #t FROM T"));
    EXPECT_EQ(sent().size(), 1U);
}

}  // namespace
}  // namespace prot
