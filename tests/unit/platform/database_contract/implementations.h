#pragma once

#include <filesystem>
#include <memory>
#include <ostream>
#include <span>
#include <string>

#include "platform/automation/value.h"
#include "platform/database.h"

namespace prot {

/// What a column of a test's table holds. Texts have no length limit.
enum class ColumnKind { integer, real, date, text };

/// A server with one empty database, as the contract's tests need it: the connections under test, and what
/// surrounds them, which goes past the database object.
class ContractServer {
public:
    virtual ~ContractServer() = default;

    /// A new connection with the right to write.
    virtual std::unique_ptr<Database> connect() = 0;

    /// Runs one statement of the server's own dialect: CREATE TABLE, INSERT and UPDATE, made of the words
    /// below. False when the server refuses it, as it may while a connection under test reads.
    virtual bool run(const std::string& statement) = 0;

    /// The declared type of such a column, Null allowed.
    virtual std::string type_of(ColumnKind kind) = 0;

    /// `value` as run takes it: Null, integer, real, date or text.
    virtual std::string literal(const Value& value) = 0;

    /// Breaks all connections that were made: each fails at the next statement that reads a table.
    virtual void break_connections() = 0;
};

/// One implementation of the database object. A new one adds its row to the table in implementations.cpp.
struct DatabaseImplementation {
    const char* name;  ///< of its tests: letters and digits
    /// `folder` is empty and the test's own. Null when this machine has no such server: the tests are
    /// skipped.
    std::unique_ptr<ContractServer> (*start)(const std::filesystem::path& folder);
    bool lookups_see_one_state;         ///< whether the server can give that, see Database::begin_lookups
    bool temporary_columns_keep_types;  ///< whether dates stay dates in a temporary table, and texts compare
                                        ///< as before
};

inline void PrintTo(const DatabaseImplementation& implementation, std::ostream* out) {
    *out << implementation.name;
}

std::span<const DatabaseImplementation> database_implementations();

// The implementations' servers, each in a file of its own.
std::unique_ptr<ContractServer> start_sqlite(const std::filesystem::path& folder);
std::unique_ptr<ContractServer> start_sqlite_that_reads_ahead(const std::filesystem::path& folder);
std::unique_ptr<ContractServer> start_sqlite_through_odbc(const std::filesystem::path& folder);
/// A driver of the tests' own, on Linux only.
std::unique_ptr<ContractServer> start_sql_server_double(const std::filesystem::path& folder);

}  // namespace prot
