#include "tests/documents/example_table.h"

namespace prot::test {

// file: the finished file, as standard output names it. has, rows_have: its text, or every line behind its
// two heads, fits the regular expression. form: the example fits it. The log of section 15 is that of
// TDEVISENKURS.
const std::string_view example_functions = R"bash(
fail() { echo "$*"; exit 1; }
file() { tail -n 1 ../out; }
has() { grep -Eq -- "$1" "$(file)" || fail "nicht in der Datei: $1"; }
told() { grep -Eq -- "$1" ../err || fail "nicht gemeldet: $1"; }
printed() { grep -Eq -- "$1" ../out || fail "nicht auf der Standardausgabe: $1"; }
rows() {
    python3 -c 'import csv, sys
for row in list(csv.reader(open(sys.argv[1], encoding="utf-8-sig", newline=""), delimiter=";"))[2:]:
    print(" ".join(";".join(row).split()))' "$(file)"
}
rows_have() {
    [ -n "$(rows)" ] || fail "keine Zeilen"
    ! rows | grep -Ev -- "$1" || fail "nicht in jeder Zeile: $1"
}
named() { [[ "$(file)" =~ ^($1)$ ]] || fail "anderer Name: $1"; }
form() { [[ "$text" =~ ^$1$ ]] || fail "andere Form: $1"; }
sql() {
    python3 -c 'import sqlite3, sys
log = sqlite3.connect("firma.db")
for row in log.execute(sys.argv[1]): print(*row)
log.commit()' "$1"
}
rates="dcTable = 'TDEVISENKURS'"
age_rates() {
    sql "UPDATE tProtokoll SET ddDatum = '2015-12-31 23:59:00' WHERE $rates AND idProtokoll % 3 = 0"
    sql "UPDATE tProtokoll SET ddDatum = '2016-01-02 00:00:00' WHERE $rates AND idProtokoll % 3 = 1"
    sql "SELECT count(*) FROM tProtokoll WHERE $rates AND idProtokoll % 3 <> 0" >../kept
}
aged_rates_are_gone() {
    [ "$(sql "SELECT count(*) FROM tProtokoll WHERE $rates")" = "$(cat ../kept)" ] || fail "falsche Anzahl"
    [ "$(sql "SELECT count(*) FROM tProtokoll WHERE $rates AND ddDatum < '2016'")" = 0 ] || fail "nicht alle"
}
aged_rates_are_archived() {
    named 'archiv/Archiv_Devisenkurse_[0-9]{8}_[0-9]{6}'
    grep -Eq '"state": ?"deleted"' "$(file)/beleg.json" && [ -s "$(file)/archiv.db" ] && ls "$(file)"/Prot_*.csv
}
connection_in() {
    mkdir -p "$(dirname "$1")"
    echo "odbc:Driver=SQLite3;Database=$PWD/firma.db;PWD=geheim" >"$1"
    chmod 600 "$1"
}
change_rate_yesterday() {
    sql "UPDATE tProtokoll SET ddDatum = datetime('now', 'localtime', 'start of day', '-12 hours')
         WHERE $rates AND idProtokoll = (SELECT max(idProtokoll) FROM tProtokoll WHERE $rates)"
    yesterday=$(date -d yesterday +%d.%m.%Y)
}
each_line_is_in() {
    while IFS= read -r line; do grep -qF -- "${line%…}" "$1" || fail "nicht in der Datei: $line"; done <../text
}
)bash";

