#include "apps/protcsv/sample/sample_frameworks.h"

namespace prot::sample {
namespace {

template <auto member, class Record>
ColumnValue field(const Record& record) {
    return record.*member;
}

template <std::size_t number>
ColumnValue name_of_cell(const Cell& cell) {
    return cell.names[number];
}

/// Looks as the suite writes it; the last twelve digits tell the key.
ColumnValue guid(std::int32_t key) {
    std::string digits = std::to_string(key);
    digits.insert(0, 12 - digits.size(), '0');
    return "{5A4D3C2B-1F0E-4D2C-8B7A-" + digits + "}";
}

template <class Record>
ColumnValue own_guid(const Record& record) {
    return guid(record.id);
}

ColumnValue family_guid(const Framework& framework) { return guid(framework.family); }

// Two columns have no caption: such columns exist in every grown database. Lookups search the documents for
// exactly these letters.
// clang-format off
constexpr Column<Framework> framework_columns[] = {
    {"ARa_Id",            "Schlüssel des Auswertungsrahmens", field<&Framework::id>},
    {"ARa_Bezeichnung",   "Bezeichnung",                      field<&Framework::name>},
    {"ARa_Art",           "Art der Auswertung",               field<&Framework::type>},
    {"ARa_Typ",           "Standard- oder Kanzleirahmen",     field<&Framework::kind>},
    {"ARa_Kennzeichen",   "Kennzeichen des Rahmens",          field<&Framework::mark>},
    {"ddGueltigVon",      "Gültig ab",                        field<&Framework::valid_from>},
    {"ddGueltigBis",      "Gültig bis",                       field<&Framework::valid_to>},
    {"dcGUID",            "Weltweiter Schlüssel",             family_guid},
    {"MIT_ID",            "Geändert von",                     field<&Framework::employee>},
    {"ARa_Datum",         "Datum der letzten Änderung",       field<&Framework::changed>},
};

constexpr Column<Density> density_columns[] = {
    {"Ad_Id",             "Schlüssel der Dichte",             field<&Density::id>},
    {"ARa_Id",            "Auswertungsrahmen",                field<&Density::framework_id>},
    {"Ad_Bezeichnung",    "Bezeichnung",                      field<&Density::name>},
    {"AD_STUFE",          "Stufe",                            field<&Density::level>},
    {"dcGUID",            "Weltweiter Schlüssel",             own_guid<Density>},
    {"MIT_ID",            "Geändert von",                     field<&Density::employee>},
    {"Ad_Datum",          "Datum der letzten Änderung",       field<&Density::changed>},
};

constexpr Column<ReportKind> report_kind_columns[] = {
    {"Aa_Id",             "Schlüssel der Auswertungsart",     field<&ReportKind::id>},
    {"ARa_Id",            "Auswertungsrahmen",                field<&ReportKind::framework_id>},
    {"Aa_Bezeichnung",    "Bezeichnung",                      field<&ReportKind::name>},
    {"dcGUID",            "Weltweiter Schlüssel",             own_guid<ReportKind>},
    {"MIT_ID",            "Geändert von",                     field<&ReportKind::employee>},
    {"Aa_Datum",          "Datum der letzten Änderung",       field<&ReportKind::changed>},
};

constexpr Column<ReportColumn> report_column_columns[] = {
    {"As_Id",             "Schlüssel der Spalte",             field<&ReportColumn::id>},
    {"Aa_Id",             "Auswertungsart",                   field<&ReportColumn::report_kind_id>},
    {"As_Bezeichnung",    "Bezeichnung der Spalte",           field<&ReportColumn::name>},
    {"AS_UEBERSCHRIFT",   "Überschrift",                      field<&ReportColumn::heading>},
    {"AS_BREITE",         "Breite in Zeichen",                field<&ReportColumn::width>},
    {"dcGUID",            "Weltweiter Schlüssel",             own_guid<ReportColumn>},
    {"MIT_ID",            "Geändert von",                     field<&ReportColumn::employee>},
    {"As_Datum",          "Datum der letzten Änderung",       field<&ReportColumn::changed>},
};

constexpr Column<LineKind> line_kind_columns[] = {
    {"Za_Id",             "Schlüssel der Zeilenart",          field<&LineKind::id>},
    {"ARa_Id",            "Auswertungsrahmen",                field<&LineKind::framework_id>},
    {"Za_Bezeichnung",    "Bezeichnung der Zeilenart",        field<&LineKind::name>},
    {"ZA_SCHRIFT",        "Schrift",                          field<&LineKind::font>},
    {"ZA_EINZUG",         "Einzug in Zeichen",                field<&LineKind::indent>},
    {"ZA_IMPORT_KZ",      "",                                 field<&LineKind::import_mark>},
    {"dcGUID",            "Weltweiter Schlüssel",             own_guid<LineKind>},
    {"MIT_ID",            "Geändert von",                     field<&LineKind::employee>},
    {"Za_Datum",          "Datum der letzten Änderung",       field<&LineKind::changed>},
};

constexpr Column<Position> position_columns[] = {
    {"Ap_Id",             "Schlüssel der Position",           field<&Position::id>},
    {"Za_Id",             "Zeilenart",                        field<&Position::line_kind_id>},
    {"Ap_Bezeichnung",    "Bezeichnung der Position",         field<&Position::name>},
    {"AP_NR",             "Nummer der Position",              field<&Position::number>},
    {"AP_HINWEIS",        "Hinweis zur Position",             field<&Position::hint>},
    {"AP_IMPORT_KZ",      "",                                 field<&Position::import_mark>},
    {"dcGUID",            "Weltweiter Schlüssel",             own_guid<Position>},
    {"MIT_ID",            "Geändert von",                     field<&Position::employee>},
    {"AP_DATUM",          "Datum der letzten Änderung",       field<&Position::changed>},
};

constexpr Column<Cell> cell_columns[] = {
    {"Az_Id",             "Schlüssel der Zelle",              field<&Cell::id>},
    {"Ap_Id",             "Position",                         field<&Cell::position_id>},
    {"Ad_Id",             "Auswertungsdichte",                field<&Cell::density_id>},
    {"AZ_ANZEIGE",        "Anzeige",                          field<&Cell::display>},
    {"AZ_ABWBEZEICHNUNG", "Abweichende Bezeichnung",          field<&Cell::other_name>},
    {"AZ_ATBEZEICHNUNG2", "Bezeichnung 2",                    name_of_cell<0>},
    {"AZ_ATBEZEICHNUNG3", "Bezeichnung 3",                    name_of_cell<1>},
    {"AZ_ATBEZEICHNUNG4", "Bezeichnung 4",                    name_of_cell<2>},
    {"MIT_ID",            "Geändert von",                     field<&Cell::employee>},
    {"AZ_DATUM",          "Datum der letzten Änderung",       field<&Cell::changed>},
};

constexpr Column<Assignment> assignment_columns[] = {
    {"Fo_Id",             "Schlüssel der Kontozuordnung",     field<&Assignment::id>},
    {"AP_ID",             "Position",                         field<&Assignment::position_id>},
    {"KR_Id",             "Kontenrahmen",                     field<&Assignment::chart_id>},
    {"Fo_Formel",         "Kontozuordnung",                   field<&Assignment::formula>, true},
    {"FO_FORMELMENGE",    "Zuordnung der Mengen",             field<&Assignment::quantities>},
    {"MIT_ID",            "Geändert von",                     field<&Assignment::employee>},
    {"FO_DATUM",          "Datum der letzten Änderung",       field<&Assignment::changed>},
};

constexpr Column<ColumnFormat> format_columns[] = {
    {"Spf_Id",            "Schlüssel des Spaltenformats",     field<&ColumnFormat::id>},
    {"Za_Id",             "Zeilenart",                        field<&ColumnFormat::line_kind_id>},
    {"As_Id",             "Spalte",                           field<&ColumnFormat::column_id>},
    {"SPF_NACHKOMMA",     "Anzahl Nachkommastellen",          field<&ColumnFormat::decimals>},
    {"SPF_MUSTER",        "Zahlenmuster",                     field<&ColumnFormat::pattern>},
    {"MIT_ID",            "Geändert von",                     field<&ColumnFormat::employee>},
    {"SPF_DATUM",         "Datum der letzten Änderung",       field<&ColumnFormat::changed>},
};

constexpr Column<Chart> chart_columns[] = {
    {"KR_Id",          "", field<&Chart::id>},
    {"KR_Bezeichnung", "", field<&Chart::name>},
    {"KR_Kennzeichen", "", field<&Chart::mark>},
};
// clang-format on

/// Found by its own key, and by that of the record which it belongs to.
template <auto parent, class Record>
LogKeys keys_of_part(const Record& record) {
    return {.primary_key1 = record.id, .search_ids = {record.*parent}};
}

template <auto first, auto second, class Record>
LogKeys keys_of_link(const Record& record) {
    return {.primary_key1 = record.id, .search_ids = {record.*first, record.*second}};
}

LogKeys keys_of_framework(const Framework& framework) {
    return {.primary_key1 = framework.id, .search_ids = {framework.id, framework.type, framework.kind}};
}

// clang-format off
constexpr RecordTable<Framework> frameworks =
    {"Auswertungsrahmen",   {"AUSWERTUNGSRAHMEN",   framework_columns,     keys_of_framework}};
constexpr RecordTable<Density> densities =
    {"Auswertungsdichte",   {"AUSWERTUNGSDICHTE",   density_columns,       keys_of_part<&Density::framework_id>}};
constexpr RecordTable<ReportKind> report_kinds =
    {"Auswertungsart",      {"AUSWERTUNGSART",      report_kind_columns,   keys_of_part<&ReportKind::framework_id>}};
constexpr RecordTable<ReportColumn> report_columns =
    {"Auswertungsspalte",   {"AUSWERTUNGSSPALTE",   report_column_columns, keys_of_part<&ReportColumn::report_kind_id>}};
constexpr RecordTable<LineKind> line_kinds =
    {"Zeilenart",           {"ZEILENART",           line_kind_columns,     keys_of_part<&LineKind::framework_id>}};
constexpr RecordTable<Position> positions =
    {"AuswertungsPosition", {"AUSWERTUNGSPOSITION", position_columns,      keys_of_part<&Position::line_kind_id>}};
constexpr RecordTable<Cell> cells =
    {"Auswertungszelle",    {"AUSWERTUNGSZELLE",    cell_columns,          keys_of_part<&Cell::position_id>}};
constexpr RecordTable<Assignment> assignments =
    {"Formel_Position",     {"FORMEL_POSITION",     assignment_columns,    keys_of_link<&Assignment::chart_id, &Assignment::position_id>}};
constexpr RecordTable<ColumnFormat> formats =
    {"Spaltenformate",      {"SPALTENFORMATE",      format_columns,        keys_of_link<&ColumnFormat::column_id, &ColumnFormat::line_kind_id>}};
constexpr RecordTable<Chart> chart_table =
    {"Kontenrahmen",        {"KONTENRAHMEN",        chart_columns,         nullptr}};
// clang-format on

}  // namespace

std::string logged_text(const ColumnValue& value) {
    if (const auto* const number = std::get_if<std::int32_t>(&value)) return std::to_string(*number);
    if (const auto* const text = std::get_if<std::string>(&value)) return *text;
    const Moment moment = std::get<Moment>(value);
    return moment == Moment() ? std::string() : german_text(moment);
}

// clang-format off
template <> const RecordTable<Framework>& table_of() { return frameworks; }
template <> const RecordTable<Density>& table_of() { return densities; }
template <> const RecordTable<ReportKind>& table_of() { return report_kinds; }
template <> const RecordTable<ReportColumn>& table_of() { return report_columns; }
template <> const RecordTable<LineKind>& table_of() { return line_kinds; }
template <> const RecordTable<Position>& table_of() { return positions; }
template <> const RecordTable<Cell>& table_of() { return cells; }
template <> const RecordTable<Assignment>& table_of() { return assignments; }
template <> const RecordTable<ColumnFormat>& table_of() { return formats; }
template <> const RecordTable<Chart>& table_of() { return chart_table; }
// clang-format on

}  // namespace prot::sample
