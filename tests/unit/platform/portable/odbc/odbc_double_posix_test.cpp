#include <chrono>

#include "platform/portable/odbc/odbc_handle.h"
#include "platform/portable/odbc/odbc_problem.h"
#include "tests/unit/platform/portable/odbc/double_fixture.h"

namespace prot {
namespace {

using Environment = OdbcHandle<SQL_HANDLE_ENV>;
using Connection = OdbcHandle<SQL_HANDLE_DBC>;
using Statement = OdbcHandle<SQL_HANDLE_STMT>;

/// What the server that is played refuses: else it would prove nothing about the object.
class OdbcDouble : public OdbcOnDouble {
protected:
    void SetUp() override {
        OdbcOnDouble::SetUp();
        run_directly(
            "CREATE TABLE M (id INTEGER, memo TEXT, behind INTEGER); INSERT INTO M VALUES (1, 'abcdef', 3)");
        SQLSetEnvAttr(environment_.get(), SQL_ATTR_ODBC_VERSION, as_attribute(SQL_OV_ODBC3), 0);
        ASSERT_TRUE(SQL_SUCCEEDED(connection_.allocate(environment_.get())));
        OdbcText text = to_odbc(source().connection.text());
        ASSERT_TRUE(SQL_SUCCEEDED(SQLDriverConnectW(connection_.get(), nullptr, text.data(), SQL_NTS, nullptr,
                                                    0, nullptr, SQL_DRIVER_NOPROMPT)));
    }
    void TearDown() override { SQLDisconnect(connection_.get()); }

    Statement statement() const { return Statement(connection_.get()); }

    /// The state of a call that failed; empty: it did not.
    static std::string state_of(SQLRETURN answer, const Statement& statement) {
        if (answer != SQL_ERROR) return {};
        const auto records = diagnostics_of(SQL_HANDLE_STMT, statement.get());
        return records.empty() ? "none" : records.front().state;
    }

    static std::string run(const Statement& statement, std::string_view sql) {
        OdbcText text = to_odbc(sql);
        return state_of(SQLExecDirectW(statement.get(), text.data(), SQL_NTS), statement);
    }

    static std::string fetch(const Statement& statement) {
        return state_of(SQLFetch(statement.get()), statement);
    }

    /// The state that reading a column ends with.
    std::string get(const Statement& statement, SQLUSMALLINT column, SQLLEN room = 100) {
        return state_of(SQLGetData(statement.get(), column, SQL_C_WCHAR, text_, room, &size_), statement);
    }
    std::string bind(const Statement& statement, SQLUSMALLINT column) {
        return state_of(SQLBindCol(statement.get(), column, SQL_C_WCHAR, text_, sizeof text_, &size_),
                        statement);
    }

