#include "tests/unit/platform/database_contract/sqlite_server.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <variant>

#include "platform/portable/files/paths.h"
#include "platform/portable/odbc/odbc_database.h"
#include "platform/portable/sqlite/sqlite_database.h"

namespace prot {

namespace {

std::string date_text(Date date) {
    const CivilTime civil = to_civil(date);
    char text[32];
    std::snprintf(text, sizeof text, "'%04d-%02d-%02d %02d:%02d:%02d'", civil.year, civil.month, civil.day,
                  civil.hour, civil.minute, civil.second);
    return text;
}

struct Literal {
    std::string operator()(std::monostate) const { return "NULL"; }
    std::string operator()(bool truth) const { return truth ? "-1" : "0"; }
    std::string operator()(std::int64_t integer) const { return std::to_string(integer); }
    std::string operator()(double real) const {
        char text[40];
        std::snprintf(text, sizeof text, "%.17g", real);
        return text;
    }
    std::string operator()(Date date) const { return date_text(date); }
    std::string operator()(const std::string& text) const {
        std::string result = "'";
        for (const char c : text) result.append(c == '\'' ? 2 : 1, c);
        return result + "'";
    }
};

}  // namespace

SqliteServer::SqliteServer(const std::filesystem::path& folder, Connect how)
    : path_(folder / "contract.db"), connect_(how) {
    EXPECT_EQ(sqlite3_open(path_text(path_).c_str(), &handle_), SQLITE_OK);
    run("PRAGMA synchronous=OFF");
}

SqliteServer::~SqliteServer() { sqlite3_close(handle_); }

bool SqliteServer::run(const std::string& statement) {
    return sqlite3_exec(handle_, statement.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK;
}

std::string SqliteServer::type_of(ColumnKind kind) {
    switch (kind) {
        case ColumnKind::integer:
            return "INTEGER";
        case ColumnKind::real:
            return "REAL";
        case ColumnKind::date:
            return "DATETIME";
        case ColumnKind::text:
            break;
    }
    return "TEXT COLLATE NOCASE";
}

std::string SqliteServer::literal(const Value& value) { return std::visit(Literal{}, value); }

// Damages every page but the first, which holds the schema, and counts the file as changed, so that nobody
// trusts the pages that he has. Source: SQLite file format, offset 24.
void SqliteServer::break_connections() {
    const auto size = static_cast<std::size_t>(std::filesystem::file_size(path_));
    constexpr std::size_t page = 4096;
    std::fstream file(path_, std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(24).write("\x7F\x7F\x7F\x7F", 4);
    file.seekp(page) << std::string(size - page, '\xFF');
}

std::unique_ptr<ContractServer> start_sqlite(const std::filesystem::path& folder) {
    return std::make_unique<SqliteServer>(
        folder, [](const std::filesystem::path& path) -> std::unique_ptr<Database> {
            return open_sqlite_database(path_text(path), SqliteAccess::read_write, SqliteReading::on_demand);
        });
}

std::unique_ptr<ContractServer> start_sqlite_that_reads_ahead(const std::filesystem::path& folder) {
    return std::make_unique<SqliteServer>(
        folder, [](const std::filesystem::path& path) -> std::unique_ptr<Database> {
            return open_sqlite_database(path_text(path), SqliteAccess::read_write, SqliteReading::ahead);
        });
}

std::unique_ptr<ContractServer> start_sqlite_through_odbc(const std::filesystem::path& folder) {
    return std::make_unique<SqliteServer>(folder,
                                          [](const std::filesystem::path& path) -> std::unique_ptr<Database> {
                                              OdbcSource source;
                                              source.connection.add("Driver", "SQLite3");
                                              source.connection.add("Database", path_text(path));
                                              source.access = OdbcAccess::read_write;
                                              return open_odbc_database(std::move(source));
                                          });
}

}  // namespace prot
