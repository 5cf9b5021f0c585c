#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/portable/odbc/connection_string.h"
#include "platform/portable/sqlite/sqlite_connection.h"
#include "tests/odbc/double/journal.h"
#include "tests/odbc/double/scripted_batch.h"

namespace prot::odbc_double {

/// A connection. Its connection string names the SQLite file (Database), what the server calls itself
/// (Server), and files that need not be there: Script and Journal.
class Connection : public Handle {
public:
    void connect(std::string_view connection_string);
    void disconnect();

    /// Raises a Failure where the connection is lost.
    void require() const { line_.require(); }
    bool is_lost() const { return line_.is_lost; }

    const std::string& server() const { return server_; }
    const std::string& database() const { return database_; }

    /// Sends a text for `statement`, whose results are open on the connection from now on; nobody else's may
    /// be. patience outlives the batch.
    std::unique_ptr<Batch> send(const void* statement, std::string_view text, const Patience& patience);
    /// The results of `statement`, if it has any, are closed.
    void close(const void* statement) {
        if (active_ == statement) active_ = nullptr;
    }

    /// How many rows a statement is about to fetch at once.
    void tell_block(std::size_t rows) const { journal_->write("[rows " + std::to_string(rows) + "]"); }

    void set_isolation(SQLUINTEGER level);
    void set_autocommit(bool on);
    void end_transaction(bool commit);

private:
    /// What a driver is asked beside texts: a line of the journal, which may have a rule.
    void tell(const std::string& event, const std::function<void()>& action);
    void pass_time();
    void require_no_results() const;
    void begin_transaction();
    bool control(const char* statement) const;

    std::string server_;
    std::string database_;
    std::shared_ptr<Script> script_;
    std::optional<Journal> journal_;
    std::unique_ptr<SqliteConnection> sqlite_;
    std::chrono::nanoseconds time_left_{0};  // of the delays that the script asks for
    Line line_;
    const void* active_ = nullptr;  // the statement whose results are open
    bool has_autocommit_ = true;
};

}  // namespace prot::odbc_double
