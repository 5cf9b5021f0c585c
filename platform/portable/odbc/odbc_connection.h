#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/portable/odbc/odbc_database.h"
#include "platform/portable/odbc/odbc_drivers.h"
#include "platform/portable/odbc/odbc_handle.h"
#include "platform/portable/odbc/odbc_problem.h"

namespace prot {

/// The failure of any of a database object's connections; it is that of the object.
class OdbcFailure {
public:
    void require() const {
        if (failure_) throw *failure_;
    }
    void set(const AutomationError& error) {
        if (!failure_) failure_ = error;
    }

private:
    std::optional<AutomationError> failure_;
};

/// Owns one connection. What it asks of the server besides the statements of its callers: of SQL Server, that
/// it is the one to give way (deadlock priority, time limit of locks).
class OdbcConnection {
public:
    /// Connects. Fails with one line that names no secret. failure outlives the connection.
    OdbcConnection(const OdbcSource& source, OdbcFailure& failure);
    ~OdbcConnection();
    OdbcConnection(const OdbcConnection&) = delete;
    OdbcConnection& operator=(const OdbcConnection&) = delete;

    OdbcServer server() const { return server_; }

    /// As the server calls itself; of SQLite the name of its file, without folder.
    std::string server_name() const;

    /// Whether a further result may be opened beside those that are open.
    bool has_room() const { return has_several_results_ || open_results_ == 0; }
    void result_opens() { ++open_results_; }
    void result_closes() { --open_results_; }

    /// A new statement, of the statement's time limit. sql: what it will be for.
    OdbcHandle<SQL_HANDLE_STMT> create_statement(std::string_view sql);

    /// Fails with the diagnostics of `handle`, which `sql` failed with. A lost connection becomes the
    /// failure.
    [[noreturn]] void raise(SQLSMALLINT type, SQLHANDLE handle, std::string_view sql) {
        throw problem_of(type, handle, sql).error;
    }

    /// Runs a statement of the object's own in the server's dialect, without a result that anybody reads.
    void run(std::string_view sql);

    /// A transaction beside which nobody else can write what was read in it, or SQLite anything. Fails as
    /// raise does.
    void begin_transaction();
    /// Raises UnknownOutcome where the server did not answer. Behind it, there is no transaction.
    void commit();
    void rollback() noexcept;

private:
    struct Problem {
        AutomationError error;
        bool is_answer;  ///< the server's; else nobody knows what it did
    };

    AutomationError error_of(const std::vector<OdbcDiagnostic>& diagnostics) const;
    Problem problem_of(SQLSMALLINT type, SQLHANDLE handle, std::string_view sql);
    void connect();
    void ask_about_server();
    bool set(SQLINTEGER attribute, std::size_t value) noexcept;
    void require(bool succeeded, std::string_view what);
    void leave_transaction() noexcept;
    bool is_lost(const std::vector<OdbcDiagnostic>& diagnostics) const;
    std::string information(SQLUSMALLINT type) const;

    const OdbcSource& source_;
    OdbcFailure& failure_;
    std::vector<std::string> secrets_;
    OdbcHandle<SQL_HANDLE_ENV> environment_{nullptr};
    OdbcHandle<SQL_HANDLE_DBC> connection_;
    bool is_connected_ = false;
    OdbcServer server_ = OdbcServer::transact_sql;
    bool has_several_results_ = false;
    int open_results_ = 0;
};

}  // namespace prot
