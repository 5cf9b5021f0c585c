#include "platform/portable/sqlite/sqlite_problem.h"

#include <sqlite3.h>

#include <utility>

namespace prot {

namespace {

using enum SqliteTask;

struct Problem {
    SqliteTask task;
    int code;  ///< primary, or extended where that has words of its own
    std::string_view text;
};

constexpr std::string_view locked_statement =
    "Die Datenbank ist gesperrt, ein anderes Programm schreibt gerade hinein";
constexpr std::string_view locked_file =
    "ist gesperrt: ein anderes Programm schreibt gerade hinein. Bitte später noch einmal versuchen";
constexpr std::string_view closed_file =
    "lässt sich nicht öffnen. Bitte die Zugriffsrechte der Datei und ihres Ordners prüfen";

// clang-format off
constexpr Problem problems[] = {
    {statement, SQLITE_BUSY,      locked_statement},
    {statement, SQLITE_LOCKED,    locked_statement},
    {statement, SQLITE_CORRUPT,   "Die Datenbank ist beschädigt"},
    {statement, SQLITE_NOTADB,    "Die Datei ist keine SQLite-Datenbank"},
    {statement, SQLITE_IOERR,     "Die Datenbank lässt sich nicht lesen oder schreiben, Fehler des Datenträgers"},
    {statement, SQLITE_FULL,      "Der Datenträger ist voll"},
    {statement, SQLITE_READONLY,  "Die Datenbank ist schreibgeschützt"},
    {statement, SQLITE_CANTOPEN,  "Die Datenbank lässt sich nicht öffnen"},
    {statement, SQLITE_NOMEM,     "Der Arbeitsspeicher reicht nicht aus"},
    {statement, SQLITE_INTERRUPT, "Die Anweisung wurde abgebrochen"},

    {opening,   SQLITE_BUSY,      locked_file},
    {opening,   SQLITE_LOCKED,    locked_file},
    {opening,   SQLITE_CORRUPT,   "ist beschädigt. Bitte aus einer Sicherung wiederherstellen"},
    {opening,   SQLITE_NOTADB,    "ist keine SQLite-Datenbank, oder sie ist verschlüsselt"},
    {opening,   SQLITE_IOERR,     "lässt sich nicht lesen. Bitte den Datenträger oder die Netzverbindung prüfen"},
    {opening,   SQLITE_READONLY_ROLLBACK,
                                  "wurde beim Schreiben unterbrochen und muss erst von einem Programm geöffnet werden, "
                                  "das in sie schreiben darf"},
    {opening,   SQLITE_READONLY,  "ist schreibgeschützt. Bitte die Zugriffsrechte der Datei und ihres Ordners prüfen"},
    {opening,   SQLITE_CANTOPEN,  closed_file},
    {opening,   SQLITE_PERM,      closed_file},
    {opening,   SQLITE_AUTH,      closed_file},

    {creation,  SQLITE_BUSY,      "die Datei wird von einem anderen Programm benutzt"},
    {creation,  SQLITE_NOTADB,    "die Datei ist keine Datenbank"},
    {creation,  SQLITE_IOERR,     "Fehler beim Schreiben auf den Datenträger"},
    {creation,  SQLITE_FULL,      "der Datenträger ist voll"},
    {creation,  SQLITE_READONLY,  "die Datei ist schreibgeschützt"},
    {creation,  SQLITE_CANTOPEN,  "die Datei kann nicht angelegt werden"},
    {creation,  SQLITE_PERM,      "der Zugriff ist nicht erlaubt"},
};
// clang-format on

struct Wording {
    std::string_view start;  ///< of SQLite's message; what follows is the name
    std::string_view before, behind;
};
constexpr Wording wordings[] = {
    {"no such table: ", "Die Tabelle „", "“ gibt es nicht"},
    {"no such column: ", "Die Spalte „", "“ gibt es nicht"},
    {"ambiguous column name: ", "Die Spalte „", "“ ist nicht eindeutig"},
};

/// The name as the statement has it: where SQLite keeps temporary tables is its own affair.
std::string_view without_schema(std::string_view name) {
    constexpr std::string_view temporary = "temp.";
    return name.starts_with(temporary) ? name.substr(temporary.size()) : name;
}

}  // namespace

std::string_view sqlite_problem_text(int code, SqliteTask task) {
    for (const int known : {code, code & 0xFF})
        for (const Problem& problem : problems)
            if (problem.task == task && problem.code == known) return problem.text;
    return {};
}

std::string describe_sqlite_problem(int code, std::string_view message) {
    for (const Wording& wording : wordings) {
        if (message.starts_with(wording.start))
            return std::string(wording.before)
                .append(without_schema(message.substr(wording.start.size())))
                .append(wording.behind);
    }
    const std::string_view known = sqlite_problem_text(code, statement);
    return known.empty() ? reported_by_sqlite(message) : std::string(known);
}

std::string reported_by_sqlite(std::string_view message) { return "SQLite meldet: " + std::string(message); }

AutomationError sqlite_error(int code, std::string description) {
    constexpr std::uint32_t base = 0x80040000;
    return {static_cast<std::int32_t>(base + static_cast<std::uint32_t>(code)), "SQLite",
            std::move(description)};
}

}  // namespace prot
