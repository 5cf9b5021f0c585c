#include "platform/portable/sqlite/sqlite_opening.h"

#include <sqlite3.h>

#include <filesystem>
#include <fstream>
#include <system_error>

#include "platform/portable/files/paths.h"
#include "platform/portable/sqlite/sqlite_problem.h"

namespace prot {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view wal_problem =
    "arbeitet mit einem Schreibprotokoll (WAL), das sich hier nicht lesen lässt. Bitte Schreibrecht auf "
    "ihren Ordner "
    "geben oder sie mit PRAGMA journal_mode=DELETE umstellen";

std::string_view text_of(int code) {
    const std::string_view known = sqlite_problem_text(code, SqliteTask::opening);
    return known.empty() ? "lässt sich nicht öffnen" : known;
}

// Whether the file's header says that reading needs a write-ahead log. Source: SQLite file format, offset 19.
bool reads_write_ahead_log(const std::string& path) {
    std::ifstream file(text_path(path), std::ios::binary);
    file.seekg(19);
    return file.get() == 2;
}

std::string line_about(const std::string& path, std::string_view text) {
    return "Die Datenbank „" + path + "“ " + std::string(text) + ".";
}

}  // namespace

std::string check_sqlite_file(const std::string& path) {
    std::error_code error;
    const fs::path file = text_path(path);
    const fs::file_status status = fs::status(file, error);
    const auto refuse = [&](int code, std::string_view text) {
        throw sqlite_error(code, line_about(path, text));
    };
    if (status.type() == fs::file_type::not_found) refuse(SQLITE_CANTOPEN, "gibt es nicht");
    if (status.type() == fs::file_type::none) refuse_sqlite_file(path, SQLITE_PERM, error.message());
    if (status.type() == fs::file_type::directory)
        refuse(SQLITE_CANTOPEN_ISDIR, "ist ein Ordner, keine Datei");
    if (status.type() != fs::file_type::regular) refuse(SQLITE_CANTOPEN, "ist keine gewöhnliche Datei");
    if (fs::file_size(file, error) == 0 && !error)
        refuse(SQLITE_NOTADB, "ist leer und enthält keine Datenbank");
    return path_text(absolute_path(file));
}

void refuse_sqlite_file(const std::string& path, int code, std::string_view message) {
    const int primary = code & 0xFF;
    const bool lacks_log =
        primary == SQLITE_CANTOPEN ||
        (primary == SQLITE_READONLY && code != SQLITE_READONLY && code != SQLITE_READONLY_ROLLBACK);
    const bool wal = lacks_log && reads_write_ahead_log(path);
    std::string text(wal ? wal_problem : text_of(code));
    text += " (" + reported_by_sqlite(message) + ")";
    throw sqlite_error(code, line_about(path, text));
}

}  // namespace prot
