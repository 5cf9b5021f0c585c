#include "platform/portable/odbc/odbc_problem.h"

#include <algorithm>
#include <utility>

namespace prot {

namespace {

constexpr SQLSMALLINT most_records = 50;

struct Wording {
    OdbcTask task;
    std::string_view state;  ///< SQLSTATE or its beginning; empty: any
    std::int32_t number;     ///< SQL Server's; 0: any
    std::string_view text;
};

// The first that fits counts. Sources: ODBC, appendix A; SQL Server's list of database engine errors.
using enum OdbcTask;
// clang-format off
constexpr Wording wordings[] = {
    {statement,  "40001", 0,    "Die Datenbank hat die Anweisung zugunsten einer anderen abgebrochen (Deadlock)"},
    {statement,  "",      1205, "Die Datenbank hat die Anweisung zugunsten einer anderen abgebrochen (Deadlock)"},
    {statement,  "",      1222, "Die Datenbank ist gesperrt, ein anderes Programm schreibt gerade hinein"},
    {statement,  "",      229,  "Dem Anmeldenamen fehlt ein Recht in der Datenbank"},
    {statement,  "",      230,  "Dem Anmeldenamen fehlt ein Recht in der Datenbank"},
    {statement,  "",      262,  "Dem Anmeldenamen fehlt ein Recht in der Datenbank"},
    {statement,  "42S02", 0,    "Eine Tabelle gibt es nicht"},
    {statement,  "42S22", 0,    "Eine Spalte gibt es nicht"},
    {statement,  "42000", 0,    "Die Datenbank versteht die Anweisung nicht oder führt sie nicht aus"},
    {statement,  "HYT01", 0,    "Die Datenbank antwortet nicht mehr"},
    {statement,  "HYT00", 0,    "Die Zeit für die Anweisung ist abgelaufen"},
    {statement,  "HY008", 0,    "Die Anweisung wurde abgebrochen"},
    {statement,  "08",    0,    "Die Verbindung zur Datenbank ist abgebrochen"},
    {connecting, "28000", 0,    "Die Datenbank lehnt die Anmeldung ab"},
    {connecting, "HYT",   0,    "Die Datenbank antwortet nicht; die Zeit für die Anmeldung ist abgelaufen"},
    {connecting, "IM002", 0,    "Die Datenquelle oder den Treiber gibt es hier nicht"},
    {connecting, "IM003", 0,    "Der Treiber lässt sich nicht laden"},
    {connecting, "01000", 0,    "Der Treiber lässt sich nicht laden"},  // what unixODBC says first
    {connecting, "08",    0,    "Die Verbindung zur Datenbank kommt nicht zustande"},
    {connecting, "",      0,    "Die Datenbank lässt sich nicht öffnen"},
    {statement,  "",      0,    "Die Datenbank meldet einen Fehler"},
};
// clang-format on

bool fits(const Wording& wording, const OdbcDiagnostic& record) {
    return record.state.starts_with(wording.state) &&
           (wording.number == 0 || wording.number == record.number);
}

std::string_view words_for(const std::vector<OdbcDiagnostic>& diagnostics, OdbcTask task) {
    for (const Wording& wording : wordings) {
        if (wording.task != task) continue;
        for (const OdbcDiagnostic& record : diagnostics)
            if (fits(wording, record)) return wording.text;
    }
    return "Die Datenbank meldet einen Fehler und nennt keinen Grund";
}

std::string record_text(const OdbcDiagnostic& record) {
    return record.state + ", " + std::to_string(record.number) + ": " + record.message;
}

}  // namespace

std::vector<OdbcDiagnostic> diagnostics_of(SQLSMALLINT type, SQLHANDLE handle) {
    std::vector<OdbcDiagnostic> records;
    if (handle == nullptr) return records;
    std::vector<SQLWCHAR> message(1024);
    for (SQLSMALLINT number = 1; number <= most_records; ++number) {
        SQLWCHAR state[6] = {};
        SQLINTEGER native = 0;
        SQLSMALLINT size = 0;
        const auto get = [&] {
            return SQLGetDiagRecW(type, handle, number, state, &native, message.data(),
                                  static_cast<SQLSMALLINT>(message.size()), &size);
        };
        SQLRETURN answer = get();
        if (answer == SQL_SUCCESS_WITH_INFO && size >= static_cast<SQLSMALLINT>(message.size())) {
            message.resize(static_cast<std::size_t>(size) + 1);
            answer = get();
        }
        if (!SQL_SUCCEEDED(answer)) break;
        const auto read = std::clamp<std::size_t>(static_cast<std::size_t>(size), 0, message.size() - 1);
        records.push_back({from_odbc(state, 5), native, from_odbc(message.data(), read)});
    }
    return records;
}

bool ends_connection(const std::vector<OdbcDiagnostic>& diagnostics) {
    return std::ranges::any_of(diagnostics, [](const OdbcDiagnostic& record) {
        return record.state.starts_with("08") || record.state == "HYT01";
    });
}

bool is_answer(const std::vector<OdbcDiagnostic>& diagnostics) {
    return !diagnostics.empty() && !ends_connection(diagnostics) &&
           std::ranges::none_of(diagnostics,
                                [](const OdbcDiagnostic& record) { return record.state.starts_with("HYT"); });
}

std::string describe_odbc_problem(const std::vector<OdbcDiagnostic>& diagnostics, OdbcTask task) {
    std::string text(words_for(diagnostics, task));
    if (diagnostics.empty()) return text;
    text += " [";
    for (const OdbcDiagnostic& record : diagnostics) {
        if (&record != &diagnostics.front()) text += "; ";
        text += record_text(record);
    }
    return text + ']';
}

AutomationError odbc_error(const std::vector<OdbcDiagnostic>& diagnostics, std::string description) {
    constexpr std::uint32_t base = 0x80040000;
    constexpr std::uint32_t errors_in_command = 0x80040E14;
    const std::int32_t native = diagnostics.empty() ? 0 : diagnostics.front().number;
    const bool fits = native > 0 && native <= 0xFFFF;
    const std::uint32_t number = fits ? base + static_cast<std::uint32_t>(native) : errors_in_command;
    return {static_cast<std::int32_t>(number), "ODBC", std::move(description)};
}

}  // namespace prot
