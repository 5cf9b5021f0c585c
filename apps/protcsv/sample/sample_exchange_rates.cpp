#include "apps/protcsv/sample/sample_rate_desk.h"
#include "apps/protcsv/sample/sample_story.h"

namespace prot::sample {
namespace {

using std::chrono::year;

// dcImportKennz is logged but has no caption: such a column exists in every grown database.
// clang-format off
constexpr Caption all_captions[] = {
    {"TDEVISENKURS",  "idDevisenKurs",      "Schlüssel des Devisenkurses"},
    {"TDEVISENKURS",  "flDevisenWaehr",     "Währung"},
    {"TDEVISENKURS",  "ddGueltigAb",        "Gültig ab"},
    {"TDEVISENKURS",  "dzKursEURGeld",      "Kurs EUR Geld"},
    {"TDEVISENKURS",  "dzKursFremdGeld",    "Kurs Fremdwährung Geld"},
    {"TDEVISENKURS",  "dzKursEURBrief",     "Kurs EUR Brief"},
    {"TDEVISENKURS",  "dzKursFremdBrief",   "Kurs Fremdwährung Brief"},
    {"TDEVISENKURS",  "dzAbweichung",       "Abweichung zum Vortag in %"},
    {"TDEVISENKURS",  "dcKursquelle",       "Kursquelle"},
    {"TDEVISENKURS",  "dcBemerkung",        "Bemerkung"},
    {"TDEVISENKURS",  "dmBegruendung",      "Begründung der Änderung"},
    {"TDEVISENKURS",  "ddDatumAend",        "Datum der letzten Änderung"},
    {"TDEVISENKURS",  "flMitarbeiter",      "Geändert von"},
    {"tDevisenWaehr", "dcISOKennz",         "ISO Währungscode"},
    {"tDevisenWaehr", "dcBezeichnung",      "Bezeichnung der Währung"},
    {"tDevisenWaehr", "dlNachkommastellen", "Anzahl Nachkommastellen"},
};
// clang-format on

constexpr const char* tables = R"(
CREATE TABLE tDevisenWaehr (
    idDevisenWaehr INTEGER PRIMARY KEY,
    dcISOKennz TEXT COLLATE NOCASE,
    dcBezeichnung TEXT COLLATE NOCASE,
    dlNachkommastellen INTEGER
);
CREATE TABLE TDEVISENKURS (
    idDevisenKurs INTEGER PRIMARY KEY,
    flDevisenWaehr INTEGER,
    ddGueltigAb DATETIME,
    dzKursEURGeld REAL,
    dzKursFremdGeld REAL,
    dzKursEURBrief REAL,
    dzKursFremdBrief REAL,
    dzAbweichung REAL,
    dcKursquelle TEXT COLLATE NOCASE,
    dcBemerkung TEXT COLLATE NOCASE,
    dmBegruendung TEXT COLLATE NOCASE,
    dcImportKennz TEXT COLLATE NOCASE,
    ddDatumAend DATETIME,
    flMitarbeiter INTEGER
);
CREATE UNIQUE INDEX iDevisenWaehrISOKennz ON tDevisenWaehr (dcISOKennz);
CREATE UNIQUE INDEX iDevisenKursGueltigAb ON TDEVISENKURS (flDevisenWaehr, ddGueltigAb);
)";

LogRow exchange_source_for_remark(RateDesk& desk, const Occasion& occasion, std::string_view text) {
    return desk.change_any(occasion, [&](Rate& rate) {
        rate.source = rate.source.empty() ? "Hausbank" : "";
        rate.remark = text;
    });
}

LogRow fall_behind(RateDesk& desk, const Occasion& occasion, std::string_view) {
    return desk.change_any(occasion, [&](Rate& rate) {
        rate.deviation = -static_cast<std::int32_t>(desk.random().between(5, 240));
    });
}

LogRow rename_lira(RateDesk& desk, const Occasion& occasion, std::string_view name) {
    return desk.rename_currency(occasion, "TRY", name);
}

constexpr Change<RateDesk> add_currency = tell<&RateDesk::add_currency>;
constexpr Change<RateDesk> remove_currency = tell<&RateDesk::remove_currency>;
constexpr Change<RateDesk> add_rate = tell<&RateDesk::add_rate>;
constexpr Change<RateDesk> add_rate_of = tell<&RateDesk::add_rate_of>;
constexpr Change<RateDesk> remove_rate = tell<&RateDesk::remove_rate>;
constexpr Change<RateDesk> remove_rate_of = tell<&RateDesk::remove_rate_of>;
constexpr Change<RateDesk> touch = tell<&RateDesk::touch>;
constexpr Change<RateDesk> set_source = set<&Rate::source>;
constexpr Change<RateDesk> set_remark = set<&Rate::remark>;
constexpr Change<RateDesk> set_reason = set<&Rate::reason>;
constexpr Change<RateDesk> mark_import = set<&Rate::import_mark>;
constexpr Change<RateDesk> lose_document = damage<&RateDesk::requote, without_document>;
constexpr Change<RateDesk> empty_document = damage<&RateDesk::requote, with_empty_document>;
constexpr Change<RateDesk> break_document = damage<&RateDesk::requote, with_broken_document>;

// Each kind of change and of value.
// clang-format off
constexpr Step<RateDesk> story[] = {
    {year{2023} / 11 / 14, add_currency,    "AED"},
    {year{2023} / 11 / 16, add_rate_of,     "AED"},
    {year{2023} / 12 /  4, set_source,      "Bankhaus Müller & Söhne"},
    {year{2023} / 12 / 19, set_remark,      "Kurs laut \"Börsenblatt\"; Abweichung geprüft"},
    {year{2024} /  1 /  8, remove_rate_of,  "HRK"},
    {year{2024} /  1 /  8, remove_rate_of,  "HRK"},
    {year{2024} /  1 /  9, remove_currency, "HRK"},
    {year{2024} /  1 / 24, touch,           ""},
    {year{2024} /  2 / 13, set_remark,      "Kurs berichtigt\r\nBeleg liegt im Ordner \"Devisen 2024\""},
    {year{2024} /  3 /  5, fall_behind,     ""},
    {year{2024} /  3 / 20, empty_document,  ""},
    {year{2024} /  4 / 16, rename_lira,     "Türkische Lira\r\n(1 TRY = 1.000.000 alte Lira, TRL)"},
    {year{2024} /  5 /  7, set_remark,      "=Mittelkurs EZB + 0,5 %"},
    {year{2024} /  5 / 28, remove_rate,     ""},
    {year{2024} /  6 / 18, set_reason,      "Der Kurs der Hausbank wich um mehr als ein Prozent vom Referenzkurs ab. "
                                            "Nach Rücksprache mit Frau Dr. Löwenstein wurde der Referenzkurs übernommen."},
    {year{2024} /  7 /  9, set_remark,      "Abweichung < 0,5 % zum Referenzkurs & unter 10 EUR"},
    {year{2024} /  8 /  6, touch,           ""},
    {year{2024} /  9 / 17, lose_document,   ""},
    {year{2024} / 10 /  8, set_remark,      "- keine Notierung am Feiertag -"},
    {year{2024} / 11 /  5, exchange_source_for_remark, "Kursquelle unklar"},
    {year{2024} / 12 /  3, break_document,  ""},
    {year{2025} /  1 / 14, remove_rate,     ""},
    {year{2025} /  2 / 11, mark_import,     "automatisch"},
    {year{2025} /  2 / 25, mark_import,     "Übernahme 02/2025"},
    {year{2025} /  3 / 11, set_remark,      "Sonderkurs für die Mandantengruppe „Süd“; vereinbart am 10.03.2025 mit der "
                                            "Filialleitung, gültig bis auf Widerruf"},
    {year{2025} /  4 /  8, fall_behind,     ""},
    {year{2025} /  5 / 13, add_rate,        ""},
    {year{2025} /  6 / 10, set_remark,      "@Kursdienst: bitte prüfen"},
    {year{2025} /  7 /  8, set_reason,      "Eingabefehler: Geld und Brief waren vertauscht.\r\nGefunden bei der Abstimmung "
                                            "des zweiten Quartals."},
    {year{2025} /  8 / 12, touch,           ""},
    {year{2025} / 10 / 14, set_remark,      "+0,3 % Aufschlag laut Hausbank"},
    {year{2026} /  1 /  7, remove_rate_of,  "BGN"},
    {year{2026} /  1 /  7, remove_rate_of,  "BGN"},
    {year{2026} /  1 /  8, remove_currency, "BGN"},
    {year{2026} /  2 / 10, exchange_source_for_remark, "Quelle nachgetragen"},
    {year{2026} /  4 / 14, remove_rate,     ""},
    {year{2026} /  6 / 16, fall_behind,     ""},
    {year{2026} /  9 /  1, add_rate,        ""},
};

constexpr Everyday<RateDesk> everyday[] = {
    {5,  &RateDesk::add_rate},
    {2,  &RateDesk::remove_rate},
    {9,  &RateDesk::touch},
    {10, &RateDesk::change_source},
    {74, &RateDesk::requote},
};
// clang-format on
static_assert(are_all<RateDesk>(everyday));

constexpr Plot<RateDesk> plot = {
    .story = story,
    .everyday = everyday,
    .programs = {"Devisenverwaltung",
                 {"_UNBEKANNT_Kursimport", "svc_kursimport", 0, "SRV-JOBS", "Kursimport"}},
    .in_turn = true,
};

class ExchangeRates : public StorySection<RateDesk> {
public:
    ExchangeRates(Random random, std::int64_t rows) : StorySection({random, rows}, plot) {}

