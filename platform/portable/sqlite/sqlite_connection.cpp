#include "platform/portable/sqlite/sqlite_connection.h"

#include <algorithm>
#include <iterator>

#include "platform/portable/sqlite/sqlite_opening.h"
#include "platform/portable/sqlite/sqlite_problem.h"

namespace prot {

namespace {

constexpr int busy_timeout = 2000;  // milliseconds

// Primary result codes after which the connection counts as failed.
constexpr int failures[] = {SQLITE_CORRUPT,  SQLITE_NOTADB, SQLITE_IOERR,
                            SQLITE_CANTOPEN, SQLITE_FULL,   SQLITE_NOMEM};

bool ends_connection(int code) {
    return std::find(std::begin(failures), std::end(failures), code & 0xFF) != std::end(failures);
}

struct Setting {
    int option;
    int value;
};
constexpr Setting settings[] = {
    {SQLITE_DBCONFIG_DQS_DML, 0},      // an unknown "name" is an error, not a text
    {SQLITE_DBCONFIG_DQS_DDL, 0},      // likewise
    {SQLITE_DBCONFIG_ENABLE_QPSG, 1},  // a bound LIKE pattern does not prepare its statement again each time
    {SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},  // views and triggers of a foreign file run harmless functions only
    {SQLITE_DBCONFIG_DEFENSIVE, 1},       // no statement can damage the file
};

/// Look-ups jump about in the log. With the two megabytes for pages that SQLite has by itself, an export of a
/// million rows of customers spends twice the time in the kernel, with eight a fifth less, for 4 MB more, and
/// as much again where a query sorts.
constexpr const char* more_pages = "PRAGMA cache_size = -4000";

int read_schema(sqlite3* handle) {
    return sqlite3_exec(handle, "SELECT 1 FROM sqlite_master LIMIT 1", nullptr, nullptr, nullptr);
}

}  // namespace

SqliteConnection::SqliteConnection(const std::string& path, SqliteAccess access) {
    const std::string file = check_sqlite_file(path);
    const int mode = access == SqliteAccess::read_only ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
    sqlite3* opened = nullptr;
    int code = sqlite3_open_v2(file.c_str(), &opened, mode | SQLITE_OPEN_NOMUTEX, nullptr);
    handle_.reset(opened);
    if (code == SQLITE_OK) {
        sqlite3_extended_result_codes(opened, 1);
        sqlite3_busy_timeout(opened, busy_timeout);
        for (const Setting& setting : settings)
            sqlite3_db_config(opened, setting.option, setting.value, nullptr);
        code = read_schema(opened);
    }
    if (code != SQLITE_OK) refuse_sqlite_file(path, code, sqlite3_errmsg(opened));
    if (access == SqliteAccess::read_write && sqlite3_db_readonly(opened, "main") == 1)
        refuse_sqlite_file(path, SQLITE_READONLY, "attempt to write a readonly database");
    sqlite3_exec(opened, more_pages, nullptr, nullptr, nullptr);
}

void SqliteConnection::require() const {
    if (failure_) throw *failure_;
}

void SqliteConnection::raise(std::string_view statement) {
    const int code = sqlite3_extended_errcode(handle());
    std::string description = describe_sqlite_problem(code, sqlite3_errmsg(handle()));
    description += ". Anweisung: ";
    description += statement;
    AutomationError error = sqlite_error(code, std::move(description));
    if (ends_connection(code)) failure_ = error;
    throw error;
}

}  // namespace prot
