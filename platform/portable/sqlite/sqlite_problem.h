#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/automation/error.h"

/// SQLite's problems in German. `code` is SQLite's result code, extended or primary.
namespace prot {

/// What a program was doing when the problem came up; it is told in other words for each.
enum class SqliteTask : std::uint8_t {
    statement,  ///< "Die Datenbank ist beschädigt", without a full stop
    opening,    ///< "ist beschädigt. Bitte …", to be put behind the name of the database
    creation,   ///< "der Datenträger ist voll", a reason
};

/// The words for a problem; empty when there are none.
std::string_view sqlite_problem_text(int code, SqliteTask task);

/// What went wrong with a statement: SQLite's result code and message in words where they are known, else as
/// SQLite reports them. Without a full stop.
std::string describe_sqlite_problem(int code, std::string_view message);

/// A message that has no words of ours.
std::string reported_by_sqlite(std::string_view message);

/// The automation error of a result code: number 0x80040000 + code, source "SQLite".
AutomationError sqlite_error(int code, std::string description);

}  // namespace prot
