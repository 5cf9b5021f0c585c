#include "tests/odbc/double/statement.h"
#include "tests/odbc/double/transfer.h"

// What a driver manager looks for in a driver: statements. Sources: ODBC, each function's page.

namespace prot::odbc_double {

namespace {

Statement& statement_of(SQLHSTMT handle) { return *static_cast<Statement*>(handle); }

}  // namespace

extern "C" {

SQLRETURN SQL_API SQLExecDirectW(SQLHSTMT handle, SQLWCHAR* text, SQLINTEGER size) {
    return statement_of(handle).answer([&] { return statement_of(handle).execute(text_of(text, size)); });
}

SQLRETURN SQL_API SQLMoreResults(SQLHSTMT handle) {
    return statement_of(handle).answer([&] { return statement_of(handle).next_result(); });
}

SQLRETURN SQL_API SQLCancel(SQLHSTMT handle) {
    statement_of(handle).cancel();
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLFreeStmt(SQLHSTMT handle, SQLUSMALLINT option) {
    return statement_of(handle).answer([&] {
        if (option == SQL_CLOSE) statement_of(handle).close();
        if (option == SQL_UNBIND) statement_of(handle).unbind();
    });
}

SQLRETURN SQL_API SQLSetStmtAttrW(SQLHSTMT handle, SQLINTEGER attribute, SQLPOINTER value, SQLINTEGER) {
    return statement_of(handle).answer([&] { statement_of(handle).set_attribute(attribute, value); });
}

SQLRETURN SQL_API SQLRowCount(SQLHSTMT handle, SQLLEN* rows) {
    *rows = statement_of(handle).changed_rows();
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLNumResultCols(SQLHSTMT handle, SQLSMALLINT* columns) {
    *columns = static_cast<SQLSMALLINT>(statement_of(handle).columns());
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLDescribeColW(SQLHSTMT handle, SQLUSMALLINT number, SQLWCHAR* name, SQLSMALLINT room,
                                  SQLSMALLINT* name_size, SQLSMALLINT* type, SQLULEN* size,
                                  SQLSMALLINT* digits, SQLSMALLINT* nullable) {
    return statement_of(handle).answer([&] {
        const Column& column = statement_of(handle).column(number);
        put_text(column.name, name, room, name_size);
        *type = column.type;
        *size = column.size;
        *digits = column.digits;
        *nullable = SQL_NULLABLE_UNKNOWN;
    });
}

SQLRETURN SQL_API SQLBindCol(SQLHSTMT handle, SQLUSMALLINT number, SQLSMALLINT c_type, SQLPOINTER target,
                             SQLLEN room, SQLLEN* sizes) {
    return statement_of(handle).answer(
        [&] { statement_of(handle).bind(number, c_type, target, room, sizes); });
}

SQLRETURN SQL_API SQLFetch(SQLHSTMT handle) {
    return statement_of(handle).answer([&] { return statement_of(handle).fetch(); });
}

SQLRETURN SQL_API SQLGetData(SQLHSTMT handle, SQLUSMALLINT number, SQLSMALLINT c_type, SQLPOINTER target,
                             SQLLEN room, SQLLEN* size) {
    return statement_of(handle).answer(
        [&] { return statement_of(handle).get(number, c_type, target, room, size); });
}

SQLRETURN SQL_API SQLSetPos(SQLHSTMT handle, SQLSETPOSIROW, SQLUSMALLINT, SQLUSMALLINT) {
    return statement_of(handle).answer([] { throw Failure("HY109", 0, "Invalid cursor position"); });
}

}  // extern "C"

}  // namespace prot::odbc_double
