#pragma once

#include <cstdint>
#include <list>
#include <string>
#include <string_view>
#include <vector>

#include "platform/portable/odbc/odbc_connection.h"
#include "platform/portable/tsql/tsql_dialect.h"

namespace prot {

/// A statement that runs: its results are open on the connection until it goes.
class OdbcStatement {
public:
    /// Prepares it. source: as its caller wrote it, for errors; outlives it.
    OdbcStatement(OdbcConnection& connection, std::string_view source);
    ~OdbcStatement();
    OdbcStatement(const OdbcStatement&) = delete;
    OdbcStatement& operator=(const OdbcStatement&) = delete;

    /// At most so many seconds, in place of the connection's limit.
    void limit_time(int seconds);

    /// Sends `text`, the statement as the server understands it; fails as the statement does.
    void run(std::string_view text, const std::vector<TsqlParameter>& parameters = {});

    /// Goes on to the next result of a batch, if there is one; fails as that statement does.
    bool next_result();

    /// Goes through all results that are left; fails as any of them does.
    void finish() {
        while (next_result()) {
        }
    }

    /// How many rows the last statement changed; -1: unknown.
    std::int64_t changed_rows() const { return changed_rows_; }

    /// Fails with the diagnostics of the last call on its handle.
    [[noreturn]] void raise() { connection_.raise(SQL_HANDLE_STMT, handle(), source_); }

    SQLHANDLE handle() const { return statement_.get(); }
    OdbcConnection& connection() const { return connection_; }
    std::string_view source() const { return source_; }

private:
    void bind(const std::vector<TsqlParameter>& parameters);
    void bind(SQLUSMALLINT number, const TsqlParameter& parameter);
    void take(SQLRETURN answer);

    OdbcConnection& connection_;
    const std::string_view source_;
    OdbcHandle<SQL_HANDLE_STMT> statement_;
    std::list<OdbcText> texts_;  // of the parameters
    std::int64_t changed_rows_ = -1;
};

}  // namespace prot
