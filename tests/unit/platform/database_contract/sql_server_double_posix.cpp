#include <fstream>

#include "platform/portable/files/paths.h"
#include "platform/portable/odbc/odbc_database.h"
#include "tests/unit/platform/database_contract/sqlite_server.h"

namespace prot {

namespace {

std::filesystem::path script_of(const std::filesystem::path& database) {
    return std::filesystem::path(database).replace_extension(".script");
}

std::unique_ptr<Database> connect_through_double(const std::filesystem::path& database) {
    OdbcSource source;
    source.connection.add("Driver", PROT_ODBC_DOUBLE);
    source.connection.add("Server", "doppel");
    source.connection.add("Database", path_text(database));
    source.connection.add("Script", path_text(script_of(database)));
    source.access = OdbcAccess::read_write;
    return open_odbc_database(std::move(source));
}

/// The tests' own driver, which plays a SQL Server on an SQLite file.
class SqlServerDouble : public SqliteServer {
public:
    explicit SqlServerDouble(const std::filesystem::path& folder)
        : SqliteServer(folder, connect_through_double) {}

    /// Whatever is sent from now on meets a connection that is gone.
    void break_connections() override { std::ofstream(script_of(path())) << "when\t\nlost\n"; }
};

}  // namespace

std::unique_ptr<ContractServer> start_sql_server_double(const std::filesystem::path& folder) {
    return std::make_unique<SqlServerDouble>(folder);
}

}  // namespace prot
