#pragma once

#include <memory>
#include <string>

#include "platform/connection_information.h"
#include "platform/host_database.h"
#include "platform/portable/odbc/connection_string.h"

namespace prot {

enum class OdbcAccess : std::uint8_t { read_only, read_write };

/// Where a database is, and how patient its connections are. Time limits in seconds; 0: none.
struct OdbcSource {
    ConnectionString connection;  ///< whole: with what drivers.h adds
    OdbcAccess access = OdbcAccess::read_only;
    int login_seconds = 15;
    int statement_seconds = 0;
    int lock_seconds = 30;  ///< how long a statement waits for a lock, of SQL Server only
};

/// Opens a database through ODBC's driver manager. A server that calls itself SQLite gets SQLite's dialect,
/// as the built-in object does; every other one gets the statements as they are. Whatever the access, a query
/// is one SELECT; with OdbcAccess::read_only, execute() takes nothing but statements that make and drop
/// temporary tables: everything else is refused here, whatever the driver would do. Where a server keeps one
/// open result for each connection, what is asked while rows are read goes through a second one; temporary
/// tables stay on the first.
///
/// Errors hold every diagnostic record; see odbc_problem.h for number and text.
std::unique_ptr<HostDatabase> open_odbc_database(OdbcSource source);

}  // namespace prot
