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

TEST_F(SqliteStatementsTest, PreparesAgainWhatItLetGo) {
    SqliteConnection connection(path(), SqliteAccess::read_only);
    SqliteStatements statements(connection);
    for (int round = 0; round < 2; ++round)
        for (std::size_t i = 0; i < 2 * SqliteStatements::capacity; ++i) {
            sqlite3_stmt* const statement = statements.find_or_prepare(text(i), "");
            EXPECT_EQ(sqlite3_sql(statement), text(i));
        }
}

TEST_F(SqliteStatementsTest, LeavesNoValueBehindARun) {
    SqliteConnection connection(path(), SqliteAccess::read_only);
    SqliteStatements statements(connection);
    sqlite3_stmt* const statement = statements.find_or_prepare("SELECT a FROM T WHERE a = ?", "");
    const auto expanded = [&] {
        char* const sql = sqlite3_expanded_sql(statement);
        const std::string result = sql;
        sqlite3_free(sql);
        return result;
    };
    {
        const std::vector<TsqlParameter> parameters = {"O'Brien"};
        SqliteRun run(connection, statement, parameters, "");
        run.finish();
        EXPECT_EQ(expanded(), "SELECT a FROM T WHERE a = 'O''Brien'");
    }
    EXPECT_EQ(expanded(), "SELECT a FROM T WHERE a = NULL");
}

TEST_F(SqliteStatementsTest, BindsEachValueInItsPlaceAndType) {
    SqliteConnection connection(path(), SqliteAccess::read_only);
    SqliteStatements statements(connection);
    sqlite3_stmt* const statement = statements.find_or_prepare("SELECT ?, ?, ?, typeof(?)", "");
    const std::vector<TsqlParameter> parameters = {std::int64_t{-7}, 0.5, "ä", ""};
    SqliteRun run(connection, statement, parameters, "");
    ASSERT_TRUE(run.next_row());
    EXPECT_EQ(sqlite3_column_int64(statement, 0), -7);
    EXPECT_EQ(sqlite3_column_type(statement, 1), SQLITE_FLOAT);
    EXPECT_EQ(sqlite3_column_double(statement, 1), 0.5);
    EXPECT_EQ(sqlite3_column_bytes(statement, 2), 2);
    EXPECT_STREQ(reinterpret_cast<const char*>(sqlite3_column_text(statement, 3)), "text") << "not Null";
}

TEST_F(SqliteStatementsTest, ReportsAValueThatCannotBeBound) {
    SqliteConnection connection(path(), SqliteAccess::read_only);
    SqliteStatements statements(connection);
    sqlite3_stmt* const statement = statements.find_or_prepare("SELECT a FROM T WHERE a = ?", "");
    sqlite3_limit(connection.handle(), SQLITE_LIMIT_LENGTH, 1000);
    const std::vector<TsqlParameter> parameters = {std::string(2000, 'x')};
    const AutomationError error =
        error_of([&] { SqliteRun(connection, statement, parameters, "SELECT …").finish(); });
    EXPECT_EQ(static_cast<std::uint32_t>(error.number()), 0x80040000U + SQLITE_TOOBIG);
    EXPECT_TRUE(error.description().ends_with("Anweisung: SELECT …")) << error.description();
}

TEST_F(SqliteStatementsTest, TakesOnePlanForEveryPattern) {
    SqliteConnection connection(path(), SqliteAccess::read_only);
    SqliteStatements statements(connection);
    sqlite3_stmt* const statement = statements.find_or_prepare("SELECT a FROM T WHERE a LIKE ?", "");
    for (const char* pattern : {"a%", "%b", "c"}) {
        const std::vector<TsqlParameter> parameters = {pattern};
        SqliteRun(connection, statement, parameters, "").finish();
    }
    EXPECT_EQ(sqlite3_stmt_status(statement, SQLITE_STMTSTATUS_REPREPARE, 0), 0);
}

}  // namespace
}  // namespace prot
