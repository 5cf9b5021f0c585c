#include "apps/protcsv/sample/sample_partners.h"

namespace prot::sample {
namespace {

std::string text_of(std::optional<std::int32_t> number) {
    return number ? std::to_string(*number) : std::string();
}

std::string limit_text(const Partner& partner) {
    return partner.limit == 0 ? std::string() : decimal_text(partner.limit, 2);
}

std::string discount_text(const Partner& partner) {
    return partner.discount == 0 ? std::string() : decimal_text(partner.discount, 2);
}

std::string employee_text(const Partner& partner) {
    return partner.employee == 0 ? std::string() : std::to_string(partner.employee);
}

// The mark of an import is logged but has no caption: such a column exists in every grown database.
// clang-format off
constexpr PartnerColumn columns[] = {
    {{"KUN_ID", "LIEF_ID"}, "INTEGER PRIMARY KEY", {"Schlüssel des Kunden", "Schlüssel des Lieferanten"},
     [](const Partner& partner) { return std::to_string(partner.id); }},
    {{"KUN_NR", "LIEF_NR"}, "INTEGER", {"Kundennummer", "Lieferantennummer"},
     [](const Partner& partner) { return std::to_string(partner.number); }},
    {{"Ps_Id_Kunde", "Ps_Id_Lieferant"}, "INTEGER", {"Person des Kunden", "Person des Lieferanten"},
     [](const Partner& partner) { return std::to_string(partner.person_id); }},
    {{"Ps_Id_Mandant", "Ps_Id_Mandant"}, "INTEGER", {"Mandant", "Mandant"},
     [](const Partner& partner) { return std::to_string(partner.client_id); }},
    {{"KLKD_ID", "KLKD_ID"}, "INTEGER", {"Zahlungskondition", "Zahlungskondition"},
     [](const Partner& partner) { return std::to_string(partner.terms); }},
    {{"MB_ID", "MB_ID"}, "INTEGER", {"Mahnbedingung", "Mahnbedingung"},
     [](const Partner& partner) { return text_of(partner.dunning); }},
    {{"MTH_ID", "MTH_ID"}, "INTEGER", {"Texthauptgruppe", "Texthauptgruppe"},
     [](const Partner& partner) { return text_of(partner.texts); }},
    {{"Ps_Id_Sammel_Kunde", "Ps_Id_Sammel_Lief"}, "INTEGER", {"Zentralregulierer", "Zentralregulierer"},
     [](const Partner& partner) { return text_of(partner.regulator); }},
    {{"KUN_KREDITLIMIT", "LIEF_BESTELLLIMIT"}, "REAL", {"Kreditlimit in EUR", "Bestelllimit in EUR"}, limit_text},
    {{"KUN_RABATT", "LIEF_RABATT"}, "REAL", {"Rabatt in %", "Rabatt in %"}, discount_text},
    {{"KUN_LIEFERANTENNR", "LIEF_KUNDENNR"}, "TEXT COLLATE NOCASE",
     {"Eigene Lieferantennummer beim Kunden", "Eigene Kundennummer beim Lieferanten"},
     [](const Partner& partner) { return partner.reference; }},
    {{"KUN_HINWEIS", "LIEF_HINWEIS"}, "TEXT COLLATE NOCASE", {"Hinweis für die Erfassung", "Hinweis für die Erfassung"},
     [](const Partner& partner) { return std::string(partner.note); }},
    {{"KUN_IMPORT_KZ", "LIEF_IMPORT_KZ"}, "TEXT COLLATE NOCASE", {},
     [](const Partner& partner) { return std::string(partner.import_mark); }},
    {{"KUN_DATUM", "LIEF_DATUM"}, "DATETIME", {"Datum der letzten Änderung", "Datum der letzten Änderung"},
     [](const Partner& partner) { return german_text(partner.changed); }},
    {{"KUN_MITARBEITER", "LIEF_MITARBEITER"}, "INTEGER", {"Geändert von", "Geändert von"}, employee_text},
    {{"KUN_MEMO", "LIEF_MEMO"}, "TEXT COLLATE NOCASE", {"Notizen zum Kunden", "Notizen zum Lieferanten"},
     [](const Partner& partner) { return std::string(partner.memo); }, true},
};
// clang-format on

template <Side side>
constexpr auto partner_fields = [] {
    std::array<Field<Partner>, std::size(columns)> fields{};
    for (std::size_t index = 0; index < fields.size(); ++index)
        fields[index] = {columns[index].name[static_cast<std::size_t>(side)], columns[index].text,
                         columns[index].is_memo};
    return fields;
}();

template <Side side>
constexpr Field<PurposeLink> purpose_fields[] = {
    {purpose_link_key[static_cast<std::size_t>(side)],
     [](const PurposeLink& link) { return std::to_string(link.partner_id); }},
    {"FLVWZ", [](const PurposeLink& link) { return std::to_string(link.purpose_id); }},
};

LogKeys keys_of_partner(const Partner& partner) {
    return {.primary_key1 = partner.id,
            .search_ids = {partner.person_id, partner.client_id, std::nullopt, partner.number}};
}

LogKeys keys_of_link(const PurposeLink& link) {
    return {.primary_key1 = link.partner_id, .primary_key2 = link.purpose_id};
}

constexpr LoggedTable<Partner> logged_partners[] = {
    {partner_table[0], partner_fields<Side::customers>, keys_of_partner},
    {partner_table[1], partner_fields<Side::suppliers>, keys_of_partner},
};

constexpr LoggedTable<PurposeLink> logged_purposes[] = {
    {purpose_link_table[0], purpose_fields<Side::customers>, keys_of_link},
    {purpose_link_table[1], purpose_fields<Side::suppliers>, keys_of_link},
};

template <class Record>
LogRow log_row_of_side(const LoggedTable<Record> (&tables)[2], const Occasion& occasion, const Record* before,
                       const Record* after) {
    const Side side = (before == nullptr ? after : before)->side;
    return log_row(tables[static_cast<std::size_t>(side)], occasion, before, after);
}

}  // namespace

LogRow log_row(const Occasion& occasion, const Partner* before, const Partner* after) {
    return log_row_of_side(logged_partners, occasion, before, after);
}

LogRow log_row(const Occasion& occasion, const PurposeLink* before, const PurposeLink* after) {
    return log_row_of_side(logged_purposes, occasion, before, after);
}

std::span<const PartnerColumn> partner_columns() { return columns; }

}  // namespace prot::sample
