#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "apps/protcsv/options/options.h"

/// The whole help, as a person reads it: words, columns, order.
namespace prot {
namespace {

struct Help {
    const char* command;  ///< empty: the program's own
    const char* text;
};

// clang-format off
constexpr Help expected[] = {
    {"", R"(Exportiert das Stammdatenprotokoll in CSV-Dateien.

Aufruf: protcsv BEFEHL [Optionen]

Allgemein:
  -V,--version          zeigt die Version
  -h,--help             zeigt diese Hilfe

Befehle:
  export                Schreibt das Protokoll eines Bereichs in eine CSV-Datei
  delete                Löscht die ausgewählten Protokollsätze
  run                   Exportiert unbeaufsichtigt nach einem Parametertext
  sample                Schreibt eine Beispieldatenbank
  sections              Zeigt die Bereiche, die es gibt
  completion            Schreibt die Vervollständigung für eine Shell
  man                   Schreibt die Handbuchseite für man

Hilfe zu einem Befehl: protcsv help BEFEHL oder protcsv BEFEHL --help

Rückgabewert:
  0  erledigt (auch ohne Daten)
  1  Fehler
  2  falscher Aufruf
  3  abgebrochen
  4  geschrieben, aber unvollständig
  5  keine Daten (mit --fail-on-empty)
)"},
    {"export", R"(Schreibt das Protokoll eines Bereichs in eine CSV-Datei

Aufruf: protcsv export --db ZIEL --section BEREICHE [Optionen]

Datenbank:
  --db ZIEL             Pfad der SQLite-Datei, odbc:VERBINDUNG oder @DATEI, in
                        deren erster Zeile eins von beiden steht; sonst gilt,
                        was in der Umgebungsvariablen PROTCSV_DB steht
  --login-timeout SEKUNDEN
                        wie lange eine Anmeldung dauern darf (ODBC, Vorgabe: 15)
  --statement-timeout SEKUNDEN
                        wie lange eine Anweisung (ODBC, Vorgabe: 0, ohne Grenze)
  --lock-timeout SEKUNDEN
                        wie lange sie auf Sperren wartet (ODBC, Vorgabe: 30)
  --trust-certificate   prüft nicht, ob der SQL Server der ist, der er sein soll

Auswahl:
  --section BEREICHE    Bereich, Nummer oder Name (siehe protcsv sections);
                        mehrere durch Komma getrennt, oder all
  --user NAME           nur Änderungen dieses Mitarbeiters
  --from DATUM          erster Tag: TT.MM.JJJJ, JJJJ-MM-TT, heute, gestern oder
                        ein Monat, JJJJ-MM
  --to DATUM            letzter Tag, ebenso
  --events LISTE        created, changed, deleted oder angelegt, geändert,
                        gelöscht (durch Komma getrennt); all (Vorgabe), none
                        oder die Summe aus 1 (created), 2 (changed) und
                        4 (deleted)
  --params TEXT         Parametertext, etwa "/autostart/vondevi:EUR"; ohne
                        autostart werden die Filter am Terminal erfragt

Ausgabe:
  --out ORDNER          Zielordner, wird angelegt (Vorgabe: aktueller Ordner)
  --output DATEI        Name der Datei, die auch ersetzt wird; darin stehen
                        {section}, {client}, {date} und {time} für Angaben des
                        Laufs; - schreibt auf die Standardausgabe
  --no-clobber          lehnt den Lauf ab, wenn es die Datei von --output gibt
  --separator ZEICHEN   Trennzeichen oder tab (Vorgabe: ;)
  --encoding KODIERUNG  utf-8-bom (Vorgabe), utf-8 oder windows-1252
  --raw-cells           Zellen, die wie Formeln aussehen, nicht entschärfen

Ablauf:
  --answers DATEI       Antworten auf die Fragen, eine je Zeile; - liest
                        die Standardeingabe
  --plain               Fragen Zeile für Zeile statt als Bildschirmformular
  --threads 1|2         2 (Vorgabe) liest das Protokoll voraus, während Zeilen
                        geschrieben werden; 1 tut eins nach dem anderen
  --sql-log DATEI       schreibt jede SQL-Anweisung als JSON-Zeile mit
  --report DATEI        schreibt einen Bericht über den Lauf als JSON, mit - auf
                        die Standardausgabe statt des Pfades
  --strict              Rückgabewert 4 auch bei fehlenden Beschriftungen und
                        unlesbaren Protokollsätzen
  --fail-on-empty       Rückgabewert 5 statt 0, wenn es keine Daten gibt
  --quiet               kein Fortschrittsbalken, keine Hinweise, keine Bilanz

Allgemein:
  -h,--help             zeigt diese Hilfe

Beispiele:
  protcsv export --db firma.db --section exchange-rates --from 01.01.2026
  protcsv export --db firma.db --section 15 --params "/autostart/vondevi:EUR"
  protcsv export --db firma.db --section 6 --params "/autostart/mandant:123"
)"},
    {"delete", R"(Löscht die ausgewählten Protokollsätze

Aufruf: protcsv delete --db ZIEL --section NR|NAME [Optionen]

Datenbank:
  --db ZIEL             Pfad der SQLite-Datei, odbc:VERBINDUNG oder @DATEI, in
                        deren erster Zeile eins von beiden steht
  --login-timeout SEKUNDEN
                        wie lange eine Anmeldung dauern darf (ODBC, Vorgabe: 15)
  --statement-timeout SEKUNDEN
                        wie lange eine Anweisung (ODBC, Vorgabe: 0, ohne Grenze)
  --lock-timeout SEKUNDEN
                        wie lange sie auf Sperren wartet (ODBC, Vorgabe: 30)
  --trust-certificate   prüft nicht, ob der SQL Server der ist, der er sein soll

Auswahl:
  --section NR|NAME     Bereich, Nummer oder Name (siehe protcsv sections)
  --user NAME           nur Änderungen dieses Mitarbeiters
  --from DATUM          erster Tag: TT.MM.JJJJ, JJJJ-MM-TT, heute, gestern oder
                        ein Monat, JJJJ-MM
  --to DATUM            letzter Tag, ebenso
  --events LISTE        created, changed, deleted oder angelegt, geändert,
                        gelöscht (durch Komma getrennt); all (Vorgabe), none
                        oder die Summe aus 1 (created), 2 (changed) und
                        4 (deleted)
  --params TEXT         Parametertext, etwa "/autostart/vondevi:EUR"; ohne
                        autostart werden die Filter am Terminal erfragt

Ablauf:
  --archive ORDNER      legt in diesem Ordner erst ein geprüftes Archiv der
                        Sätze an und löscht nur, was darin steht
  --dry-run             sagt, was gelöscht würde, und löscht nichts
  --yes                 beantwortet die Löschfrage mit Ja
  --answers DATEI       Antworten auf die Fragen, eine je Zeile; - liest
                        die Standardeingabe
  --plain               Fragen Zeile für Zeile statt als Bildschirmformular
  --sql-log DATEI       schreibt jede SQL-Anweisung als JSON-Zeile mit
  --report DATEI        schreibt einen Bericht über den Lauf als JSON, mit - auf
                        die Standardausgabe statt des Pfades
  --quiet               kein Fortschrittsbalken, keine Hinweise, keine Bilanz

Allgemein:
  -h,--help             zeigt diese Hilfe

Beispiel:
  protcsv delete --db firma.db --section 15 --to 31.12.2015 \
      --params "/autostart" --archive archiv --yes
)"},
    {"run", R"(Exportiert unbeaufsichtigt nach einem Parametertext

Aufruf: protcsv run --db ZIEL --params TEXT [Optionen]

Datenbank:
  --db ZIEL             Pfad der SQLite-Datei, odbc:VERBINDUNG oder @DATEI, in
                        deren erster Zeile eins von beiden steht; sonst gilt,
                        was in der Umgebungsvariablen PROTCSV_DB steht
  --login-timeout SEKUNDEN
                        wie lange eine Anmeldung dauern darf (ODBC, Vorgabe: 15)
  --statement-timeout SEKUNDEN
                        wie lange eine Anweisung (ODBC, Vorgabe: 0, ohne Grenze)
  --lock-timeout SEKUNDEN
                        wie lange sie auf Sperren wartet (ODBC, Vorgabe: 30)
  --trust-certificate   prüft nicht, ob der SQL Server der ist, der er sein soll

Auswahl:
  --params TEXT         Parametertext, etwa "/autostart/vondevi:EUR"; ohne
                        autostart werden die Filter am Terminal erfragt

Ausgabe:
  --out ORDNER          Zielordner, wird angelegt (Vorgabe: aktueller Ordner)
  --output DATEI        Name der Datei, die auch ersetzt wird; darin stehen
                        {section}, {client}, {date} und {time} für Angaben des
                        Laufs; - schreibt auf die Standardausgabe
  --no-clobber          lehnt den Lauf ab, wenn es die Datei von --output gibt
  --separator ZEICHEN   Trennzeichen oder tab (Vorgabe: ;)
  --encoding KODIERUNG  utf-8-bom (Vorgabe), utf-8 oder windows-1252
  --raw-cells           Zellen, die wie Formeln aussehen, nicht entschärfen

Ablauf:
  --as-is               nimmt den Parametertext ungeprüft
  --answers DATEI       Antworten auf die Fragen, eine je Zeile; - liest
                        die Standardeingabe
  --plain               Fragen Zeile für Zeile statt als Bildschirmformular
  --threads 1|2         2 (Vorgabe) liest das Protokoll voraus, während Zeilen
                        geschrieben werden; 1 tut eins nach dem anderen
  --sql-log DATEI       schreibt jede SQL-Anweisung als JSON-Zeile mit
  --report DATEI        schreibt einen Bericht über den Lauf als JSON, mit - auf
                        die Standardausgabe statt des Pfades
  --strict              Rückgabewert 4 auch bei fehlenden Beschriftungen und
                        unlesbaren Protokollsätzen
  --fail-on-empty       Rückgabewert 5 statt 0, wenn es keine Daten gibt
  --quiet               kein Fortschrittsbalken, keine Hinweise, keine Bilanz

Allgemein:
  -h,--help             zeigt diese Hilfe

Aus dem Parametertext werden gelesen: sektion (Pflicht), mitarbeiter, datvon,
datbis, neu, aend, loe (1/0 oder ja/nein). Der ganze Text geht an den Export.

Beispiel:
  protcsv run --db firma.db --out /srv/protokolle \
      --params "/sektion:15/datvon:01.01.2026/autostart/vondevi:EUR"
)"},
    {"sample", R"(Schreibt eine Beispieldatenbank

Aufruf: protcsv sample DATEI [Optionen]

Argumente:
  DATEI                 Pfad der neuen Beispieldatenbank

Ablauf:
  --seed ZAHL           gleiche Zahl, gleicher Inhalt (Vorgabe: 1)
  --rows ZAHL           Protokollsätze (Vorgabe: ein kleines Protokoll)
  --section NR|NAME     nur Protokollsätze dieses Bereichs (Vorgabe: aller)
  --sql                 schreibt ein T-SQL-Skript, das ein SQL Server laden kann
  --overwrite           ersetzt auch eine Datei, die keine Beispieldatenbank ist

Allgemein:
  -h,--help             zeigt diese Hilfe

Beispiel:
  protcsv sample beispiel.db --seed 7
)"},
    {"sections", R"(Zeigt die Bereiche, die es gibt

Aufruf: protcsv sections

Allgemein:
  -h,--help             zeigt diese Hilfe

Beispiel:
  protcsv sections
)"},
    {"completion", R"(Schreibt die Vervollständigung für eine Shell

Aufruf: protcsv completion SHELL

Argumente:
  SHELL                 bash, zsh oder fish

Allgemein:
  -h,--help             zeigt diese Hilfe

Beispiel:
  source <(protcsv completion bash)
)"},
    {"man", R"(Schreibt die Handbuchseite für man

Aufruf: protcsv man

Allgemein:
  -h,--help             zeigt diese Hilfe

Beispiel:
  protcsv man >protcsv.1
)"},
};
// clang-format on

TEST(Help, ReadsAsItWasReviewed) {
    for (const Help& help : expected) {
        std::vector<std::string> arguments = {"--help"};
        if (*help.command != '\0') arguments.insert(arguments.begin(), help.command);
        EXPECT_EQ(parse_options(arguments, {}).text, help.text) << help.command;
    }
}

}  // namespace
}  // namespace prot
