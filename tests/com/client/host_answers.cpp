#include "tests/com/client/host_answers.h"

#include <algorithm>
#include <ranges>

namespace prot::test {

namespace {

constexpr double first_of_january = 45658;  // 2025-01-01
constexpr double hour = 1.0 / 24;

Value whole(int number) { return static_cast<std::int64_t>(number); }
Value words(const char* utf8) { return std::string(utf8); }

Value document(const std::string& old_value, const std::string& new_value) {
    return "<Cols><Col Name=\"dzKursEURGeld\"><OldValue>" + old_value + "</OldValue><NewValue>" + new_value +
           "</NewValue></Col></Cols>";
}

}  // namespace

Variant HostAnswers::ask(const std::string& member, const std::string& statement) {
    asked.push_back(member + ": " + statement);
    for (const auto& [piece, answer] : entries_ | std::views::reverse)
        if (statement.find(piece) != std::string::npos) return answer();
    throw HostError{E_UNEXPECTED, "HostAnswers", "Unbekannte Anweisung: " + statement};
}

int HostAnswers::calls_of(const std::string& member) const {
    return static_cast<int>(std::ranges::count_if(
        asked, [&](const std::string& call) { return call.starts_with(member + ": "); }));
}

Table sample_rows() {
    const Value none;
    return {
        {whole(1), words("TDEVISENKURS"), words("WS-01"), words("Müller"), Date{first_of_january}, whole(0),
         document("", "0,93"), words("sa"), words("Kurse"), whole(10), whole(10), whole(1), none, none},
        {whole(2), words("TDEVISENKURS"), words("WS-02"), words("_UNBEKANNT_7"),
         Date{first_of_january + 31 + 8.5 * hour}, whole(1), document("a;\"b\"", "=SUMME(A1)"),
         words("kurs_import"), words("Nachtlauf"), whole(11), whole(11), whole(2), none, none},
        {whole(3), words("TDEVISENKURS"), words("WS-03"), words("Müller"),
         Date{first_of_january + 59 + 10 * hour}, whole(2), document("7", ""), words("sa"), words("Kurse"),
         whole(99), whole(99), whole(1), none, none},
    };
}

HostAnswers sample_log() {
    HostAnswers log;
    log.on(currencies_query, {{whole(1), words("CHF")}, {whole(2), words("USD")}});
    log.value_on(log_table_query, words("tProtokoll"));
    log.on(main_query, sample_rows());
    log.on("WHERE idDevisenWaehr = 1", {{words("CHF"), words("Schweizer Franken")}});
    log.on("WHERE idDevisenWaehr = 2", {{words("USD"), words("US-\"Dollar\"")}});
    log.on("WHERE idDevisenKurs = 10", {{Date{first_of_january}}});
    log.on("WHERE idDevisenKurs = 11", {{Date{first_of_january + 31 + 8.5 * hour}}});
    log.on("WHERE idDevisenKurs = 99", Table());
    log.value_on(caption_query, words("Kurs EUR (Geld)"));
    return log;
}

std::string sample_file(bool with_event_names) {
    const std::string created = with_event_names ? "angelegt" : "",
                      changed = with_event_names ? "geändert" : "",
                      deleted = with_event_names ? "gelöscht" : "";
    return "\xEF\xBB\xBF"
           "Von ISO Währungscode: CHF bis ISO Währungscode: USD;;;;;;;;;;;\r\n"
           "ISO Währungscode;Bezeichnung;Gültig ab;Datum der Änderung;Mitarbeiter;Feld der Änderung;Aktion;"
           "alter Wert;neuer Wert;Arbeitsstation;Applikation;Datenbankbenutzer\r\n"
           "CHF;Schweizer Franken;01.01.2025;01.01.2025;Müller;Kurs EUR (Geld);" +
           created +
           ";;0,93;WS-01;Kurse;Standardbenutzer\r\n"
           "USD;\"US-\"\"Dollar\"\"\";01.02.2025 08:30:00;01.02.2025 08:30:00;ohne Anmeldung an SRV-SQL01;"
           "Kurs EUR (Geld);" +
           changed +
           ";\"a;\"\"b\"\"\";'=SUMME(A1);WS-02;Nachtlauf;kurs_import\r\n"
           "CHF;Schweizer Franken;nicht vorhanden;01.03.2025 10:00:00;Müller;Kurs EUR (Geld);" +
           deleted + ";7;;WS-03;Kurse;Standardbenutzer\r\n";
}

}  // namespace prot::test
