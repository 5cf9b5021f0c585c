#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>

#include "platform/portable/sqlite/sqlite_database.h"
#include "tests/unit/support/database_answers.h"
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

    std::unique_ptr<HostDatabase> open(SqliteAccess access = SqliteAccess::read_only,
                                       SqliteReading reading = SqliteReading::on_demand) const {
        return open_sqlite_database(path(), access, reading);
    }

    TemporaryFolder folder_;
};

}  // namespace prot
