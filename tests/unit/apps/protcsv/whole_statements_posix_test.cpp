#include "apps/protcsv/whole_statements.h"

#include <csignal>

#include <gtest/gtest.h>

#include "tests/unit/support/fakes.h"

namespace prot {
namespace {

/// Notes whether the program could be stopped during a statement.
class WatchedDatabase : public test::FakeDatabase {
public:
    bool could_be_stopped = false;

    Value query_value(std::string_view sql) override { return look(), FakeDatabase::query_value(sql); }
    RowSet query_array(std::string_view sql) override { return look(), FakeDatabase::query_array(sql); }
    void execute(std::string_view sql) override { look(), FakeDatabase::execute(sql); }

private:
    void look() {
        sigset_t blocked;
        sigprocmask(SIG_BLOCK, nullptr, &blocked);
        could_be_stopped = sigismember(&blocked, SIGINT) == 0;
    }
};

TEST(WholeStatementsPosix, OnlyADeletionRunsToItsEnd) {
    WatchedDatabase database;
    WholeStatements whole(database);
    whole.execute("DROP TABLE IF EXISTS #t \r\nSELECT a INTO #t FROM T; \r\n");
    EXPECT_TRUE(database.could_be_stopped) << "temporary tables are nobody else's";
    whole.execute("SELECT a INTO #t FROM T; DELETE x");
    EXPECT_FALSE(database.could_be_stopped);
    whole.execute("DELETE x");
    EXPECT_FALSE(database.could_be_stopped);
    whole.query_array("SELECT a");
    EXPECT_TRUE(database.could_be_stopped);
    whole.query_value("SELECT v");
    EXPECT_TRUE(database.could_be_stopped);
}

TEST(WholeStatementsPosix, AChangeThatFailsLetsTheProgramBeStoppedAgain) {
    WatchedDatabase database;
    database.failures.emplace("DELETE x", test::server_error("kaputt"));
    WholeStatements whole(database);
    EXPECT_THROW(whole.execute("DELETE x"), AutomationError);
    whole.query_value("SELECT v");
    EXPECT_TRUE(database.could_be_stopped);
}

}  // namespace
}  // namespace prot