namespace {

// clang-format off
constexpr Example examples[] = {
    // README.md
    {"Kunden-Nr;Bezeichnung;Datum der Änderung;Mitarbeiter;Feld der Änderung;Aktion;alter Wert;neuer Wert;…", 0,
     R"sh(each_line_is_in "$(file)"; [ "$(wc -l <../text)" = 3 ])sh", "protcsv sample log.db", "",
     "protcsv export --db log.db --section customers --params /autostart/mandant:1"},
    {"make demo", 0, R"sh([ "$(grep -c ^make ../text)" = 2 ])sh", "", "",
     R"sh(while read -r make target rest; do grep -q "^$target:.* ## " "$SOURCES/Makefile" || exit 1; done <../text)sh"},
    {"protcsv sample firma.db", 0, R"sh([ "$(cat ../out)" = firma.db ] && [ "$(sql 'SELECT count(*) > 500 FROM tProtokoll')" = 1 ])sh",
     "rm firma.db"},
    {"protcsv export --db firma.db --section exchange-rates", 0,
     R"sh(named Prot_Devisenkurse.csv; grep -q 'von ISO Währungscode \[AED\]: ' ../typescript; grep -q 'Dateiname \[' ../typescript)sh", "", R"sh(\n\n\n)sh"},
    {"protcsv export --db firma.db --section 15 --from 2026-01-01 --events changed,deleted --params /autostart", 0,
     R"sh(rows_have ';[0-9.]+2026 [0-9:]+;.*;(geändert|gelöscht);')sh"},
    {"protcsv export --db firma.db --section open-items --params /autostart/mandant:123", 0,
     R"sh(has '^.*Mandant: 123 '; rows_have '^(1000[01]|nicht vorhanden);')sh"},
    {"protcsv export --db firma.db --section customers --params /autostart/mandant:1", 0,
     R"sh(has '^.*Mandant: 1 .*, von Kunden-Nr: 10000 bis Kunden-Nr: 10001;'; has '^10000;'; has '^10001;')sh"},
    {"protcsv export --db firma.db --section report-frameworks --params /autostart/auswertung:bilanz", 0,
     R"sh(has '^.*Standardrahmen, Bilanz, '; rows_have '^([^;]*Bilanz|;)')sh"},
    {"protcsv run --db firma.db --params \"/sektion:15/datvon:gestern/datbis:gestern/autostart\"", 0,
     R"sh(rows_have ";$yesterday ")sh", "change_rate_yesterday"},
    {"protcsv delete --db firma.db --section 15 --to 31.12.2015 --params /autostart --archive archiv --yes", 0,
     "aged_rates_are_gone; aged_rates_are_archived", "age_rates"},
    {"protcsv sections", 0, R"sh([ "$(wc -l <../out)" = 5 ]; printed '^ *15  exchange-rates +Devisenkurse$')sh"},

    // Handbook
    {"protcsv export --help", 0, "for option in db from fail-on-empty; do printed \"--$option \"; done"},
    {"protcsv export --db firma.db --section 15 --from 01.01.2026 --to 31.03.2026", 0,
     R"sh(named Prot_Devisenkurse.csv; rows_have ';[0-9]+\.0[123]\.2026 ')sh", "", R"sh(\n\n\n)sh"},
    {"1 204 Protokollsätze gelesen, 3 411 Zeilen geschrieben, 12 Sätze ohne Zeile (10 ohne Beschriftung, 2 unlesbar), 0,8 s", 0,
     R"sh(told '^[0-9 ]+ Protokollsätze gelesen, [0-9 ]+ Zeilen geschrieben, [0-9 ]+ Sätze ohne Zeile \([0-9]+ ohne Beschriftung, .*, [0-9] unlesbar.*\), [0-9]+,[0-9] s$'
        form '[0-9 ]+ Protokollsätze gelesen, [0-9 ]+ Zeilen geschrieben, [0-9 ]+ Sätze ohne Zeile .[0-9]+ ohne Beschriftung, [0-9] unlesbar., [0-9]+,[0-9] s')sh",
     "", "", "protcsv export --db firma.db --section 15 --params /autostart"},
    {"protcsv export --db firma.db --section 6 --out protokolle --output \"{section}-{client}-{date}.csv\" --params /autostart/mandant:123", 0,
     R"sh(named "protokolle/open-items-123-$(date +%Y%m%d).csv"; has '^.*Mandant: 123 ')sh"},
    {"protcsv run", 2, "told '--db fehlt'"},
    {"protcsv run --db /srv/firma/firma.db --out /srv/firma/protokolle --quiet --params \"/sektion:15/datvon:gestern/datbis:gestern/autostart\"", 0,
     R"sh(named "$SRV/firma/protokolle/Prot_Devisenkurse_[0-9]{8}_[0-9]{6}.csv"; [ "$(wc -l <../out)" = 1 ]; rows_have ";$yesterday ")sh",
     R"sh(change_rate_yesterday; mkdir -p "$SRV/firma"; cp firma.db "$SRV/firma")sh"},
    {"MAILTO=buchhaltung@example.org", 0,
     R"sh([ ! -s ../out ] && [ ! -s ../err ]; grep -q "$yesterday" "$SRV"/firma/protokolle/*.csv
        form $'MAILTO=[^\n]+\n15 2 \\* \\* \\*  protcsv [^\n%]*')sh",
     R"sh(change_rate_yesterday; mkdir -p "$SRV/firma"; cp firma.db "$SRV/firma"; connection_in "$SRV/protcsv/firma")sh", "",
     R"sh(eval "$(sed -n 's/^15 2 \* \* \*  //p' ../text)")sh"},
    {"[Unit]", 0,
     R"sh(grep -q "$yesterday" "$(file)"
        [ "$(grep '^\[' ../text | tr -d '\n')" = '[Unit][Service][Timer][Install]' ]
        ! grep -Ev '^$|^\[[A-Z][a-z]+\]$|^[A-Z][A-Za-z]+=.' ../text
        grep -Eqx 'OnCalendar=\*-\*-\* 02:15:00' ../text)sh",
     R"sh(change_rate_yesterday; mkdir -p "$SRV/firma"; cp firma.db "$SRV/firma")sh", "",
     R"sh(eval "$(sed -n 's|^ExecStart=/usr/local/bin/||p' ../text)")sh"},
    {"@echo off", 0,
     R"sh(grep -q "$yesterday" "$(file)"; [ ! -s "$SRV/firma/nacht.log" ]; form $'@echo off\n"C:[^\n]+ 2>>D:[^\n]+\nexit /b %errorlevel%')sh",
     R"sh(change_rate_yesterday; mkdir -p "$SRV/firma"; cp firma.db "$SRV/firma"; connection_in "$SRV/firma/ziel.txt")sh", "",
     R"sh(eval "$(sed -n '2s|^"C:\\Program Files\\protcsv\\protcsv.exe"|protcsv|; 2s|D:\\firma\\|'"$SRV"'/firma/|gp' ../text)")sh"},
    {"schtasks /Create /TN \"Protokollausgabe\" /SC DAILY /ST 02:15 /RU SYSTEM /TR \"D:\\firma\\nacht.cmd\"", 0,
     R"sh(form $'schtasks /Create /TN "[^"]+" /SC DAILY /ST [0-9]{2}:[0-9]{2} /RU SYSTEM /TR "D:.firma.nacht.cmd"')sh", "", "", ":"},
    {"/datvon:31.03.2026/datbis:31.03.2026", 0, R"sh(rows_have ';31\.03\.2026 ')sh",
     "sql \"UPDATE tProtokoll SET ddDatum = '2026-03-31 08:00:00' WHERE $rates AND idProtokoll % 3 = 0\"", "",
     R"sh(protcsv run --db firma.db --params "/sektion:15$text/autostart")sh"},
    {"/schlüssel:wert", 0, R"sh(form '/[^/:]+:[^/:]+')sh", "", "", ":"},
    {"/autostart/auswertung:Bilanz/auswertungsrahmen:Bilanz/GuV", 0, R"sh(has '^.*Standardrahmen: Bilanz/GuV ')sh", "", "",
     R"sh(protcsv run --db firma.db --params "$text/sektion:10")sh"},
    {"/auswertungsrahmen:BWA (Gültig ab 01/2020)", 0, R"sh(has ': BWA .Gültig ab 01/2020.,')sh",
     R"sh(sql "UPDATE Auswertungsrahmen SET ARa_Bezeichnung = 'BWA', ddGueltigVon =
             CASE ARa_Id WHEN 10000003 THEN '2020-01-01 00:00:00' END WHERE ARa_Id IN (10000003, 10000019)")sh", "",
     R"sh(protcsv run --db firma.db --params "/autostart/sektion:10/auswertung:Betriebswirtschaftliche Auswertung$text")sh"},
    {"protcsv delete --db firma.db --section 15 --to 31.12.2015 --archive archiv", 0,
     R"sh(aged_rates_are_gone; aged_rates_are_archived; grep -q 'Sollen die Protokollsätze endgültig gelöscht werden' ../typescript)sh", "age_rates", R"sh(\n\nja\n)sh"},
    {"protcsv sample beispiel.db", 0, "[ -s beispiel.db ]"},
    {"/autostart/vonkonto:1/biskonto:999999999", 0, R"sh(has 'von Konto: 1 bis Konto: 999999999'; rows_have '^([0-9]+|nicht vorhanden);'; has '^nicht vorhanden;')sh", "", "",
     R"sh(protcsv run --db firma.db --params "$text/sektion:6")sh"},

    {"schtasks /Create /TN \"Protokollausgabe\" /SC DAILY /ST 02:15 /RU FIRMA\\protokoll /RP * /TR \"D:\\firma\\nacht.cmd\"", 0,
     R"sh(form $'schtasks /Create /TN "[^"]+" /SC DAILY /ST [0-9]{2}:[0-9]{2} /RU FIRMA.protokoll /RP . /TR "D:.firma.nacht.cmd"')sh", "", "", ":"},
    {"[Service]", 0,
     R"sh(grep -q "$yesterday" "$(file)"; ! grep -Ev '^\[Service\]$|^[A-Z][A-Za-z]+=.' ../text)sh",
     R"sh(change_rate_yesterday; mkdir -p "$SRV/firma"; connection_in "$SRV/protcsv/firma")sh", "",
     R"sh(eval "$(sed -n 's|^ExecStart=/usr/local/bin/||p' ../text)")sh"},

    // SQL Server, played by a database of SQLite behind ODBC as far as the run goes
    {"odbc:Driver={ODBC Driver 18 for SQL Server};Server=sql01.firma.example;Database=Suite;Trusted_Connection=Yes", 2,
     "told '--section fehlt'", "", "", R"sh(protcsv export --db "$(cat ../text)")sh"},
    {"protcsv export --db @/srv/protcsv/firma --section 15 --from gestern --params /autostart --sql-log anweisungen.json", 0,
     R"sh(rows_have ";$yesterday "; grep -q '"sql":"SELECT dcLogTable' anweisungen.json; ! grep -q geheim anweisungen.json)sh",
     R"sh(change_rate_yesterday; connection_in "$SRV/protcsv/firma")sh"},
    {"protcsv delete --db @/srv/protcsv/loeschen --section 15 --from 2015-03 --to 2015-03 --params /autostart --archive archiv --yes", 0,
     R"sh(aged_rates_are_archived; [ "$(sql "SELECT count(*) FROM tProtokoll WHERE $rates AND ddDatum LIKE '2015-03%'")" = 0 ])sh",
     R"sh(sql "UPDATE tProtokoll SET ddDatum = '2015-03-31 23:59:00' WHERE $rates AND idProtokoll % 3 = 0"; connection_in "$SRV/protcsv/loeschen")sh"},
    {"protcsv sample beispiel.sql --sql", 0, "grep -q '^CREATE TABLE .tProtokoll. (' beispiel.sql && grep -q '^INSERT INTO .tProtokoll. VALUES' beispiel.sql"},
    {"CREATE LOGIN protcsv WITH PASSWORD = '…';", 0, R"sh(form $'(CREATE|USE|GRANT) [^;]+;(\n(CREATE|USE|GRANT) [^;]+;)*')sh", "", "", ":"},
    {"GRANT SELECT TO protcsv_loeschen;", 0, R"sh(form $'(GRANT (SELECT|DELETE ON tProtokoll|DELETE ON tProtokollMemo) TO protcsv_loeschen;\n?)+')sh", "", "", ":"},
    {"CREATE INDEX iProtokollDatum ON tProtokoll (ddDatum);", 0, R"sh([ "$(sql "SELECT count(*) FROM sqlite_master WHERE type = 'index' AND tbl_name LIKE 'tProtokoll%'")" = 5 ])sh", "", "",
     R"sh(sed 's/CREATE INDEX \([^ ]*\)/DROP INDEX \1; &/' ../text | while read -r line; do IFS=';' read -r drop create <<<"$line"; sql "$drop"; sql "$create"; done)sh"},

    // Help
    {"protcsv export --db firma.db --section exchange-rates --from 01.01.2026", 0, R"sh(rows_have ';[0-9.]+2026 [0-9:]+;')sh", "", R"sh(\n\n\n)sh"},
    {"protcsv export --db firma.db --section 15 --params \"/autostart/vondevi:EUR\"", 0, "has 'Von ISO Währungscode: EUR bis '"},
    {"protcsv export --db firma.db --section 6 --params \"/autostart/mandant:123\"", 0, "has '^.*Mandant: 123 '"},
    {"protcsv delete --db firma.db --section 15 --to 31.12.2015 --params \"/autostart\" --archive archiv --yes", 0,
     "aged_rates_are_gone; aged_rates_are_archived", "age_rates"},
    {"protcsv run --db firma.db --out /srv/protokolle --params \"/sektion:15/datvon:01.01.2026/autostart/vondevi:EUR\"", 0,
     R"sh(named "$SRV/protokolle/Prot_Devisenkurse_.*"; has 'Von ISO Währungscode: EUR bis '; rows_have ';[0-9.]+2026 [0-9:]+;')sh"},
    {"protcsv sample beispiel.db --seed 7", 0,
     R"sh(protcsv sample other.db --seed 7 >../out && cmp beispiel.db other.db; ! cmp -s beispiel.db firma.db)sh"},
    {"source <(protcsv completion bash)", 0, "complete -p protcsv"},
    {"protcsv man >protcsv.1", 0, "grep -q '^.TH PROTCSV 1 ' protcsv.1"},
};
// clang-format on

}  // namespace

std::span<const Example> example_table() { return examples; }

}  // namespace prot::test
