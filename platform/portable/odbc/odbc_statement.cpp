#include "platform/portable/odbc/odbc_statement.h"

#include <variant>

namespace prot {

OdbcStatement::OdbcStatement(OdbcConnection& connection, std::string_view source)
    : connection_(connection), source_(source), statement_(connection.create_statement(source)) {
    connection_.result_opens();
}

OdbcStatement::~OdbcStatement() {
    statement_.reset();
    connection_.result_closes();
}

void OdbcStatement::limit_time(int seconds) {
    SQLSetStmtAttrW(handle(), SQL_ATTR_QUERY_TIMEOUT, as_attribute(static_cast<std::size_t>(seconds)), 0);
}

void OdbcStatement::run(std::string_view text, const std::vector<TsqlParameter>& parameters) {
    bind(parameters);
    OdbcText sent = to_odbc(text);
    take(SQLExecDirectW(handle(), sent.data(), static_cast<SQLINTEGER>(sent.size())));
}

bool OdbcStatement::next_result() {
    const SQLRETURN answer = SQLMoreResults(handle());
    if (answer == SQL_NO_DATA) return false;
    take(answer);
    return true;
}

/// SQL_NO_DATA: a statement that changes rows found none, or one that has no result ran; some drivers answer
/// SET and CREATE so. Source: ODBC, SQLExecDirect.
void OdbcStatement::take(SQLRETURN answer) {
    if (answer != SQL_NO_DATA && !SQL_SUCCEEDED(answer)) raise();
    SQLLEN rows = -1;
    if (answer == SQL_NO_DATA)
        rows = 0;
    else
        SQLRowCount(handle(), &rows);
    changed_rows_ = rows;
}

void OdbcStatement::bind(const std::vector<TsqlParameter>& parameters) {
    SQLUSMALLINT number = 0;
    for (const TsqlParameter& parameter : parameters) bind(++number, parameter);
}

void OdbcStatement::bind(SQLUSMALLINT number, const TsqlParameter& parameter) {
    const auto bind = [&](SQLSMALLINT c_type, SQLSMALLINT type, SQLULEN size, const void* value,
                          SQLLEN bytes) {
        const SQLRETURN answer = SQLBindParameter(handle(), number, SQL_PARAM_INPUT, c_type, type, size, 0,
                                                  const_cast<void*>(value), bytes, nullptr);
        if (!SQL_SUCCEEDED(answer)) raise();
    };
    if (const auto* const integer = std::get_if<std::int64_t>(&parameter)) {
        bind(SQL_C_SBIGINT, SQL_BIGINT, 0, integer, 0);
    } else if (const auto* const real = std::get_if<double>(&parameter)) {
        bind(SQL_C_DOUBLE, SQL_DOUBLE, 0, real, 0);
    } else {
        // Ended by a zero, as a null length says.
        const OdbcText& text = texts_.emplace_back(to_odbc(std::get<std::string>(parameter)));
        bind(SQL_C_WCHAR, SQL_WVARCHAR, text.empty() ? 1 : text.size(), text.c_str(),
             static_cast<SQLLEN>((text.size() + 1) * sizeof(SQLWCHAR)));
    }
}

}  // namespace prot
