#include "sections/report_frameworks/framework_records.h"

#include "core/ZQErrorHandling.h"
#include "core/value_search.h"
#include "platform/automation/letter_case.h"
#include "platform/automation/text_forms.h"
#include "sections/report_frameworks/frameworks.h"

namespace prot::report_frameworks {

constexpr FrameworkRecords::RecordKind FrameworkRecords::record_kinds[] = {
    {"AUSWERTUNGSPOSITION", "mGetInfoAuswertungsPosition", &FrameworkRecords::mGetInfoAuswertungsPosition},
    {"FORMEL_POSITION", "mGetInfoFormelPosition", &FrameworkRecords::mGetInfoFormelPosition},
    {"AUSWERTUNGSZELLE", "mGetInfoAuswertungsZelle", &FrameworkRecords::mGetInfoAuswertungsZelle},
    {"ZEILENART", "mGetInfoZeilenart", &FrameworkRecords::mGetInfoZeilenart},
    {"AUSWERTUNGSSPALTE", "mGetInfoAuswertungsSpalte", &FrameworkRecords::mGetInfoAuswertungsSpalte},
    {"SPALTENFORMATE", "mGetInfoSpaltenFormate", &FrameworkRecords::mGetInfoSpaltenFormate},
};

RecordInfo FrameworkRecords::mGetAuswInfos(std::string_view sTabelle, const LogRow& row, Date dtDatum) try {
    for (const RecordKind& kind : record_kinds)
        if (upper_equals(sTabelle, kind.table)) return info_by(kind, row, dtDatum);
    return {};
} catch (...) {
    leave(owner, "mGetAuswInfos");
}

RecordInfo FrameworkRecords::info_by(const RecordKind& kind, const LogRow& row, Date dtDatum) try {
    return (this->*kind.info)(row, dtDatum);
} catch (...) {
    leave(owner, kind.procedure);
}

RecordInfo FrameworkRecords::mGetInfoAuswertungsPosition(const LogRow& row, Date dtDatum) {
    const std::int32_t position = row.number(LogColumn::dlPrimaryKey1);
    const std::int32_t framework = names_.mlARa_Id_Zeilenart(row.number(LogColumn::dlSuchId1), dtDatum);
    const std::int32_t density = density_of_position(position, dtDatum);
    return named(framework, density, &FrameworkNames::msPosBez, position, dtDatum);
}

RecordInfo FrameworkRecords::mGetInfoFormelPosition(const LogRow& row, Date dtDatum) {
    return info_of_position(row.number(LogColumn::dlSuchId2), dtDatum);
}

RecordInfo FrameworkRecords::mGetInfoAuswertungsZelle(const LogRow& row, Date dtDatum) {
    return info_of_position(row.number(LogColumn::dlSuchId1), dtDatum);
}

RecordInfo FrameworkRecords::mGetInfoZeilenart(const LogRow& row, Date dtDatum) {
    const std::int32_t framework = row.number(LogColumn::dlSuchId1);
    return named(framework, density_of_framework(framework, dtDatum), &FrameworkNames::msZeilenartBez,
                 row.number(LogColumn::dlPrimaryKey1), dtDatum);
}

RecordInfo FrameworkRecords::mGetInfoAuswertungsSpalte(const LogRow& row, Date dtDatum) {
    const std::int32_t framework = names_.mlARa_Id_Auswertungsart(row.number(LogColumn::dlSuchId1), dtDatum);
    return named(framework, density_of_framework(framework, dtDatum), &FrameworkNames::msSpalteBez,
                 row.number(LogColumn::dlPrimaryKey1), dtDatum);
}

/// A column format belongs to a line kind, whose first position leads to the density.
RecordInfo FrameworkRecords::mGetInfoSpaltenFormate(const LogRow& row, Date dtDatum) {
    const std::int32_t line_kind = row.number(LogColumn::dlSuchId2);
    const std::int32_t framework = names_.mlARa_Id_Zeilenart(line_kind, dtDatum);
    const std::int32_t position = id_in_log("AUSWERTUNGSPOSITION", "Ap_Id", "Za_Id", line_kind, dtDatum);
    return named(framework, density_of_position(position, dtDatum), &FrameworkNames::msSpalteBez,
                 row.number(LogColumn::dlSuchId1), dtDatum);
}

/// Of a record that only knows its position.
RecordInfo FrameworkRecords::info_of_position(std::int32_t position, Date dtDatum) {
    const std::int32_t line_kind = names_.mlZa_Id_AuswertungsPosition(position, dtDatum);
    const std::int32_t framework = names_.mlARa_Id_Zeilenart(line_kind, dtDatum);
    const std::int32_t density = density_of_position(position, dtDatum);
    return named(framework, density, &FrameworkNames::msPosBez, position, dtDatum);
}

/// A cell of the position knows its density.
std::int32_t FrameworkRecords::density_of_position(std::int32_t position, Date dtDatum) {
    return id_in_log("AUSWERTUNGSZELLE", "Ad_Id", "Ap_Id", position, dtDatum);
}

std::int32_t FrameworkRecords::density_of_framework(std::int32_t framework, Date dtDatum) {
    return id_in_log("AUSWERTUNGSDICHTE", "Ad_Id", "ARa_Id", framework, dtDatum);
}

std::int32_t FrameworkRecords::id_in_log(std::string_view table, std::string_view column,
                                         std::string_view key_column, std::int32_t key, Date dtDatum) {
    const std::string text = std::to_string(key);
    return whole_number(PROT_gsGetValueByDate({table, column, key_column, text, "dlSuchId1"}, dtDatum));
}

RecordInfo FrameworkRecords::named(std::int32_t framework, std::int32_t density, NameLookup lookup,
                                   std::int32_t record, Date dtDatum) {
    RecordInfo info;
    info.density = names_.msDichteBez(density, dtDatum);
    info.framework = names_.msRahmenBez(framework, dtDatum);
    info.text = (names_.*lookup)(record, dtDatum);
    return info;
}

std::string FrameworkRecords::PROT_gsGetValueByDate(const ValueKey& key, Date dtDatum) try {
    if (std::optional<std::string> known = run_.memory.values.find(key, dtDatum)) return *std::move(known);
    const std::string change = first_change(key, dtDatum, run_.oDBU);
    std::string value;
    if (!change.empty()) value = old_value(change, key.column, run_.environment).value_or(std::string());
    if (value.empty()) value = live_value(key);
    run_.memory.values.remember(key, dtDatum, value, change.empty());
    return value;
} catch (...) {
    leave(owner, "PROT_gsGetValueByDate");
}

std::string FrameworkRecords::live_value(const ValueKey& key) {
    if (std::optional<std::string> known = run_.memory.values.find_unchanged(key)) return *std::move(known);
    return to_text(run_.oDBU.query_value(live_search(key)));
}

}  // namespace prot::report_frameworks
