#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/automation/error.h"
#include "platform/portable/odbc/odbc_api.h"

/// What ODBC and the server say of a failure, in one line of German and the server's own words.
namespace prot {

/// One diagnostic record. Source: ODBC, SQLGetDiagRec.
struct OdbcDiagnostic {
    std::string state;        ///< SQLSTATE, five characters
    std::int32_t number = 0;  ///< the server's own, "native"
    std::string message;
};

/// All records of the last call on the handle, in their order: the gravest first. Null handle: none.
std::vector<OdbcDiagnostic> diagnostics_of(SQLSMALLINT type, SQLHANDLE handle);

/// What the program was doing.
enum class OdbcTask : std::uint8_t { connecting, statement };

/// Whether no statement can be run any more after this: the connection is lost (SQLSTATE class 08 and HYT01).
bool ends_connection(const std::vector<OdbcDiagnostic>& diagnostics);

/// Whether the server has answered: it is known what it did. Not when time was over, or when nothing came.
bool is_answer(const std::vector<OdbcDiagnostic>& diagnostics);

/// "Die Datenbank hat … [42S02, 208: Invalid object name 'x'.]": in words where the problem is a known one,
/// and every record as it came. Without a full stop behind it.
std::string describe_odbc_problem(const std::vector<OdbcDiagnostic>& diagnostics, OdbcTask task);

/// Number: 0x80040000 + the first record's where that has 16 bits and is not 0, else 0x80040E14, "errors in
/// command" of OLE DB. Source: "ODBC".
AutomationError odbc_error(const std::vector<OdbcDiagnostic>& diagnostics, std::string description);

}  // namespace prot
