#pragma once

#include <sqlite3.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/automation/error.h"
#include "platform/portable/sqlite/sqlite_database.h"

namespace prot {

/// Owns one connection to a SQLite file and remembers when it has failed.
class SqliteConnection {
public:
    /// Opens an existing file and reads its schema, so that whatever is wrong with it shows at once as an
    /// error of one German line (see sqlite_opening.h).
    SqliteConnection(const std::string& path, SqliteAccess access);

    sqlite3* handle() const { return handle_.get(); }

    /// Raises the connection's error when the connection has failed. Touches nothing.
    void require() const;

    /// Raises the error of the last call on this connection, which failed at `statement`. An error after
    /// which no answer of this connection can be trusted makes the connection a failed one: a damaged file, a
    /// read or write error, a file that can no longer be opened, a full disk, no memory. A lock held by
    /// another program does not.
    [[noreturn]] void raise(std::string_view statement);

private:
    struct Closer {
        void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
    };

    std::unique_ptr<sqlite3, Closer> handle_;
    std::optional<AutomationError> failure_;
};

}  // namespace prot
