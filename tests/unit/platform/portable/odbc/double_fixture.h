#pragma once

#include <gmock/gmock.h>
#include <sqlite3.h>

#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "platform/portable/odbc/odbc_database.h"
#include "tests/unit/support/database_answers.h"
#include "tests/unit/support/temporary_folder.h"

namespace prot {

/// The ODBC object on a SQL Server that the tests' own driver plays (tests/odbc/double/): table T has the ids
/// 1 to 600 and a name for each.
class OdbcOnDouble : public testing::Test {
protected:
    void SetUp() override {
        run_directly("CREATE TABLE T (id INTEGER, name NVARCHAR(20) COLLATE NOCASE, made DATETIME)");
        std::string values;
        for (int id = 1; id <= rows_of_table; ++id)
            values += (id > 1 ? ", (" : "(") + std::to_string(id) + ", 'Name " + std::to_string(id) +
                      "', '2026-01-02 03:04:05')";
        run_directly("INSERT INTO T VALUES " + values);
    }

    static constexpr int rows_of_table = 600;

    /// Writes to the file, past the object under test.
    void run_directly(const std::string& sql) const {
        sqlite3* handle = nullptr;
        EXPECT_EQ(sqlite3_open(folder_.text("server.db").c_str(), &handle), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(handle, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(handle);
        sqlite3_close(handle);
    }

    /// What the server does from now on, see tests/odbc/double/script.h.
    void script(const std::string& content) const { write_file(folder_ / "script", content); }

    OdbcSource source(OdbcAccess access = OdbcAccess::read_write) const {
        OdbcSource source;
        source.connection.add("Driver", PROT_ODBC_DOUBLE);
        source.connection.add("Server", "doppel\\suite");
        source.connection.add("Database", folder_.text("server.db"));
        source.connection.add("Script", folder_.text("script"));
        source.connection.add("Journal", folder_.text("journal"));
        source.access = access;
        return source;
    }
    std::unique_ptr<HostDatabase> connect(OdbcAccess access = OdbcAccess::read_write) const {
        return open_odbc_database(source(access));
    }

    /// What the server was sent, "1: SELECT …", without what a connection says by itself when it begins, and
    /// without how many rows were fetched at once.
    std::vector<std::string> sent() const {
        std::vector<std::string> result;
        for (std::string& line : journal())
            if (line.find(": SET ") == std::string::npos && line.find("[connect]") == std::string::npos &&
                line.find("[rows ") == std::string::npos)
                result.push_back(std::move(line));
        return result;
    }

    /// All of it.
    std::vector<std::string> journal() const {
        std::vector<std::string> result;
        std::istringstream lines(content_of(folder_ / "journal"));
        for (std::string line; std::getline(lines, line);) result.push_back(line);
        return result;
    }
    void forget_journal() const { write_file(folder_ / "journal", ""); }

private:
    const TemporaryFolder folder_;
};

}  // namespace prot