    void write_master_data(SqliteFile& file) const override;
    std::span<const Caption> captions() const override { return all_captions; }
};

void write_rate(SqliteInsert& insert, const Rate& rate) {
    insert.row(rate.id, rate.currency_id, iso_text(rate.valid_from),
               static_cast<double>(rate.quote.bid) / 1e4, static_cast<double>(foreign_bid(rate.quote)) / 1e6,
               static_cast<double>(rate.quote.ask) / 1e4, static_cast<double>(foreign_ask(rate.quote)) / 1e6,
               rate.deviation / 100.0, rate.source, rate.remark, rate.reason, rate.import_mark,
               iso_text(rate.changed), rate.employee);
}

void ExchangeRates::write_master_data(SqliteFile& file) const {
    file.execute(tables);
    SqliteInsert currencies(file, "INSERT INTO tDevisenWaehr VALUES (?, ?, ?, ?)");
    for (const Currency& currency : desk().currencies()) {
        currencies.row(currency.id, currency.code, currency.name, currency.decimals);
    }
    SqliteInsert rates(file,
                       "INSERT INTO TDEVISENKURS VALUES (?, ?, ?, ?, ?, ?, ?,"
                       " NULLIF(?, 0), NULLIF(?, ''), NULLIF(?, ''), NULLIF(?, ''), ?, ?, ?)");
    for (const Rate& rate : desk().rates()) write_rate(rates, rate);
}

}  // namespace

std::unique_ptr<Section> create_exchange_rates(Random random, std::int64_t rows, ClientBook& /*clients*/) {
    return std::make_unique<ExchangeRates>(random, rows);
}

}  // namespace prot::sample
