#include "apps/protcsv/options/option_table.h"

#include <algorithm>
#include <iterator>
#include <limits>

#include "apps/protcsv/options/days.h"
#include "apps/protcsv/options/option_values.h"
#include "apps/protcsv/options/output_name.h"
#include "apps/protcsv/options/usage_error.h"
#include "platform/automation/utf8.h"

namespace prot {

namespace {

constexpr Commands exporting = set_of(Command::export_log);
constexpr Commands deleting = set_of(Command::delete_log);
constexpr Commands running = set_of(Command::run);
constexpr Commands sampling = set_of(Command::sample);
constexpr Commands completing = set_of(Command::completion);
constexpr Commands filtered = exporting | deleting;
constexpr Commands writing = exporting | running;
constexpr Commands any_log = filtered | running;

const std::string& not_empty(const std::string& value) {
    if (value.empty()) throw UsageError("der Wert darf nicht leer sein");
    return value;
}

const std::string& as_text(const std::string& value) {
    if (!is_valid_utf8(value)) throw UsageError("der Wert ist kein gültiges UTF-8");
    return value;
}

int as_seconds(const std::string& value) {
    constexpr std::uint64_t a_day = 86400;
    return static_cast<int>(parse_number(value, 0, a_day));
}

const std::string& as_output(const std::string& value) {
    require_output_pattern(not_empty(value));
    return value;
}

void ask_for_events(Options& options, const std::string& value) {
    const std::int32_t events = parse_events(value);
    options.request.events = events & all_events;
    if (events != options.request.events)
        options.warnings.push_back("--events: „" + value + "“ wird als " +
                                   std::to_string(options.request.events) +
                                   " gelesen; nur 1, 2 und 4 haben eine Bedeutung");
}

// clang-format off
constexpr StatusRow status_rows[] = {
    {"0", "erledigt (auch ohne Daten)"},
    {"1", "Fehler"},
    {"2", "falscher Aufruf"},
    {"3", "abgebrochen"},
    {"4", "geschrieben, aber unvollständig"},
    {"5", "keine Daten (mit --fail-on-empty)"},
};

constexpr CommandRow command_rows[] = {
    {Command::export_log, "export", "Schreibt das Protokoll eines Bereichs in eine CSV-Datei",
     "--db ZIEL --section BEREICHE [Optionen]",
     "Beispiele:\n"
     "  protcsv export --db firma.db --section exchange-rates --from 01.01.2026\n"
     "  protcsv export --db firma.db --section 15 --params \"/autostart/vondevi:EUR\"\n"
     "  protcsv export --db firma.db --section 6 --params \"/autostart/mandant:123\""},
    {Command::delete_log, "delete", "Löscht die ausgewählten Protokollsätze",
     "--db ZIEL --section NR|NAME [Optionen]",
     "Beispiel:\n"
     "  protcsv delete --db firma.db --section 15 --to 31.12.2015 \\\n"
     "      --params \"/autostart\" --archive archiv --yes"},
    {Command::run, "run", "Exportiert unbeaufsichtigt nach einem Parametertext",
     "--db ZIEL --params TEXT [Optionen]",
     "Aus dem Parametertext werden gelesen: sektion (Pflicht), mitarbeiter, datvon,\n"
     "datbis, neu, aend, loe (1/0 oder ja/nein). Der ganze Text geht an den Export.\n"
     "\n"
     "Beispiel:\n"
     "  protcsv run --db firma.db --out /srv/protokolle \\\n"
     "      --params \"/sektion:15/datvon:01.01.2026/autostart/vondevi:EUR\""},
    {Command::sample, "sample", "Schreibt eine Beispieldatenbank",
     "DATEI [Optionen]",
     "Beispiel:\n"
     "  protcsv sample beispiel.db --seed 7"},
    {Command::sections, "sections", "Zeigt die Bereiche, die es gibt",
     "",
     "Beispiel:\n"
     "  protcsv sections"},
    {Command::completion, "completion", "Schreibt die Vervollständigung für eine Shell",
     "SHELL",
     "Beispiel:\n"
     "  source <(protcsv completion bash)"},
    {Command::manual, "man", "Schreibt die Handbuchseite für man",
     "",
     "Beispiel:\n"
     "  protcsv man >protcsv.1"},
};

constexpr OptionRow option_rows[] = {
    {"DATEI", "DATEI", sampling, sampling, "Argumente", "Pfad der neuen Beispieldatenbank",
     [](Options& o, const std::string& value, const OptionContext&) { o.sample_file = not_empty(value); }},
    {"--db", "ZIEL", writing, writing, "Datenbank",
     "Pfad der SQLite-Datei, odbc:VERBINDUNG oder @DATEI, in\nderen erster Zeile eins von beiden steht; sonst gilt,\nwas in der Umgebungsvariablen PROTCSV_DB steht",
     [](Options& o, const std::string& value, const OptionContext&) { o.database = database_on_command_line(value); }},
    {"--db", "ZIEL", deleting, deleting, "Datenbank",   // nobody deletes where an environment says
     "Pfad der SQLite-Datei, odbc:VERBINDUNG oder @DATEI, in\nderen erster Zeile eins von beiden steht",
     [](Options& o, const std::string& value, const OptionContext&) { o.database = database_on_command_line(value); }},
    {"--login-timeout", "SEKUNDEN", any_log, 0, "Datenbank", "wie lange eine Anmeldung dauern darf (ODBC, Vorgabe: 15)",
     [](Options& o, const std::string& value, const OptionContext&) { o.login_seconds = as_seconds(value); }},
    {"--statement-timeout", "SEKUNDEN", any_log, 0, "Datenbank", "wie lange eine Anweisung (ODBC, Vorgabe: 0, ohne Grenze)",
     [](Options& o, const std::string& value, const OptionContext&) { o.statement_seconds = as_seconds(value); }},
    {"--lock-timeout", "SEKUNDEN", any_log, 0, "Datenbank", "wie lange sie auf Sperren wartet (ODBC, Vorgabe: 30)",
     [](Options& o, const std::string& value, const OptionContext&) { o.lock_seconds = as_seconds(value); }},
    {"--trust-certificate", "", any_log, 0, "Datenbank", "prüft nicht, ob der SQL Server der ist, der er sein soll",
     [](Options& o, const std::string&, const OptionContext&) { o.trust_certificate = true; }},
    {"--section", "BEREICHE", exporting, exporting, "Auswahl",
     "Bereich, Nummer oder Name (siehe protcsv sections);\nmehrere durch Komma getrennt, oder all",
     [](Options& o, const std::string& value, const OptionContext& context) {
         o.sections = parse_sections(value, context.sections);
         o.request.section = o.sections.front();
     }},
    {"--section", "NR|NAME", deleting, deleting, "Auswahl", "Bereich, Nummer oder Name (siehe protcsv sections)",
     [](Options& o, const std::string& value, const OptionContext& context) {
         o.request.section = find_section(value, context.sections).number;
     }},
    {"--user", "NAME", filtered & ~deleting, 0, "Auswahl", "nur Änderungen dieses Mitarbeiters",
     [](Options& o, const std::string& value, const OptionContext&) { o.request.user = as_text(value); }},
    {"--user", "NAME", deleting, 0, "Auswahl", "nur Änderungen dieses Mitarbeiters",   // an unset variable is nobody, not all
     [](Options& o, const std::string& value, const OptionContext&) { o.request.user = as_text(not_empty(value)); }},
    {"--from", "DATUM", filtered, 0, "Auswahl", "erster Tag: TT.MM.JJJJ, JJJJ-MM-TT, heute, gestern oder\nein Monat, JJJJ-MM",
     [](Options& o, const std::string& value, const OptionContext& context) {
         o.request.from = parse_days(value, context.today).first;
     }},
    {"--to", "DATUM", filtered & ~deleting, 0, "Auswahl", "letzter Tag, ebenso",
     [](Options& o, const std::string& value, const OptionContext& context) {
         o.request.to = parse_days(value, context.today).last;
     }},
    {"--to", "DATUM", deleting, 0, "Auswahl", "letzter Tag, ebenso",
     [](Options& o, const std::string& value, const OptionContext& context) {
         o.request.to = parse_last_day_of_deletion(value, context.today);
     }},
    {"--events", "LISTE", filtered, 0, "Auswahl",
     "created, changed, deleted oder angelegt, geändert,\ngelöscht (durch Komma getrennt); all (Vorgabe), none\noder die Summe aus 1 (created), 2 (changed) und\n4 (deleted)",
     [](Options& o, const std::string& value, const OptionContext&) { ask_for_events(o, value); }},
    {"--params", "TEXT", any_log, running, "Auswahl",
     "Parametertext, etwa \"/autostart/vondevi:EUR\"; ohne\nautostart werden die Filter am Terminal erfragt",
     [](Options& o, const std::string& value, const OptionContext&) { o.parameters = as_text(value); }},
    {"--out", "ORDNER", writing, 0, "Ausgabe", "Zielordner, wird angelegt (Vorgabe: aktueller Ordner)",
     [](Options& o, const std::string& value, const OptionContext&) { o.csv.folder = text_path(not_empty(value)); }},
    {"--out", "ORDNER", deleting, 0, "", "",   // a script may swap the commands and keep its options
     [](Options&, const std::string&, const OptionContext&) {}},
    {"--output", "DATEI", writing, 0, "Ausgabe",
     "Name der Datei, die auch ersetzt wird; darin stehen\n{section}, {client}, {date} und {time} für Angaben des\nLaufs; - schreibt auf die Standardausgabe",
     [](Options& o, const std::string& value, const OptionContext&) { o.output = as_output(value); }},
    {"--no-clobber", "", writing, 0, "Ausgabe", "lehnt den Lauf ab, wenn es die Datei von --output gibt",
     [](Options& o, const std::string&, const OptionContext&) { o.no_clobber = true; }},
    {"--separator", "ZEICHEN", writing, 0, "Ausgabe", "Trennzeichen oder tab (Vorgabe: ;)",
     [](Options& o, const std::string& value, const OptionContext&) { o.csv.separator = parse_separator(value); }},
    {"--encoding", "KODIERUNG", writing, 0, "Ausgabe", "utf-8-bom (Vorgabe), utf-8 oder windows-1252",
     [](Options& o, const std::string& value, const OptionContext&) { o.csv.encoding = parse_encoding(value); }},
    {"--raw-cells", "", writing, 0, "Ausgabe", "Zellen, die wie Formeln aussehen, nicht entschärfen",
     [](Options& o, const std::string&, const OptionContext&) { o.csv.raw_cells = true; }},
    {"--archive", "ORDNER", deleting, 0, "Ablauf",
     "legt in diesem Ordner erst ein geprüftes Archiv der\nSätze an und löscht nur, was darin steht",
     [](Options& o, const std::string& value, const OptionContext&) { o.archive = as_text(not_empty(value)); }},
    {"--dry-run", "", deleting, 0, "Ablauf", "sagt, was gelöscht würde, und löscht nichts",
     [](Options& o, const std::string&, const OptionContext&) { o.dry_run = true; }},
    {"--yes", "", deleting, 0, "Ablauf", "beantwortet die Löschfrage mit Ja",
     [](Options& o, const std::string&, const OptionContext&) { o.yes = true; }},
    {"--as-is", "", running, 0, "Ablauf", "nimmt den Parametertext ungeprüft",
     [](Options& o, const std::string&, const OptionContext&) { o.as_is = true; }},
    {"--answers", "DATEI", any_log, 0, "Ablauf",
     "Antworten auf die Fragen, eine je Zeile; - liest\ndie Standardeingabe",
     [](Options& o, const std::string& value, const OptionContext&) { o.answers = not_empty(value); }},
    {"--plain", "", any_log, 0, "Ablauf", "Fragen Zeile für Zeile statt als Bildschirmformular",
     [](Options& o, const std::string&, const OptionContext&) { o.plain = true; }},
    {"--threads", "1|2", writing, 0, "Ablauf",
     "2 (Vorgabe) liest das Protokoll voraus, während Zeilen\ngeschrieben werden; 1 tut eins nach dem anderen",
     [](Options& o, const std::string& value, const OptionContext&) { o.threads = static_cast<int>(parse_number(value, 1, 2)); }},
    {"--sql-log", "DATEI", any_log, 0, "Ablauf", "schreibt jede SQL-Anweisung als JSON-Zeile mit",
     [](Options& o, const std::string& value, const OptionContext&) { o.statement_log = not_empty(value); }},
    {"--report", "DATEI", any_log, 0, "Ablauf", "schreibt einen Bericht über den Lauf als JSON, mit - auf\ndie Standardausgabe statt des Pfades",
     [](Options& o, const std::string& value, const OptionContext&) { o.report = not_empty(value); }},
    {"--strict", "", writing, 0, "Ablauf", "Rückgabewert 4 auch bei fehlenden Beschriftungen und\nunlesbaren Protokollsätzen",
     [](Options& o, const std::string&, const OptionContext&) { o.strict = true; }},
    {"--fail-on-empty", "", writing, 0, "Ablauf", "Rückgabewert 5 statt 0, wenn es keine Daten gibt",
     [](Options& o, const std::string&, const OptionContext&) { o.fail_on_empty = true; }},
    {"--quiet", "", any_log, 0, "Ablauf", "kein Fortschrittsbalken, keine Hinweise, keine Bilanz",
     [](Options& o, const std::string&, const OptionContext&) { o.quiet = true; }},
    {"--seed", "ZAHL", sampling, 0, "Ablauf", "gleiche Zahl, gleicher Inhalt (Vorgabe: 1)",
     [](Options& o, const std::string& value, const OptionContext&) {
         o.sample.seed = parse_number(value, 0, std::numeric_limits<std::uint64_t>::max());
     }},
    {"--rows", "ZAHL", sampling, 0, "Ablauf", "Protokollsätze (Vorgabe: ein kleines Protokoll)",
     [](Options& o, const std::string& value, const OptionContext&) {
         o.sample.rows = static_cast<std::int64_t>(parse_number(value, 1, most_sample_rows));
     }},
    {"--section", "NR|NAME", sampling, 0, "Ablauf", "nur Protokollsätze dieses Bereichs (Vorgabe: aller)",
     [](Options& o, const std::string& value, const OptionContext& context) {
         o.sample.section = find_section(value, context.sections).number;
     }},
    {"--sql", "", sampling, 0, "Ablauf", "schreibt ein T-SQL-Skript, das ein SQL Server laden kann",
     [](Options& o, const std::string&, const OptionContext&) { o.sample_as_script = true; }},
    {"--overwrite", "", sampling, 0, "Ablauf", "ersetzt auch eine Datei, die keine Beispieldatenbank ist",
     [](Options& o, const std::string&, const OptionContext&) { o.overwrite = true; }},
    {"SHELL", "bash|zsh|fish", completing, completing, "Argumente", "bash, zsh oder fish",
     [](Options& o, const std::string& value, const OptionContext&) { o.shell = parse_shell(value); }},
};
// clang-format on

}  // namespace

std::span<const StatusRow> status_table() { return status_rows; }
std::span<const CommandRow> command_table() { return command_rows; }
std::string_view command_name(Command command) {
    const CommandRow* const row = std::ranges::find(command_rows, command, &CommandRow::command);
    return row == std::end(command_rows) ? std::string_view() : row->name;
}
std::span<const OptionRow> option_table() { return option_rows; }

}  // namespace prot
