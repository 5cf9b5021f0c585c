#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/portable/odbc/connection_string.h"

namespace prot {

/// Which database a run is about.
struct DatabaseAddress {
    std::string file;                      ///< path of an SQLite file; empty: it is not one, or none is named
    std::optional<ConnectionString> odbc;  ///< what ODBC's driver manager gets

    bool empty() const { return file.empty() && !odbc; }

    /// For people, reports and logs: the path, or "odbc:…" without what is secret.
    std::string shown() const;

    /// The file that the database is, as far as the address tells; empty: none.
    std::string own_file() const;
};

/// The environment variable that names the database where the command line does not. The program takes it out
/// of its environment before it starts another one.
inline constexpr std::string_view database_variable = "PROTCSV_DB";

/// Reads what --db says: a path, "odbc:…", or "@FILE" for one of the two in the first line of a file that
/// nobody else can read. Raises UsageError, also for a password in the text itself: others see a command
/// line.
DatabaseAddress database_on_command_line(const std::string& text);

/// Reads the same from the environment, where a password may stand. Raises UsageError.
DatabaseAddress database_of_environment(const std::string& text);

}  // namespace prot
