#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/portable/odbc/connection_string.h"

namespace prot {

/// Whose statements a server understands.
enum class OdbcServer : std::uint8_t { transact_sql, sqlite };

/// Whether the way to the server is encrypted.
enum class OdbcEncryption : std::uint8_t {
    asked_for,      ///< the connection string says so, or was made to
    turned_off,     ///< the connection string says so
    not_asked_for,  ///< nobody knows the keyword of this driver
    unnecessary,    ///< there is no way: the database is a file
};

/// Whether the server's certificate must be a trusted one.
enum class OdbcCertificate : std::uint8_t { checked, trusted };

/// The driver of a connection string: that of its Driver, or the one that the driver manager names for its
/// DSN; empty: unknown.
std::string driver_of(const ConnectionString& connection);

/// Adds what a connection of ours asks of the driver `driver` by itself, unless it stands there already:
/// encryption, and of SQLite's that it makes no file.
OdbcEncryption complete(ConnectionString& connection, std::string_view driver, OdbcCertificate certificate);

/// Whether the driver of that name is SQLite's.
bool is_sqlite_driver(std::string_view driver);

}  // namespace prot
