#include <filesystem>
#include <regex>

#include <sqlite3.h>

#include "sections/section_table.h"
#include "tests/unit/apps/protcsv/program_fixture.h"

/// Parameter texts as people mistype them, and what the program answers; on the sample database, whose
/// sections are the real ones.
namespace prot::test {
namespace {

/// A text that gets sentences, one a line, each behind "protcsv: --params: ".
struct CheckedRow {
    const char* section;  ///< empty: the text says it
    const char* text;
    const char* sentences;
};

class ParameterCheck : public ProgramTest {
protected:
    ParameterCheck() { sections = section_table(); }

    static std::string lines(const std::string& sentences) {
        std::string text = "protcsv: --params: ";
        for (const char c : sentences)
            text += c == '\n' ? std::string("\nprotcsv: --params: ") : std::string(1, c);
        return text + '\n';
    }

    int run_text(const std::string& text, std::vector<std::string> more = {}) {
        more.insert(more.begin(),
                    {"run", "--db", database(), "--params", text, "--out", path("aus"), "--quiet"});
        return run(more);
    }

    /// What the sample's log has to tell besides.
    int run(std::vector<std::string> arguments) { return stripped(ProgramTest::run(std::move(arguments))); }
    int run_section(const std::string& command, const std::string& section,
                    std::vector<std::string> more = {}) {
        return stripped(ProgramTest::run_section(command, section, std::move(more)));
    }
    int stripped(int status) {
        errors = std::regex_replace(errors, std::regex("1 Protokollsatz mit unlesbarem [^\n]*\n"), "");
        return status;
    }

