#include "apps/protcsv/sample/sample_item_desk.h"
#include "apps/protcsv/sample/sample_item_story.h"

namespace prot::sample {
namespace {

// OP_IMPORT_KZ is logged but has no caption: such a column exists in every grown database.
// clang-format off
constexpr Caption all_captions[] = {
    {"OFFENER_POSTEN", "OP_ID",            "Schlüssel des offenen Postens"},
    {"OFFENER_POSTEN", "WJ_ID",            "Wirtschaftsjahr"},
    {"OFFENER_POSTEN", "BU_ID",            "Buchung"},
    {"OFFENER_POSTEN", "BUS_ID",           "Buchungsstapel"},
    {"OFFENER_POSTEN", "OP_SKNR",          "Kontonummer"},
    {"OFFENER_POSTEN", "OP_BELEG2",        "Belegnummer"},
    {"OFFENER_POSTEN", "OP_DATUM_BELEG",   "Belegdatum"},
    {"OFFENER_POSTEN", "OP_DATUM_FAELLIG", "Fällig am"},
    {"OFFENER_POSTEN", "OP_ART",           "Art des Postens"},
    {"OFFENER_POSTEN", "OP_BETRAG",        "Betrag in EUR"},
    {"OFFENER_POSTEN", "OP_SKONTO",        "Skonto in %"},
    {"OFFENER_POSTEN", "OP_SPERR_KZ",      "Mahnsperre"},
    {"OFFENER_POSTEN", "OP_MAHNSTUFE",     "Mahnstufe"},
    {"OFFENER_POSTEN", "OP_TEXT",          "Buchungstext"},
    {"OFFENER_POSTEN", "OP_NOTIZ",         "Notiz zum Posten"},
    {"OFFENER_POSTEN", "OP_AUSGLEICH_NR",  "Ausgleichsnummer"},
    {"OFFENER_POSTEN", "OP_DATUM",         "Datum der letzten Änderung"},
    {"OFFENER_POSTEN", "OP_MITARBEITER",   "Geändert von"},
    {"Person_v4",      "Ps_Nr",            "Mandantennummer"},
    {"Person_v4",      "Ps_KurzName",      "Kurzname"},
    {"Person_v4",      "Ps_Name",          "Name"},
};
// clang-format on

constexpr const char* table = R"(
CREATE TABLE OFFENER_POSTEN (
    OP_ID INTEGER PRIMARY KEY,
    WJ_ID INTEGER,
    BU_ID INTEGER,
    BUS_ID INTEGER,
    OP_SKNR INTEGER,
    OP_BELEG2 TEXT COLLATE NOCASE,
    OP_DATUM_BELEG DATETIME,
    OP_DATUM_FAELLIG DATETIME,
    OP_ART INTEGER,
    OP_BETRAG REAL,
    OP_SKONTO REAL,
    OP_SPERR_KZ INTEGER,
    OP_MAHNSTUFE INTEGER,
    OP_TEXT TEXT COLLATE NOCASE,
    OP_NOTIZ TEXT COLLATE NOCASE,
    OP_IMPORT_KZ TEXT COLLATE NOCASE,
    OP_AUSGLEICH_NR INTEGER,
    OP_DATUM DATETIME,
    OP_MITARBEITER INTEGER
);
)";

constexpr const char* indexes = R"(
CREATE INDEX iOffenerPostenWirtschaftsjahr ON OFFENER_POSTEN (WJ_ID, OP_SKNR);
CREATE INDEX iOffenerPostenKonto ON OFFENER_POSTEN (OP_SKNR);
)";

// clang-format off
constexpr Everyday<ItemDesk> everyday[] = {
    {10, &ItemDesk::add_item},
    {3,  &ItemDesk::remove_item},
    {5,  &ItemDesk::touch},
    {8,  &ItemDesk::settle},
    {34, &ItemDesk::change_dunning},
    {15, &ItemDesk::change_text},
    {25, &ItemDesk::change_terms},
};
// clang-format on
static_assert(are_all<ItemDesk>(everyday));

constexpr Programs programs = {
    "OP-Verwaltung",
    {"_UNBEKANNT_Bankabruf", "svc_bankabruf", 0, "SRV-JOBS", "Kontoauszugsabruf"},
};

class OpenItems : public StorySection<ItemDesk> {
public:
    OpenItems(Random random, std::int64_t rows, ClientBook& clients)
        : StorySection({random, rows, clients},
                       {.story = item_story(), .everyday = everyday, .programs = programs}) {}

    void write_master_data(SqliteFile& file) const override;
    std::span<const Caption> captions() const override { return all_captions; }
};

void write_item(SqliteInsert& insert, const Item& item) {
    insert.row(item.id, item.year_id, booking_id(item), batch_id(item), item.account, document_number(item),
               iso_text(item.document_date), item.due == Day() ? std::string() : iso_text(item.due),
               item.kind, static_cast<double>(item.amount) / 100, item.discount / 100.0, item.dunning_block,
               item.dunning_level, item.text, item.note, item.import_mark, item.settlement,
               iso_text(item.changed), item.employee);
}

void OpenItems::write_master_data(SqliteFile& file) const {
    desk().clients().write(file);
    file.execute(table);
    SqliteInsert items(
        file,
        "INSERT INTO OFFENER_POSTEN VALUES (?, ?, ?, ?, ?, NULLIF(?, ''), ?, NULLIF(?, ''), ?, ?,"
        " NULLIF(?, 0), ?, NULLIF(?, 0), NULLIF(?, ''), NULLIF(?, ''), NULLIF(?, ''),"
        " NULLIF(?, 0), ?, NULLIF(?, 0))");
    for (const Item& item : desk().items()) write_item(items, item);
    file.execute(indexes);
}

}  // namespace

std::unique_ptr<Section> create_open_items(Random random, std::int64_t rows, ClientBook& clients) {
    return std::make_unique<OpenItems>(random, rows, clients);
}

}  // namespace prot::sample
