#include "apps/protcsv/sample/sample_partner_lists.h"

namespace prot::sample {
namespace {

std::string rate_text(std::int32_t rate) { return rate == 0 ? std::string() : decimal_text(rate, 2); }

std::string days_text(std::int32_t days) { return days == 0 ? std::string() : std::to_string(days); }

constexpr std::int32_t keeper = 0;  // flManID of what no client alone uses

// clang-format off
constexpr Field<Terms> terms_fields[] = {
    {"IDKLK",              [](const Terms& terms) { return std::to_string(terms.id); }},
    {"dcBezeichnung",      [](const Terms& terms) { return std::string(terms.name); }},
    {"diTageZahlungsziel", [](const Terms& terms) { return std::to_string(terms.due_days); }},
    {"diSkontoTage1",      [](const Terms& terms) { return days_text(terms.days1); }},
    {"diSkontoSatz1",      [](const Terms& terms) { return rate_text(terms.rate1); }},
    {"diSkontoTage2",      [](const Terms& terms) { return days_text(terms.days2); }},
    {"diSkontoSatz2",      [](const Terms& terms) { return rate_text(terms.rate2); }},
    {"diTyp",              [](const Terms& terms) { return std::to_string(terms.type); }},
    {"flManID",            [](const Terms&) { return std::to_string(keeper); }},
    {"flMitID",            [](const Terms& terms) { return std::to_string(terms.employee); }},
    {"ddDatum",            [](const Terms& terms) { return german_text(terms.changed); }},
};

std::string entry_id(const ListEntry& entry) { return std::to_string(entry.id); }
std::string entry_name(const ListEntry& entry) { return std::string(entry.name); }

constexpr Field<ListEntry> purpose_fields[] = {{"IDVWZ", entry_id}, {"dcBezeichnung", entry_name}};
constexpr Field<ListEntry> text_group_fields[] = {{"IDTH", entry_id}, {"dcBezeichnung", entry_name}};
constexpr Field<ListEntry> dunning_fields[] = {{"MB_ID", entry_id}, {"Mb_Bezeichnung", entry_name}};

constexpr Field<Bank> bank_fields[] = {
    {"idBank",        [](const Bank& bank) { return std::to_string(bank.id); }},
    {"dcBLZ",         [](const Bank& bank) { return std::string(bank.code); }},
    {"dcBezeichnung", [](const Bank& bank) { return std::string(bank.name); }},
};
// clang-format on

/// The lists are found by their own key alone.
template <class Record>
LogKeys own_key(const Record& record) {
    return {.primary_key1 = record.id};
}

constexpr LoggedTable<Terms> logged_terms = {"TKULIEFKOND", terms_fields, own_key<Terms>};
constexpr LoggedTable<Bank> logged_banks = {"TBANK", bank_fields, own_key<Bank>};
constexpr LoggedTable<ListEntry> logged_entries[] = {
    {list_tables[0], purpose_fields, own_key<ListEntry>},
    {list_tables[1], text_group_fields, own_key<ListEntry>},
    {list_tables[2], dunning_fields, own_key<ListEntry>},
};

// Of each list, a side's first three are the story's; those that do not exist yet are created there. No id
// stands in two lists.
// clang-format off
constexpr Terms all_terms[] = {
    {11, "14 Tage 2 %, 30 Tage netto",       30, 14, 200,  0,   0, 1},
    {12, "Zahlbar innerhalb von 10 Tagen",   10,  0,   0,  0,   0, 1},
    {13, "Bankeinzug zum Monatsletzten",     30,  8, 300,  0,   0, 1, false},
    {21, "10 Tage 3 %, 60 Tage netto",       60, 10, 300,  0,   0, 2},
    {22, "Zahlung nach Wareneingang",        20,  0,   0,  0,   0, 2},
    {23, "Dauerauftrag zum Monatsersten",    30,  8, 200,  0,   0, 2, false},
    {shared_terms, "Zahlbar sofort ohne Abzug",         0,  0,   0,  0,   0, 0},
    {32, "30 Tage netto",                    30,  0,   0,  0,   0, 0},
    {33, "8 Tage 3 %, 14 Tage 2 %, 30 netto", 30, 8, 300, 14, 200, 0},
    {14, "Lastschrift mit Skonto",           14, 10, 250,  0,   0, 1},
    {15, "Vorkasse",                          0,  0,   0,  0,   0, 1},
    {24, "Lieferung gegen Rechnung",         45,  0,   0,  0,   0, 2},
    {25, "Großhandel 10 Tage 4 %",           60, 10, 400, 30, 225, 2},
};

struct EntryRow {
    Side side;
    ListEntry entry;
};
constexpr EntryRow all_entries[] = {
    {Side::customers, {ListKind::purposes,     41, "Rechnungsnummer und Kundennummer"}},
    {Side::customers, {ListKind::purposes,     42, "Mietzahlung \"Objekt Süd\"; Nebenkosten"}},
    {Side::customers, {ListKind::purposes,     43, "Spende < 200 EUR & Sachzuwendung", false}},
    {Side::customers, {ListKind::purposes,     44, "Abschlag laut Vertrag"}},
    {Side::customers, {ListKind::purposes,     45, "Mitgliedsbeitrag"}},
    {Side::customers, {ListKind::purposes,     46, "Nur Rechnungsnummer"}},
    {Side::suppliers, {ListKind::purposes,     51, "Beleg- und Lieferscheinnummer"}},
    {Side::suppliers, {ListKind::purposes,     52, "Leasingrate \"Fuhrpark\"; Wartung"}},
    {Side::suppliers, {ListKind::purposes,     53, "Fracht < 50 kg & Verpackung", false}},
    {Side::suppliers, {ListKind::purposes,     54, "Sammelrechnung"}},
    {Side::suppliers, {ListKind::purposes,     55, "Strom und Wärme"}},
    {Side::suppliers, {ListKind::purposes,     56, "Eigene Kundennummer"}},
    {Side::customers, {ListKind::text_groups,  61, "Mahntexte höflich"}},
    {Side::customers, {ListKind::text_groups,  62, "Mahntexte Englisch"}},
    {Side::customers, {ListKind::text_groups,  63, "Mahntexte Behörden", false}},
    {Side::customers, {ListKind::text_groups,  64, "Mahntexte allgemein"}},
    {Side::customers, {ListKind::text_groups,  65, "Mahntexte streng"}},
    {Side::suppliers, {ListKind::text_groups,  71, "Avistexte höflich"}},
    {Side::suppliers, {ListKind::text_groups,  72, "Avistexte Englisch"}},
    {Side::suppliers, {ListKind::text_groups,  73, "Avistexte Behörden", false}},
    {Side::suppliers, {ListKind::text_groups,  74, "Avistexte allgemein"}},
    {Side::suppliers, {ListKind::text_groups,  75, "Avistexte ausführlich"}},
    {Side::customers, {ListKind::dunning,      81, "Drei Stufen, monatlich"}},
    {Side::customers, {ListKind::dunning,      82, "Mahnung ab 50 EUR"}},
    {Side::customers, {ListKind::dunning,      83, "Mahnung mit Gebühr", false}},
    {Side::customers, {ListKind::dunning,      84, "Drei Stufen, vierzehntägig"}},
    {Side::customers, {ListKind::dunning,      85, "Nur Zahlungserinnerung"}},
    {Side::suppliers, {ListKind::dunning,      91, "Liefermahnung monatlich"}},
    {Side::suppliers, {ListKind::dunning,      92, "Liefermahnung nach Rückfrage"}},
    {Side::suppliers, {ListKind::dunning,      93, "Liefermahnung mit Frist", false}},
    {Side::suppliers, {ListKind::dunning,      94, "Liefermahnung wöchentlich"}},
    {Side::suppliers, {ListKind::dunning,      95, "Guthaben anfordern"}},
};

struct BankRow {
    Side side;
    Bank bank;
};
constexpr BankRow all_banks[] = {
    {Side::customers, {101, "99110010", "Stadtbank Löwenstein"}},
    {Side::customers, {102, "",         "Alpenbank Innerthal"}},
    {Side::customers, {103, "99110030", "Handelsbank \"Nord\"; Filiale Süd", false}},
    {Side::customers, {104, "99110040", "Kreditverein Altmühl eG"}},
    {Side::customers, {105, "99110050", "Landkasse Weißach"}},
    {Side::customers, {106, "99110060", "Gewerbebank Öhringen"}},
    {Side::suppliers, {111, "99220010", "Sparverein Mühltal"}},
    {Side::suppliers, {112, "",         "Banque du Grand Vallon"}},
    {Side::suppliers, {113, "99220030", "Agrarbank \"West\"; Filiale Ost", false}},
    {Side::suppliers, {114, "99220040", "Hafenbank Küstrow"}},
    {Side::suppliers, {115, "99220050", "Industriekasse Großheide"}},
    {Side::suppliers, {116, "99220060", "Merkurbank Schönfeld"}},
};
// clang-format on

constexpr std::int32_t for_both = 0;

constexpr std::int32_t type_of(Side side) { return side == Side::customers ? 1 : 2; }

/// The customers' side keeps what is for both.
bool keeps(Side side, const Terms& terms) {
    return terms.type == type_of(side) || (terms.type == for_both && side == Side::customers);
}

}  // namespace

LogRow log_row(const Occasion& occasion, const Terms* before, const Terms* after) {
    return log_row(logged_terms, occasion, before, after);
}

LogRow log_row(const Occasion& occasion, const ListEntry* before, const ListEntry* after) {
    const ListKind list = (before == nullptr ? after : before)->list;
    return log_row(logged_entries[static_cast<std::size_t>(list)], occasion, before, after);
}

LogRow log_row(const Occasion& occasion, const Bank* before, const Bank* after) {
    return log_row(logged_banks, occasion, before, after);
}

PartnerLists::PartnerLists(Side side) {
    for (const Terms& row : all_terms)
        if (keeps(side, row)) terms.push_back(row);
    for (const Terms& row : usual(terms)) usual_terms.push_back(row.id);
    for (const Terms& row : all_terms)
        if (row.type == for_both && !keeps(side, row)) usual_terms.push_back(row.id);
    for (const EntryRow& row : all_entries)
        if (row.side == side) of(row.entry.list).push_back(row.entry);
    for (const BankRow& row : all_banks)
        if (row.side == side) banks.push_back(row.bank);
}

}  // namespace prot::sample
