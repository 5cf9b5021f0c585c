#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>
#include <vector>

#include "platform/automation/error.h"
#include "platform/automation/text_forms.h"
#include "platform/portable/sqlite/sqlite_database.h"
#include "tests/unit/support/temporary_folder.h"

namespace prot {

/// A temporary folder of the running test, with a database file in it that is written by plain SQLite.
class SqliteFixture : public testing::Test {
protected:
    std::string path(const std::string& name = "x.db") const { return folder_.text(name); }

    /// Runs SQLite's own dialect on the file; makes the file when there is none.
    void write(const std::string& sql) const {
        sqlite3* handle = nullptr;
        ASSERT_EQ(sqlite3_open(path().c_str(), &handle), SQLITE_OK);
        sqlite3_exec(handle, "PRAGMA synchronous=OFF", nullptr, nullptr, nullptr);
        EXPECT_EQ(sqlite3_exec(handle, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(handle);
        sqlite3_close(handle);
    }

    void write_bytes(const std::string& bytes) const { write_file(text_path(path()), bytes); }

    std::unique_ptr<Database> open(SqliteAccess access = SqliteAccess::read_only) const {
        return open_sqlite_database(path(), access);
    }

    TemporaryFolder folder_;
};

/// The error that `action` raises; number 0 when it raises none.
template <typename Action>
AutomationError error_of(Action action) {
    try {
        action();
    } catch (const AutomationError& error) {
        return error;
    }
    return {0, "", "kein Fehler"};
}

/// The rows as texts, cells parted by "|".
inline std::vector<std::string> lines(const RowSet& rows) {
    std::vector<std::string> result(rows.rows());
    for (std::size_t row = 0; row < rows.rows(); ++row)
        for (std::size_t column = 0; column < rows.columns(); ++column)
            result[row] += (column > 0 ? "|" : "") + to_text(rows.at(column, row).value());
    return result;
}

}  // namespace prot
