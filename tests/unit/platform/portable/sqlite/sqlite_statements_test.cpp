#include "platform/portable/sqlite/sqlite_statements.h"

#include "tests/unit/platform/portable/sqlite/sqlite_fixture.h"

namespace prot {
namespace {

class SqliteStatementsTest : public SqliteFixture {
protected:
    SqliteStatementsTest() { write("CREATE TABLE T (a)"); }

    static std::string text(std::size_t number) { return "SELECT " + std::to_string(number) + " FROM T"; }

    static std::size_t prepared(const SqliteConnection& connection) {
        std::size_t count = 0;
        for (sqlite3_stmt* statement = nullptr;
             (statement = sqlite3_next_stmt(connection.handle(), statement)) != nullptr;)
            ++count;
        return count;
    }
};

TEST_F(SqliteStatementsTest, PreparesAShapeOnce) {
    SqliteConnection connection(path(), SqliteAccess::read_only);
    SqliteStatements statements(connection);
    sqlite3_stmt* const first = statements.find_or_prepare(text(1), "");
    statements.find_or_prepare(text(2), "");
    EXPECT_EQ(statements.find_or_prepare(text(1), ""), first);
    EXPECT_EQ(prepared(connection), 2U);
}

TEST_F(SqliteStatementsTest, LetsTheLongestUnusedShapeGo) {
    SqliteConnection connection(path(), SqliteAccess::read_only);
    SqliteStatements statements(connection);
    sqlite3_stmt* const kept = statements.find_or_prepare(text(0), "");
    for (std::size_t i = 1; i < SqliteStatements::capacity; ++i) statements.find_or_prepare(text(i), "");
    statements.find_or_prepare(text(0), "");
    for (std::size_t i = 1; i < SqliteStatements::capacity; ++i) {
        statements.find_or_prepare(text(1000 + i), "");
        EXPECT_EQ(prepared(connection), SqliteStatements::capacity);
    }
    EXPECT_EQ(statements.find_or_prepare(text(0), ""), kept)
        << "used last of the first ones, so it is still there";
}

TEST_F(SqliteStatementsTest, KeepsNoShapeThatCouldNotBePrepared) {
    SqliteConnection connection(path(), SqliteAccess::read_only);
    SqliteStatements statements(connection);
    EXPECT_THROW(statements.find_or_prepare("SELECT a FROM nothing", ""), AutomationError);
    EXPECT_EQ(prepared(connection), 0U);
}

TEST_F(SqliteStatementsTest, FreesTheStatementBehindARun) {
    SqliteConnection connection(path(), SqliteAccess::read_write);
    write("INSERT INTO T VALUES (1), (2)");
    SqliteStatements statements(connection);
    sqlite3_stmt* const statement = statements.find_or_prepare("SELECT a FROM T", "");
    {
        SqliteRun run(connection, statement, {}, "");
        ASSERT_TRUE(run.next_row());
        EXPECT_NE(sqlite3_stmt_busy(statement), 0);
    }
    EXPECT_EQ(sqlite3_stmt_busy(statement), 0);
}

}  // namespace
}  // namespace prot
