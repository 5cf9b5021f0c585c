#pragma once

#include <string>
#include <string_view>

namespace prot {

/// Checks that `path` (UTF-8) names an existing regular file with content, which SQLite itself would take for
/// an empty database or a special name. Returns its absolute path for SQLite. Otherwise raises one German
/// line that names `path`.
std::string check_sqlite_file(const std::string& path);

/// Raises one German line that says why `path` cannot be used as a database, and what helps: `code` is
/// SQLite's (extended) result code, `message` its own text.
[[noreturn]] void refuse_sqlite_file(const std::string& path, int code, std::string_view message);

}  // namespace prot
