#include "sections/customers_suppliers/partner_lines.h"

#include "core/ZQErrorHandling.h"
#include "core/field_rules.h"

namespace prot::customers_suppliers {

namespace {

constexpr Caption general = Caption::general(), none = Caption::none();

// Of most tables a reader sees but a few fields, of others all but those that only link records or say who
// touched them. The second discount days of TKULIEFKOND have no line, since the rule for them names the first
// days once more, deliberately. A memo is a field like any other once it has a caption, which those of the
// master tables lack.
// clang-format off
constexpr CaptionRule caption_rules[] = {
    {{"PERSON_V4", "PS_KURZNAME"},  general},
    {{"PERSON_V4", "PS_USTIDFK"},   general},
    {{"PERSON_V4", "PS_ZUHAENDEN"}, general},
    {{.table = "PERSON_V4"},        none},

    {{"PERSONALIE", "PL_BEZEICHNUNG"}, general},
    {{.table = "PERSONALIE"},          none},

    {{"ADRESSE", "ADR_ID"}, none},
    {{"ADRESSE", "LA_ID"},  none},

    {{"PERSON_ADRESSE", "ADR_TYP"}, general},
    {{.table = "PERSON_ADRESSE"},   none},

    {{"BANKKONTO", "BK_ID"},        none},
    {{.table = "PERSON_BANKKONTO"}, none},

    {{"TKUNDVWZ", "FLVWZ"}, Caption::text("Verwendungszweck")},
    {{.table = "TKUNDVWZ"}, none},
    {{"TLIEFVWZ", "FLVWZ"}, Caption::text("Verwendungszweck")},
    {{.table = "TLIEFVWZ"}, none},

    {{"KUNDEN_V4", "KUN_ID"},          none},
    {{"KUNDEN_V4", "PS_ID_KUNDE"},     none},
    {{"KUNDEN_V4", "KUN_DATUM"},       none},
    {{"KUNDEN_V4", "KUN_MITARBEITER"}, none},
    {{"KUNDEN_V4", "KUN_MEMO"},        none},
    {{"KUNDEN_V4", "PS_ID_MANDANT"},   none},

    {{"LIEFERANTEN_V4", "LIEF_ID"},          none},
    {{"LIEFERANTEN_V4", "PS_ID_LIEFERANT"},  none},
    {{"LIEFERANTEN_V4", "LIEF_DATUM"},       none},
    {{"LIEFERANTEN_V4", "LIEF_MITARBEITER"}, none},
    {{"LIEFERANTEN_V4", "LIEF_MEMO"},        none},
    {{"LIEFERANTEN_V4", "PS_ID_MANDANT"},    none},

    {{"TKULIEFKOND", "DITAGEZAHLUNGSZIEL"}, Caption::text("Anzahl Tage für die Berechnung des Fälligkeitsdatum")},
    {{"TKULIEFKOND", "DCBEZEICHNUNG"},      Caption::text("Bezeichnung der Zahlungskondition")},
    {{"TKULIEFKOND", "DISKONTOSATZ1"},      Caption::text("Prozentsatz für Skontoabzug")},
    {{"TKULIEFKOND", "DISKONTOSATZ2"},      Caption::text("Prozentsatz für Skontoabzug")},
    {{"TKULIEFKOND", "DISKONTOTAGE1"},      Caption::text("Anzahl Tage für Skontoabzug")},
    {{.table = "TKULIEFKOND"},              none},
};
// clang-format on

}  // namespace

LineRules PartnerLines::rules() const {
    return {.described = LineRules::Description::behind_common_cells, .empty_value = "leer"};
}

bool PartnerLines::describe_record(const LogRow& row, CsvLine& line) {
    records_.mGetKLInfos(row.text(LogColumn::dcTable, scratch_), row.number(LogColumn::dlPrimaryKey1),
                         line[partner_number], line[partner_name], row.moment());
    return true;
}

std::string_view PartnerLines::caption(const ChangedField& field) {
    return msDBGetFieldDescription(field, run_);
}

std::string PartnerLines::translated_value(const ChangedField& field, std::string_view value) {
    return translations_.msTranslateID(value, field);
}

std::string_view msDBGetFieldDescription(const ChangedField& field, Run& run) try {
    return caption_by(caption_rules, NameMatch::in_capitals, field, run);
} catch (...) {
    leave(owner, "msDBGetFieldDescription");
}

}  // namespace prot::customers_suppliers