    bool exists(const char* name) const { return std::filesystem::exists(text_path(path(name))); }
};

// clang-format off
constexpr CheckedRow refused_deletions[] = {
    // Keys.
    {"15", "/autostrat",                 "„autostrat“ ist kein Schlüssel; meinten Sie autostart?"},
    {"15", "/autostart/vondev:EUR",      "„vondev“ ist kein Schlüssel; meinten Sie vondevi?"},
    {"15", "/autostart/farbe:rot",       "„farbe“ ist kein Schlüssel; es gibt hier autostart, vondevi, bisdevi"},
    {"6",  "/autostart/mandnt:123",      "„mandnt“ ist kein Schlüssel; meinten Sie mandant?"},
    {"8",  "/autostart/mandant:1/vonkonten:5",
     "„vonkonten“ ist kein Schlüssel; meinten Sie vonkonto?"},
    {"10", "/autostart/auswertung:Bilanz/auswertungsrahmen:Bilanz/farbe:rot",
     "„farbe“ ist kein Schlüssel; es gibt hier autostart, stdkanz, auswertung, auswertungsrahmen, awraend, kontenrahmen"},
    {"10", "/autostart/xawraend:za/auswertung:Bilanz/auswertungsrahmen:Bilanz",
     "„xawraend“ ist kein Schlüssel; meinten Sie awraend?"},
    {"15", "\\autostart\\vondevi:EUR",
     "„\\autostart\\vondevi“ ist kein Schlüssel; es gibt hier autostart, vondevi, bisdevi"},
    {"6",  "/autostart/mandant/123",
     "„mandant“: gleich hinter dem Schlüssel muss ein Doppelpunkt stehen; schreiben Sie mandant:WERT\n"
     "„123“ ist kein Schlüssel; es gibt hier autostart, wirtschaftsjahr, mandant, vonkonto, biskonto"},
    {"6",  "/autostart/mandant=123",
     "„mandant“: gleich hinter dem Schlüssel muss ein Doppelpunkt stehen; schreiben Sie mandant:WERT"},
    {"9",  "/autostart/mandant :123",
     "„mandant“: gleich hinter dem Schlüssel muss ein Doppelpunkt stehen; schreiben Sie mandant:WERT"},
    {"15", "/autostart/vondevi=EUR",
     "„vondevi“: gleich hinter dem Schlüssel muss ein Doppelpunkt stehen; schreiben Sie vondevi:WERT"},
    {"15", "/autostart/datvon=01.01.2026",
     "„datvon“: gleich hinter dem Schlüssel muss ein Doppelpunkt stehen; schreiben Sie datvon:WERT"},
    {"15", "/autostart/vondevis:EUR",    "„vondevis“ wird als vondevi gelesen; schreiben Sie /vondevi:WERT"},
    {"6",  "/autostart/mandant:123/biskontonr:19999",
     "„biskontonr“ wird als biskonto gelesen; schreiben Sie /biskonto:WERT"},

    // The flag, its place and the slashes.
    {"15", "/autostarts",                "„autostarts“ wird als autostart gelesen; schreiben Sie /autostart"},
    {"15", "/autostart:nein",
     "„autostart:nein“ gilt als autostart, was immer dahinter steht; schreiben Sie /autostart oder lassen Sie es weg"},
    {"15", "/vondevi:EUR/autostart",
     "„vondevi:EUR“ steht vor autostart und wirkt dort nicht; schreiben Sie /autostart/vondevi:EUR"},
    {"6",  "/mandant:123/vonkonto:1/autostart",
     "„mandant:123“ steht vor autostart und wirkt dort nicht; schreiben Sie /autostart/mandant:123\n"
     "„vonkonto:1“ steht vor autostart und wirkt dort nicht; schreiben Sie /autostart/vonkonto:1"},
    {"9",  "/mandant:123",               "„mandant:123“ wirkt nur hinter autostart; schreiben Sie /autostart/mandant:123"},
    {"10", "/stdkanz:k/autostart",
     "„stdkanz:k“ steht vor autostart und wirkt dort nicht; schreiben Sie /autostart/stdkanz:k"},
    {"9",  "autostart/mandant:1",
     "„mandant:1“ wirkt nur hinter autostart; schreiben Sie /autostart/mandant:1\n"
     "„autostart“ steht vor dem ersten Schrägstrich und wird nicht gelesen; schreiben Sie /autostart"},
    {"8",  "mandant:123/autostart/mandant:1",
     "„mandant:123“ steht vor dem ersten Schrägstrich und wird nicht gelesen; schreiben Sie /mandant:123"},
    {"10", "/awraend:za/auswertungsrahmen:Bilanz/auswertung:Bilanz/autostart",
     "„auswertung:Bilanz/autostart“: autostart zählt hier zum Wert; schreiben Sie /autostart an den Anfang"},
    {"10", "/auswertung:Bilanz/awraend:za/auswertungsrahmen:Bilanz/autostart",
     "„auswertungsrahmen:Bilanz/autostart“: autostart zählt hier zum Wert; schreiben Sie /autostart an den Anfang"},
    {"15", "/autostart/",
     "hinter einem Schrägstrich steht nichts; streichen Sie ihn oder schreiben Sie dahinter, was gemeint ist"},
    {"6",  "//autostart/mandant:123",
     "hinter einem Schrägstrich steht nichts; streichen Sie ihn oder schreiben Sie dahinter, was gemeint ist"},

    // No value, or one too many.
    {"15", "/autostart/vondevi:",        "„vondevi:“ hat keinen Wert; geben Sie einen an oder lassen Sie den Schlüssel weg"},
    {"6",  "/autostart/mandant:",        "„mandant:“ hat keinen Wert; geben Sie einen an oder lassen Sie den Schlüssel weg"},
    {"6",  "/autostart/mandant:123/wirtschaftsjahr: ",
     "„wirtschaftsjahr:“ hat keinen Wert; geben Sie einen an oder lassen Sie den Schlüssel weg"},
    {"10", "/autostart/stdkanz:",        "„stdkanz:“ hat keinen Wert; geben Sie einen an oder lassen Sie den Schlüssel weg"},
    {"10", "/autostart/auswertung:Bilanz/auswertungsrahmen:",
     "„auswertungsrahmen:“ hat keinen Wert; geben Sie einen an oder lassen Sie den Schlüssel weg"},
    {"15", "/autostart/vondevi:EUR/vondevi:USD",
     "„vondevi:USD“: vondevi steht mehrmals im Text; lassen Sie nur eine Angabe stehen"},
    {"8",  "/autostart/mandant:1/mandant:123",
     "„mandant:123“: mandant steht mehrmals im Text; lassen Sie nur eine Angabe stehen"},
    {"6",  "/autostart/mandant:123/vonkonto:1/vonkonto:1/vonkonto:1",
     "„vonkonto:1“: vonkonto steht mehrmals im Text; lassen Sie nur eine Angabe stehen"},
    {"10", "/autostart/awraend:za/auswertung:Bilanz/auswertungsrahmen:Bilanz/awraend:sp",
     "„awraend:sp“: awraend steht mehrmals im Text; lassen Sie nur eine Angabe stehen"},

    // Values that are passed over or name nobody.
    {"6",  "/autostart/mandant:0",
     "„mandant:0“ ist keine Nummer größer als 0; schreiben Sie etwa mandant:123, für eine Kanzlei mandant:k7"},
    {"9",  "/autostart/mandant:Meier",
     "„mandant:Meier“ ist keine Nummer größer als 0; schreiben Sie etwa mandant:123, für eine Kanzlei mandant:k7"},
    {"6",  "/autostart/mandant:999",
     "„mandant:999“: einen Mandanten mit dieser Nummer gibt es nicht; ohne autostart zeigt die Auswahl alle"},
    {"8",  "/autostart/mandant:k123",
     "„mandant:k123“: eine Kanzlei mit dieser Nummer gibt es nicht; ohne autostart zeigt die Auswahl alle"},
    {"6",  "/autostart/mandant:123/vonkonto:0/biskonto:-5",
     "„vonkonto:0“ ist keine Zahl größer als 0; schreiben Sie etwa vonkonto:10000\n"
     "„biskonto:-5“ ist keine Zahl größer als 0; schreiben Sie etwa biskonto:19999"},
    {"9",  "/autostart/mandant:1/biskonto:alle",
     "„biskonto:alle“ ist keine Zahl größer als 0; schreiben Sie etwa biskonto:19999"},
    {"6",  "/autostart/mandant:123/wirtschaftsjahr:2025",
     "„wirtschaftsjahr:2025“: so heißt kein Wirtschaftsjahr dieses Mandanten; schreiben Sie es wie in der Auswahl, etwa "
     "wirtschaftsjahr:01.01.2025 - 31.12.2025"},
    {"6",  "/autostart/mandant:123/wirtschaftsjahr:01.01.2025 - 31.02.2025",
     "„wirtschaftsjahr:01.01.2025 - 31.02.2025“: so heißt kein Wirtschaftsjahr dieses Mandanten; schreiben Sie es wie in "
     "der Auswahl, etwa wirtschaftsjahr:01.01.2025 - 31.12.2025"},
    {"6",  "/autostart/wirtschaftsjahr:01.01.2025 - 31.12.2025",
     "„wirtschaftsjahr:01.01.2025 - 31.12.2025“ wirkt nur zusammen mit mandant; geben Sie mandant an"},
    {"6",  "/autostart/mandant:999/wirtschaftsjahr:01.01.2025 - 31.12.2025",
     "„mandant:999“: einen Mandanten mit dieser Nummer gibt es nicht; ohne autostart zeigt die Auswahl alle"},
    {"10", "/autostart/stdkanz:x",
     "„stdkanz:x“ gibt es nicht; schreiben Sie stdkanz:s (Standardrahmen) oder stdkanz:k (Kanzleirahmen)"},
    {"10", "/autostart/auswertung:Bilans",
     "„auswertung:Bilans“: diese Auswertung gibt es nicht; schreiben Sie sie wie in der Auswahl, etwa auswertung:Bilanz"},
    {"10", "/autostart/awraend:konto",
     "„awraend:konto“ gibt es nicht; schreiben Sie awraend:alle, awraend:kto, awraend:pos, awraend:za oder awraend:sp"},
    {"10", "/autostart/kontenrahmen:SKR 03",
     "„kontenrahmen:SKR 03“: diesen Kontenrahmen gibt es nicht; schreiben Sie ihn wie in der Auswahl"},
    {"10", "/autostart/kontenrahmen:Kontenrahmen Industrie/awraend:pos",
     "„kontenrahmen:Kontenrahmen Industrie“ wirkt nur bei Kontozuordnungen; lassen Sie es weg oder wählen Sie awraend:kto"},
    {"10", "/autostart/auswertungsrahmen:Bilanz",
     "„auswertungsrahmen:Bilanz“ wirkt nur zusammen mit auswertung; geben Sie auswertung an"},
    {"10", "/autostart/auswertung:Bilans/auswertungsrahmen:Bilanz",
     "„auswertung:Bilans“: diese Auswertung gibt es nicht; schreiben Sie sie wie in der Auswahl, etwa auswertung:Bilanz"},
    {"10", "/autostart/auswertung:Bilanz/auswertungsrahmen:BWA",
     "„auswertungsrahmen:BWA“: so beginnt kein Rahmen dieser Auswertung; schreiben Sie ihn wie in der Auswahl"},
    {"10", "/autostart/auswertung:Bilanz/auswertungsrahmen:Al",
     "„auswertungsrahmen:Al“ wird als „Alle“ gelesen; schreiben Sie mehr vom Namen des Rahmens"},

    // Values that are read as something else.
    {"6",  "/autostart/mandant:10.000",  "„mandant:10.000“ wird als 10 gelesen; schreiben Sie nur Ziffern"},
    {"9",  "/autostart/mandant:k7,5",    "„mandant:k7,5“ wird als k7 gelesen; schreiben Sie nur Ziffern"},
    {"6",  "/autostart/mandant:123/vonkonto:10.000/biskonto:1,5",
     "„vonkonto:10.000“ wird als 10 gelesen; schreiben Sie nur Ziffern\n"
     "„biskonto:1,5“ wird als 1 gelesen; schreiben Sie nur Ziffern"},
    {"8",  "/autostart/mandant:1/biskonto:7e4",
     "„biskonto:7e4“ wird als 70000 gelesen; schreiben Sie nur Ziffern"},

    // Ranges with nothing in them, and bounds outside the list.
    {"15", "/autostart/vondevi:USD/bisdevi:EUR",
     "„vondevi:USD“ liegt hinter „bisdevi:EUR“, so wird nichts gefunden; vertauschen Sie die Grenzen"},
    {"15", "/autostart/bisdevi:EURO",    "„bisdevi:EURO“ steht nicht in der Liste; schreiben Sie den Wert wie in der Auswahl"},
    {"6",  "/autostart/mandant:123/vonkonto:20000",
     "„vonkonto:20000“ liegt hinter biskonto (ohne Angabe 10001), so wird nichts gefunden; geben Sie beide Grenzen an"},
    {"8",  "/autostart/mandant:1/biskonto:69999",
     "vonkonto (ohne Angabe 70000) liegt hinter „biskonto:69999“, so wird nichts gefunden; geben Sie beide Grenzen an"},

    // Keys without effect here.
    {"15", "/autostart/mandant:123",     "„mandant:123“ wirkt im Bereich Devisenkurse nicht; lassen Sie es weg"},
    {"15", "/autostart/mandantbis:200",  "„mandantbis:200“ wirkt im Bereich Devisenkurse nicht; lassen Sie es weg"},
    {"6",  "/autostart/mandant:123/mandantbis:200",
     "„mandantbis:200“ wirkt nicht; geben Sie je Lauf einen Mandanten mit mandant an"},
    {"9",  "/autostart/mandant:1/mitarbeiterbis:C",
     "„mitarbeiterbis:C“ wirkt nicht; geben Sie je Lauf einen Mitarbeiter mit --user an"},
    {"9",  "/autostart/mandant:1/wirtschaftsjahr:2025",
     "„wirtschaftsjahr:2025“ wirkt im Bereich Kunden nicht; lassen Sie es weg"},
    {"10", "/autostart/vonkonto:1",      "„vonkonto:1“ wirkt im Bereich Auswertungsrahmen nicht; lassen Sie es weg"},
    {"15", "/autostart/datvon:01.01.2015/datbis:31.12.2015",
     "„datvon:01.01.2015“ wirkt bei delete nicht; nehmen Sie dafür --from\n"
     "„datbis:31.12.2015“ wirkt bei delete nicht; nehmen Sie dafür --to"},
    {"6",  "/autostart/mandant:123/mitarbeiter:AB",
     "„mitarbeiter:AB“ wirkt bei delete nicht; nehmen Sie dafür --user"},
    {"9",  "/neu:1/aend:0/loe:0/autostart/mandant:1",
     "„neu:1“ wirkt bei delete nicht; nehmen Sie dafür --events\n"
     "„aend:0“ wirkt bei delete nicht; nehmen Sie dafür --events\n"
     "„loe:0“ wirkt bei delete nicht; nehmen Sie dafür --events"},
    {"15", "/sektion:6/autostart",       "„sektion:6“ ist nicht der Bereich von --section (15); berichtigen Sie eins von beiden"},
    {"6",  "/sektion:/autostart/mandant:123",
     "„sektion:“ ist nicht der Bereich von --section (6); berichtigen Sie eins von beiden"},

    // Several at once.
    {"15", "/sektion:9/autostrat/datvon:x/vondevi:EUR",
     "„sektion:9“ ist nicht der Bereich von --section (15); berichtigen Sie eins von beiden\n"
     "„datvon:x“ wirkt bei delete nicht; nehmen Sie dafür --from\n"
     "„vondevi:EUR“ wirkt nur hinter autostart; schreiben Sie /autostart/vondevi:EUR\n"
     "„autostrat“ ist kein Schlüssel; meinten Sie autostart?"},
};

constexpr CheckedRow refused_runs[] = {
    {"", "/sektion:15/autostart/vondev:EUR", "„vondev“ ist kein Schlüssel; meinten Sie vondevi?"},
    {"", "/sektion:15/datvn:01.01.2026/autostart", "„datvn“ ist kein Schlüssel; meinten Sie datvon?"},
    {"", "/sektion:15/vondevi:EUR/autostart",
     "„vondevi:EUR“ steht vor autostart und wirkt dort nicht; schreiben Sie /autostart/vondevi:EUR"},
    {"", "/sektion:6/mandant:123",       "„mandant:123“ wirkt nur hinter autostart; schreiben Sie /autostart/mandant:123"},
    {"", "/sektion:15/datvon:/autostart",
     "„datvon:“ hat keinen Wert; geben Sie einen an oder lassen Sie den Schlüssel weg"},
    {"", "/sektion:15/mitarbeiter: /autostart",
     "„mitarbeiter:“ hat keinen Wert; geben Sie einen an oder lassen Sie den Schlüssel weg"},
    {"", "/sektion:15/neu:/autostart",   "„neu:“ hat keinen Wert; geben Sie einen an oder lassen Sie den Schlüssel weg"},
    {"", "/sektion:15/datvon:heute/datvon:gestern/autostart",
     "„datvon:gestern“: datvon steht mehrmals im Text; lassen Sie nur eine Angabe stehen"},
    {"", "/sektion:15/sektion:6/autostart",
     "„sektion:6“: sektion steht mehrmals im Text; lassen Sie nur eine Angabe stehen"},
    {"", "/sektion:15/datbis:30.12.1899/autostart",
     "„datbis:30.12.1899“ ist der Nulltag und gälte als keine Grenze; nennen Sie einen anderen Tag"},
    {"", "/sektion:15/datvon:31.02.2026/autostart/vondevi:",
     "datvon: „31.02.2026“ ist kein Tag; erwartet wird TT.MM.JJJJ, JJJJ-MM-TT, JJJJ-MM, heute oder gestern\n"
     "„vondevi:“ hat keinen Wert; geben Sie einen an oder lassen Sie den Schlüssel weg"},
    {"", "/autostart/datbis:1.13.2026",
     "sektion fehlt, etwa /sektion:15/autostart\n"
     "datbis: „1.13.2026“ ist kein Tag; erwartet wird TT.MM.JJJJ, JJJJ-MM-TT, JJJJ-MM, heute oder gestern"},
    {"", "/sektion:15/autostart/mandant:5", "„mandant:5“ wirkt im Bereich Devisenkurse nicht; lassen Sie es weg"},
    {"", "/sektion:6/autostart/mandantbis:200",
     "„mandantbis:200“ wirkt nicht; geben Sie je Lauf einen Mandanten mit mandant an"},
    {"", "/sektion:15/autostart/mitarbeiterbis:C",
     "„mitarbeiterbis:C“ wirkt nicht; geben Sie je Lauf einen Mitarbeiter mit mitarbeiter an"},
    {"", "/sektion:6/autostart/mandant:999",
     "„mandant:999“: einen Mandanten mit dieser Nummer gibt es nicht; ohne autostart zeigt die Auswahl alle"},
    {"", "/sektion:9/autostart/mandant:1,5", "„mandant:1,5“ wird als 1 gelesen; schreiben Sie nur Ziffern"},
    {"", "/sektion:8/autostart/mandant:1/vonkonto:x",
     "„vonkonto:x“ ist keine Zahl größer als 0; schreiben Sie etwa vonkonto:10000"},
    {"", "/sektion:10/autostart/auswertung:Bilans",
     "„auswertung:Bilans“: diese Auswertung gibt es nicht; schreiben Sie sie wie in der Auswahl, etwa auswertung:Bilanz"},
    {"", "/sektion:10/stdkanz:k/auswertung:Bilanz/auswertungsrahmen:Bilanz/autostart",
     "„auswertungsrahmen:Bilanz/autostart“: autostart zählt hier zum Wert; schreiben Sie /autostart an den Anfang"},
};

/// What selects less than it says, or nothing.
constexpr CheckedRow warned_runs[] = {
    {"", "/sektion:15/autostart/vondevi:EURO", "„vondevi:EURO“ steht nicht in der Liste; schreiben Sie den Wert wie in der Auswahl"},
    {"", "/sektion:15/autostart/vondevi:USD/bisdevi:eur",
     "„vondevi:USD“ liegt hinter „bisdevi:eur“, so wird nichts gefunden; vertauschen Sie die Grenzen"},
    {"", "/sektion:6/autostart/mandant:123/vonkonto:30000",
     "„vonkonto:30000“ liegt hinter biskonto (ohne Angabe 10001), so wird nichts gefunden; geben Sie beide Grenzen an"},
    {"", "/sektion:15/datvon:02.01.2026/datbis:01.01.2026/autostart",
     "„datvon:02.01.2026“ liegt hinter „datbis:01.01.2026“, so wird nichts gefunden; vertauschen Sie die Tage"},
    {"", "/sektion:15/neu:0/autostart",
     "„neu:0“ lässt keine Ereignisse übrig, so wird nichts gefunden; geben Sie neu:1, aend:1 oder loe:1 an"},
    {"", "/sektion:6/autostart/mandant:123/mandantbis:200",
     "„mandantbis:200“ wirkt nicht; geben Sie je Lauf einen Mandanten mit mandant an"},
    {"", "/sektion:15/autostart/mandant:", "„mandant:“ wirkt im Bereich Devisenkurse nicht; lassen Sie es weg"},
    {"", "/sektion:10/autostart/awraend:pos/kontenrahmen:Kontenrahmen Industrie",
     "„kontenrahmen:Kontenrahmen Industrie“ wirkt nur bei Kontozuordnungen; lassen Sie es weg oder wählen Sie awraend:kto"},
    {"", "/sektion:15/autostart/",
     "hinter einem Schrägstrich steht nichts; streichen Sie ihn oder schreiben Sie dahinter, was gemeint ist"},
    {"", "/sektion:15/autostart:1",
     "„autostart:1“ gilt als autostart, was immer dahinter steht; schreiben Sie /autostart oder lassen Sie es weg"},
};

constexpr CheckedRow warned_exports[] = {
    {"15", "/autostart/vondev:EUR",      "„vondev“ ist kein Schlüssel; meinten Sie vondevi?"},
    {"6",  "/autostart/mandant:999",
     "„mandant:999“: einen Mandanten mit dieser Nummer gibt es nicht; ohne autostart zeigt die Auswahl alle"},
    {"9",  "/autostart/mandant:1/vonkonto:10.000", "„vonkonto:10.000“ wird als 10 gelesen; schreiben Sie nur Ziffern"},
    {"8",  "/autostart/mandant:1/datvon:01.01.2026", "„datvon:01.01.2026“ wirkt bei export nicht; nehmen Sie dafür --from"},
    {"10", "/autostart/awraend:konto",
     "„awraend:konto“ gibt es nicht; schreiben Sie awraend:alle, awraend:kto, awraend:pos, awraend:za oder awraend:sp"},
    {"15", "/sektion:6/vondevi:EUR/autostart",
     "„sektion:6“ ist nicht der Bereich von --section (15); berichtigen Sie eins von beiden\n"
     "„vondevi:EUR“ steht vor autostart und wirkt dort nicht; schreiben Sie /autostart/vondevi:EUR"},
};

/// Texts that say what they do. The suite's own jobs have keys that select nothing here.
constexpr const char* good_runs[] = {
    "/sektion:15/datvon:gestern/datbis:gestern/autostart",
    "/sektion:15/datvon:01.01.2026/datbis:31.12.2026/mitarbeiter:AB/neu:1/aend:1/loe:0/autostart/vondevi:CHF/bisdevi:USD",
    "/SEKTION:Devisenkurse/AUTOSTART/VonDevi: eur ",
    "/sektion:exchange-rates/datvon:2026-01/datbis:2026-01/autostart/bisdevi:EUR",
    "/login:Max/pwd:geheim/nowindow:/sektion:15/autostart",
    "/login:Max/pwd:/nowindow/sektion:15/änderungsaktion:x/fehlermeldung:y/dsgvo/autostart",
    "sektion:15/autostart",
    "/sektion:6/autostart/vonkonto:1/biskonto:999999999",
    "/sektion:6/datvon:gestern/autostart/mandant:123",
    "/sektion:6/autostart/mandant:M0123/vonkonto:+10 000/biskonto:19999",
    "/sektion:6/autostart/wirtschaftsjahr:01.01.2025 - 31.12.2025/mandant:123",
    "/sektion:6/autostart/mandant:K7",
    "/sektion:8/autostart/mandant:1",
    "/sektion:9/neu:ja/autostart/mandant:123/vonkonto:10000/biskonto:19999",
    "/sektion:10/autostart",
    "/sektion:10/autostart/stdkanz:k/awraend:KTO/kontenrahmen:kontenrahmen industrie",
    "/sektion:10/datvon:gestern/datbis:gestern/autostart/auswertung:Bilanz/auswertungsrahmen:Bilanz/GuV nach",
    "/sektion:10/autostart/auswertungsrahmen:alle/auswertung:bilanz/awraend:sp",
    "/autostart/auswertungsrahmen:Bilanz/auswertung:Bilanz/sektion:10/pwd:geheim/loe:1",
};

constexpr CheckedRow good_deletions[] = {
    {"15", "/autostart", ""},
    {"15", "/sektion:15/login:x/pwd:geheim/nowindow:/autostart/bisdevi:EUR", ""},
    {"Devisenkurse", "/sektion:exchange-rates/autostart", ""},
    {"6",  "/autostart/mandant:123/vonkonto:1/biskonto:999999999", ""},
    {"8",  "/autostart/mandant:k7", ""},
    {"9",  "/autostart/mandant:1/vonkonto:10000", ""},
    {"10", "/autostart/awraend:sp/auswertung:bilanz", ""},
    {"10", "/sektion:10/autostart/auswertung:Bilanz/auswertungsrahmen:Bilanz", ""},
};
// clang-format on

TEST_F(ParameterCheck, RefusesADeletionForEachThingAtOnceAndAsksAndSendsNothing) {
    const std::string before = (database(), read("x.db"));
    input = "ja\n";
    in_is_terminal = err_is_terminal = true;
    for (const CheckedRow& row : refused_deletions) {
        EXPECT_EQ(
            run_section("delete", row.section, {"--params", row.text, "--yes", "--sql-log", path("log")}), 2)
            << row.text;
        EXPECT_EQ(errors, lines(row.sentences)) << row.section << " " << row.text;
        EXPECT_EQ(output, "");
    }
    EXPECT_FALSE(exists("log"));
    EXPECT_EQ(read("x.db"), before);
    EXPECT_GE(std::size(refused_deletions) + std::size(refused_runs), 50U);
}

TEST_F(ParameterCheck, RefusesARunThatWouldSelectMoreThanItSays) {
    for (const CheckedRow& row : refused_runs) {
        EXPECT_EQ(run_text(row.text, {"--sql-log", path("log")}), 2) << row.text;
        EXPECT_EQ(errors, lines(row.sentences)) << row.text;
        EXPECT_EQ(output, "");
    }
    EXPECT_FALSE(exists("log"));
    EXPECT_FALSE(exists("aus")) << "not even the folder is made";
}

TEST_F(ParameterCheck, WarnsOfARunThatSelectsLessThanItSays) {
    for (const CheckedRow& row : warned_runs) {
        EXPECT_EQ(run_text(row.text), 0) << row.text;
        EXPECT_EQ(errors, lines(row.sentences)) << row.text;
        EXPECT_NE(output, "");
    }
}

TEST_F(ParameterCheck, RefusesForADeletionWhatItWarnsOfInARun) {
    const std::string text = "/autostart/vondevi:USD/bisdevi:EUR";
    EXPECT_EQ(run_text("/sektion:15" + text), 0);
    EXPECT_EQ(run_section("delete", "15", {"--params", text}), 2);
}

TEST_F(ParameterCheck, OnlyWarnsOfAnExport) {
    for (const CheckedRow& row : warned_exports) {
        EXPECT_EQ(run_section("export", row.section, {"--params", row.text, "--out", path("aus"), "--quiet"}),
                  0)
            << row.text;
        EXPECT_EQ(errors, lines(row.sentences)) << row.text;
        EXPECT_NE(output, "");
    }
}

TEST_F(ParameterCheck, SaysNothingOfAGoodNightlyJob) {
    for (const char* text : good_runs) {
        EXPECT_EQ(run_text(text), 0) << text;
        EXPECT_EQ(errors, "") << text;
        EXPECT_NE(output, "");
    }
}

TEST_F(ParameterCheck, SaysNothingOfAGoodDeletion) {
    for (const CheckedRow& row : good_deletions) {
        const int status = run_section("delete", row.section, {"--params", row.text});
        EXPECT_NE(status, 2) << row.text;
        EXPECT_EQ(errors.find("--params"), std::string::npos) << row.text << "\n" << errors;
    }
}

TEST_F(ParameterCheck, ChecksNothingOfATextThatIsTakenAsItIs) {
    const std::string text = "/sektion:6/datvon:/autostart/mandant:999/farbe:rot";
    EXPECT_EQ(run_text(text, {"--as-is"}), 0);
    EXPECT_EQ(errors, "");
    EXPECT_EQ(run_text("/sektion:15/datvon:bald/autostart", {"--as-is"}), 2)
        << "what cannot be read stays so";
    EXPECT_EQ(run_section("delete", "15", {"--params", "/autostart", "--as-is"}), 2);
    EXPECT_EQ(errors,
              "protcsv: die Option --as-is gibt es bei delete nicht (Hilfe: protcsv delete --help)\n");
}

TEST_F(ParameterCheck, ChecksNothingWithoutAText) {
    EXPECT_EQ(run_section("delete", "15", {"--answers", "-"}), 3);
    EXPECT_EQ(errors.find("--params"), std::string::npos) << errors;
}

TEST_F(ParameterCheck, NeverShowsAPassword) {
    for (const char* text :
         {"/sektion:15/pwd:geheim/autostart", "/sektion:15/pwd:ge/geheim/autostart",
          "/sektion:15/pwd:x/geheim:y/autostart", "/sektion:15/pwdd:geheim/autostart",
          "/sektion:15/pwd=geheim/autostart", "/sektion:15/passwort=geheim/autostart",
          "/sektion:15/pwd geheim/autostart", "/sektion:15/pwd:geheim/pwd:geheim/autostart/vondev:x",
          "/sektion:10/autostart/pwd:mandant:geheim/auswertung:Bilanz/auswertungsrahmen:Bilanz",
          "/sektion:10/autostart/pwd:x/geheim:y/auswertung:Bilanz/auswertungsrahmen:Bilanz",
          "/sektion:10/auswertung:Bilanz/auswertungsrahmen:Bilanz/pwd:geheim/autostart",
          "/sektion:6/autostart/pwd:geheim/vonkonto:1/biskonto:x"}) {
        run_text(text, {"--sql-log", path("log")});
        EXPECT_EQ(errors.find("geheim"), std::string::npos) << errors;
        EXPECT_TRUE(!exists("log") || read("log").find("geheim") == std::string::npos) << text;
    }
    EXPECT_EQ(run_text("/sektion:15/pwd:ge/geheim/autostart"), 0) << "a password is never refused";
    EXPECT_EQ(
        errors,
        lines("hinter pwd steht ein Stück, das kein Schlüssel ist (hier nicht gezeigt); ein Wert darf keinen "
              "Schrägstrich enthalten"));
    EXPECT_EQ(run_text("/sektion:15/pwd:x/vondev:EUR/autostart"), 2) << "but a mistyped key behind it is";
    EXPECT_EQ(
        errors,
        lines(
            "hinter pwd steht ein Stück, das kein Schlüssel ist (hier nicht gezeigt); meinten Sie vondevi?"));
}

TEST_F(ParameterCheck, LeavesAnErrorToTheRunThatShowsItOnceAndWithoutAPassword) {
    sqlite3* connection = nullptr;
    ASSERT_EQ(sqlite3_open(database().c_str(), &connection), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(connection, "DROP TABLE tDevisenWaehr", nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(connection);
    EXPECT_EQ(run_text("/sektion:15/pwd:geheim/autostart", {"--sql-log", path("log")}), 1);
    EXPECT_TRUE(errors.starts_with("Problembericht\n")) << errors;
    const std::size_t first = errors.find("Beschreibung: ");
    EXPECT_EQ(errors.find("Beschreibung: ", first + 1), std::string::npos) << errors;
    EXPECT_EQ((errors + read("log")).find("geheim"), std::string::npos) << errors;
}

TEST_F(ParameterCheck, SendsNothingForTheStatementLog) {
    EXPECT_EQ(run_text("/sektion:15/autostart", {"--sql-log", path("log")}), 0);
    const std::string log = read("log");
    const std::string currencies = "SELECT idDevisenWaehr, dcISOKennz FROM tDevisenWaehr ORDER BY dcISOKennz";
    const std::size_t first = log.find(currencies);
    EXPECT_NE(first, std::string::npos);
    EXPECT_EQ(log.find(currencies, first + 1), std::string::npos) << "the run's own reading alone";
}

TEST_F(ParameterCheck, ADeletionNeedsAUserWhereOneIsNamed) {
    EXPECT_EQ(run_section("delete", "15", {"--params", "/autostart", "--user", ""}), 2);
    EXPECT_EQ(errors, "protcsv: --user: der Wert darf nicht leer sein (Hilfe: protcsv delete --help)\n");
    EXPECT_EQ(run_section("export", "15",
                          {"--params", "/autostart", "--user", "", "--out", path("aus"), "--quiet"}),
              0);
}

}  // namespace
}  // namespace prot::test