    SQLWCHAR text_[100] = {};
    SQLLEN size_ = 0;

private:
    const Environment environment_{nullptr};
    Connection connection_;
};

const std::string rows_with_memo = "SELECT id, memo, behind FROM M";

TEST_F(OdbcDouble, KeepsOneOpenResultForAConnection) {
    const Statement first = statement();
    const Statement second = statement();
    EXPECT_EQ(run(first, "SELECT id FROM T"), "");
    EXPECT_EQ(run(second, "SELECT id FROM T"), "HY000");
    EXPECT_EQ(diagnostics_of(SQL_HANDLE_STMT, second.get()).front().message,
              "Connection is busy with results for another command");
    SQLFreeStmt(first.get(), SQL_CLOSE);
    EXPECT_EQ(run(second, "SELECT id FROM T"), "");
}

TEST_F(OdbcDouble, ReadsLongColumnsInAscendingOrderBehindTheBoundOnes) {
    const Statement rows = statement();
    EXPECT_EQ(run(rows, rows_with_memo), "");
    EXPECT_EQ(bind(rows, 1), "");
    EXPECT_EQ(fetch(rows), "");
    EXPECT_EQ(get(rows, 1), "07009") << "bound";
    EXPECT_EQ(get(rows, 3), "");
    EXPECT_EQ(get(rows, 2), "07009") << "before the last one that was read";
}

TEST_F(OdbcDouble, DeliversALongValueInPiecesOfUnknownNumber) {
    const Statement rows = statement();
    EXPECT_EQ(run(rows, rows_with_memo), "");
    EXPECT_EQ(fetch(rows), "");
    constexpr SQLLEN four_and_zero = 5 * sizeof(SQLWCHAR);
    const auto piece = [&] { return SQLGetData(rows.get(), 2, SQL_C_WCHAR, text_, four_and_zero, &size_); };
    EXPECT_EQ(piece(), SQL_SUCCESS_WITH_INFO);
    EXPECT_EQ(size_, SQL_NO_TOTAL);
    EXPECT_EQ(from_odbc(text_, 5), std::string("abcd\0", 5));
    EXPECT_EQ(piece(), SQL_SUCCESS);
    EXPECT_EQ(size_, SQLLEN{2 * sizeof(SQLWCHAR)});
    EXPECT_EQ(from_odbc(text_, 2), "ef");
    EXPECT_EQ(piece(), SQL_NO_DATA);
}

TEST_F(OdbcDouble, BindsNoLongColumn) {
    const Statement rows = statement();
    EXPECT_EQ(run(rows, rows_with_memo), "");
    EXPECT_EQ(bind(rows, 2), "");
    EXPECT_EQ(fetch(rows), "07009");
}

TEST_F(OdbcDouble, ReadsNoColumnInABlock) {
    const Statement rows = statement();
    EXPECT_EQ(run(rows, rows_with_memo), "");
    EXPECT_EQ(state_of(SQLSetStmtAttrW(rows.get(), SQL_ATTR_ROW_ARRAY_SIZE, as_attribute(2), 0), rows), "");
    EXPECT_EQ(fetch(rows), "");
    EXPECT_EQ(get(rows, 2), "HY109");
    EXPECT_EQ(state_of(SQLSetPos(rows.get(), 1, SQL_POSITION, SQL_LOCK_NO_CHANGE), rows), "HY109");
}

TEST_F(OdbcDouble, TakesNoParametersAndNoAttributeThatItDoesNotKnow) {
    const Statement rows = statement();
    SQLBIGINT value = 1;
    EXPECT_EQ(state_of(SQLBindParameter(rows.get(), 1, SQL_PARAM_INPUT, SQL_C_SBIGINT, SQL_BIGINT, 0, 0,
                                        &value, 0, nullptr),
                       rows),
              "IM001");
    EXPECT_EQ(state_of(SQLSetStmtAttrW(rows.get(), SQL_ATTR_NOSCAN, as_attribute(1), 0), rows), "HY092");
    EXPECT_EQ(
        state_of(SQLSetStmtAttrW(rows.get(), SQL_ATTR_CURSOR_TYPE, as_attribute(SQL_CURSOR_STATIC), 0), rows),
        "HY092");
}

TEST_F(OdbcDouble, CountsNoRowsWhoseColumnsShareAName) {
    const Statement rows = statement();
    EXPECT_EQ(run(rows, "SELECT COUNT_BIG(*) FROM (SELECT id, memo AS ID FROM M) AS counted"), "42000");
    EXPECT_EQ(run(rows, "SELECT COUNT_BIG(*) FROM (SELECT id, memo FROM M) AS counted"), "");
    EXPECT_EQ(fetch(rows), "");
    EXPECT_EQ(get(rows, 1), "");
    EXPECT_EQ(from_odbc(text_, 1), "1");
}

TEST_F(OdbcDouble, TakesTheTimeForEachStatementThatItsScriptSays) {
    const auto time_of = [this] {
        const auto begin = std::chrono::steady_clock::now();
        EXPECT_EQ(run(statement(), "SELECT id FROM T WHERE id = 1"), "");
        return std::chrono::steady_clock::now() - begin;
    };
    script("delay\t50000\n");
    EXPECT_GE(time_of(), std::chrono::milliseconds(50));
}

}  // namespace
}  // namespace prot
