#include "platform/portable/odbc/odbc_connection.h"

#include <algorithm>

#include "platform/automation/letter_case.h"
#include "platform/portable/files/paths.h"
#include "platform/portable/sqlite/sqlite_problem.h"

namespace prot {

namespace {

// SQLite's result codes behind which no answer can be trusted, as in sqlite_connection.cpp; its driver hands
// them over as native numbers. Source: SQLite, result codes.
constexpr std::int32_t sqlite_failures[] = {7, 10, 11, 13, 14, 26};

/// "[SQLite]no such table: x (1)" without what the driver puts around it.
std::string_view sqlite_message(const OdbcDiagnostic& record) {
    constexpr std::string_view maker = "[SQLite]";
    std::string_view message = record.message;
    if (message.starts_with(maker)) message.remove_prefix(maker.size());
    const std::string number = " (" + std::to_string(record.number) + ')';
    if (message.ends_with(number)) message.remove_suffix(number.size());
    return message;
}

std::string give_way(int lock_seconds) {
    const std::string milliseconds = lock_seconds > 0 ? std::to_string(lock_seconds) + "000" : "-1";
    return "SET DEADLOCK_PRIORITY LOW; SET LOCK_TIMEOUT " + milliseconds;
}

}  // namespace

OdbcConnection::OdbcConnection(const OdbcSource& source, OdbcFailure& failure)
    : source_(source), failure_(failure), secrets_(source.connection.secrets()) {
    SQLSetEnvAttr(environment_.get(), SQL_ATTR_ODBC_VERSION, as_attribute(SQL_OV_ODBC3), 0);
    connect();
    ask_about_server();
    if (server_ == OdbcServer::transact_sql) run(give_way(source.lock_seconds));
}

OdbcConnection::~OdbcConnection() {
    if (is_connected_) SQLDisconnect(connection_.get());
}

void OdbcConnection::connect() {
    if (!SQL_SUCCEEDED(connection_.allocate(environment_.get())))
        raise(SQL_HANDLE_ENV, environment_.get(), {});
    if (source_.login_seconds > 0)
        set(SQL_ATTR_LOGIN_TIMEOUT, static_cast<std::size_t>(source_.login_seconds));
    if (source_.access == OdbcAccess::read_only) set(SQL_ATTR_ACCESS_MODE, SQL_MODE_READ_ONLY);
    OdbcText text = to_odbc(source_.connection.text());
    SQLWCHAR completed[4096];
    SQLSMALLINT completed_size = 0;
    const SQLRETURN answer = SQLDriverConnectW(
        connection_.get(), nullptr, text.data(), static_cast<SQLSMALLINT>(text.size()), completed,
        static_cast<SQLSMALLINT>(std::size(completed)), &completed_size, SQL_DRIVER_NOPROMPT);
    is_connected_ = SQL_SUCCEEDED(answer);
    if (is_connected_) return;
    const auto diagnostics = diagnostics_of(SQL_HANDLE_DBC, connection_.get());
    throw odbc_error(diagnostics,
                     masked(describe_odbc_problem(diagnostics, OdbcTask::connecting), secrets_) + '.');
}

void OdbcConnection::ask_about_server() {
    if (upper_equals(information(SQL_DBMS_NAME), "SQLITE")) server_ = OdbcServer::sqlite;
    // 0: as many as you like. A driver that does not know has one.
    SQLUSMALLINT results = 1;
    SQLGetInfoW(connection_.get(), SQL_MAX_CONCURRENT_ACTIVITIES, &results, sizeof results, nullptr);
    has_several_results_ = results != 1;
}

std::string OdbcConnection::server_name() const {
    if (server_ != OdbcServer::sqlite) return information(SQL_SERVER_NAME);
    const std::string* const file = source_.connection.find("Database");
    const std::string path = file != nullptr ? *file : information(SQL_DATABASE_NAME);
    return path_text(text_path(path).filename());
}

std::string OdbcConnection::information(SQLUSMALLINT type) const {
    SQLWCHAR text[256] = {};
    SQLSMALLINT bytes = 0;
    if (!SQL_SUCCEEDED(
            SQLGetInfoW(connection_.get(), type, text, static_cast<SQLSMALLINT>(sizeof text), &bytes)))
        return {};
    const auto size = static_cast<std::size_t>(std::max<SQLSMALLINT>(bytes, 0)) / sizeof(SQLWCHAR);
    return from_odbc(text, std::min(size, std::size(text) - 1));
}

OdbcHandle<SQL_HANDLE_STMT> OdbcConnection::create_statement(std::string_view sql) {
    OdbcHandle<SQL_HANDLE_STMT> statement;
    if (!SQL_SUCCEEDED(statement.allocate(connection_.get()))) raise(SQL_HANDLE_DBC, connection_.get(), sql);
    if (source_.statement_seconds > 0)
        SQLSetStmtAttrW(statement.get(), SQL_ATTR_QUERY_TIMEOUT,
                        as_attribute(static_cast<std::size_t>(source_.statement_seconds)), 0);
    return statement;
}

bool OdbcConnection::is_lost(const std::vector<OdbcDiagnostic>& diagnostics) const {
    if (ends_connection(diagnostics)) return true;
    if (server_ == OdbcServer::sqlite)
        return std::ranges::any_of(diagnostics, [](const OdbcDiagnostic& record) {
            return std::ranges::find(sqlite_failures, record.number & 0xFF) != std::end(sqlite_failures);
        });
    SQLUINTEGER dead = SQL_CD_FALSE;
    return SQL_SUCCEEDED(SQLGetConnectAttrW(connection_.get(), SQL_ATTR_CONNECTION_DEAD, &dead, sizeof dead,
                                            nullptr)) &&
           dead == SQL_CD_TRUE;
}

/// SQLite's driver hands over SQLite's number and message, for which there are words.
AutomationError OdbcConnection::error_of(const std::vector<OdbcDiagnostic>& diagnostics) const {
    if (server_ != OdbcServer::sqlite || diagnostics.empty() || diagnostics.front().number <= 0)
        return odbc_error(diagnostics,
                          masked(describe_odbc_problem(diagnostics, OdbcTask::statement), secrets_));
    const OdbcDiagnostic& record = diagnostics.front();
    return sqlite_error(record.number, describe_sqlite_problem(record.number, sqlite_message(record)));
}

OdbcConnection::Problem OdbcConnection::problem_of(SQLSMALLINT type, SQLHANDLE handle, std::string_view sql) {
    const auto diagnostics = diagnostics_of(type, handle);
    AutomationError error = error_of(diagnostics);
    if (!sql.empty()) error.append_to_description(". Anweisung: " + std::string(sql));
    Problem problem{std::move(error), is_answer(diagnostics)};
    if (is_lost(diagnostics)) {
        problem.is_answer = false;
        failure_.set(problem.error);
    }
    return problem;
}

void OdbcConnection::run(std::string_view sql) {
    const OdbcHandle<SQL_HANDLE_STMT> statement = create_statement(sql);
    OdbcText text = to_odbc(sql);
    SQLRETURN answer = SQLExecDirectW(statement.get(), text.data(), static_cast<SQLINTEGER>(text.size()));
    while (SQL_SUCCEEDED(answer)) answer = SQLMoreResults(statement.get());
    if (answer != SQL_NO_DATA) raise(SQL_HANDLE_STMT, statement.get(), sql);
}

bool OdbcConnection::set(SQLINTEGER attribute, std::size_t value) noexcept {
    return SQL_SUCCEEDED(
        SQLSetConnectAttrW(connection_.get(), attribute, as_attribute(value), SQL_IS_UINTEGER));
}

void OdbcConnection::require(bool succeeded, std::string_view what) {
    if (!succeeded) raise(SQL_HANDLE_DBC, connection_.get(), what);
}

// SQLite's driver begins with a transaction that others may write beside until it writes itself.
void OdbcConnection::begin_transaction() {
    if (server_ == OdbcServer::sqlite) return run("BEGIN IMMEDIATE");
    constexpr std::string_view begin = "BEGIN TRANSACTION";
    require(set(SQL_ATTR_TXN_ISOLATION, SQL_TXN_SERIALIZABLE), begin);
    require(set(SQL_ATTR_AUTOCOMMIT, SQL_AUTOCOMMIT_OFF), begin);
}

void OdbcConnection::commit() {
    if (server_ == OdbcServer::sqlite) {
        try {
            return run("COMMIT");
        } catch (const AutomationError& error) {
            // What SQLite cannot commit is still open, and is undone here, or SQLite has undone it.
            try {
                run("ROLLBACK");
            } catch (const AutomationError&) {
                throw UnknownOutcome(error.number(), error.source(), error.description());
            }
            throw;
        }
    }
    if (SQL_SUCCEEDED(SQLEndTran(SQL_HANDLE_DBC, connection_.get(), SQL_COMMIT))) return leave_transaction();
    const Problem problem = problem_of(SQL_HANDLE_DBC, connection_.get(), "COMMIT");
    rollback();
    if (problem.is_answer) throw problem.error;
    throw UnknownOutcome(problem.error.number(), problem.error.source(), problem.error.description());
}

void OdbcConnection::rollback() noexcept {
    if (server_ != OdbcServer::sqlite) {
        SQLEndTran(SQL_HANDLE_DBC, connection_.get(), SQL_ROLLBACK);
        return leave_transaction();
    }
    try {
        run("ROLLBACK");
    } catch (const std::exception&) {
        // A connection that is lost undoes it, too.
    }
}

void OdbcConnection::leave_transaction() noexcept {
    set(SQL_ATTR_AUTOCOMMIT, SQL_AUTOCOMMIT_ON);
    set(SQL_ATTR_TXN_ISOLATION, SQL_TXN_READ_COMMITTED);
}

}  // namespace prot
