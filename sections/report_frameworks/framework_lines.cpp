#include "sections/report_frameworks/framework_lines.h"

#include "core/ZQErrorHandling.h"
#include "core/field_rules.h"
#include "platform/automation/letter_case.h"
#include "sections/report_frameworks/frameworks.h"

namespace prot::report_frameworks {

namespace {

constexpr std::string_view memo_mark = "_MEMO_";

constexpr Caption general = Caption::general(), none = Caption::none();
constexpr Events created = Events::created;

// A creation has one line, with the record's name, if it has one; a change or deletion has one for all but
// the technical fields. Account assignments have no name and are told field by field even when they are new.
// clang-format off
constexpr CaptionRule caption_rules[] = {
    {{"AUSWERTUNGSRAHMEN", "ARA_BEZEICHNUNG"}, general, created},
    {{.table = "AUSWERTUNGSRAHMEN"},           none,    created},
    {{"AUSWERTUNGSRAHMEN", "ARA_ID"},          none},
    {{"AUSWERTUNGSRAHMEN", "MIT_ID"},          none},
    {{"AUSWERTUNGSRAHMEN", "ARA_DATUM"},       none},
    {{"AUSWERTUNGSRAHMEN", "DCGUID"},          none},

    {{"AUSWERTUNGSART", "AA_BEZEICHNUNG"}, general, created},
    {{.table = "AUSWERTUNGSART"},          none,    created},
    {{"AUSWERTUNGSART", "AA_ID"},          none},
    {{"AUSWERTUNGSART", "MIT_ID"},         none},
    {{"AUSWERTUNGSART", "AA_DATUM"},       none},
    {{"AUSWERTUNGSART", "DCGUID"},         none},

    {{"AUSWERTUNGSDICHTE", "AD_BEZEICHNUNG"}, general, created},
    {{.table = "AUSWERTUNGSDICHTE"},          none,    created},
    {{"AUSWERTUNGSDICHTE", "AD_ID"},          none},
    {{"AUSWERTUNGSDICHTE", "MIT_ID"},         none},
    {{"AUSWERTUNGSDICHTE", "AD_DATUM"},       none},
    {{"AUSWERTUNGSDICHTE", "DCGUID"},         none},

    {{"AUSWERTUNGSSPALTE", "AS_BEZEICHNUNG"}, general, created},
    {{.table = "AUSWERTUNGSSPALTE"},          none,    created},
    {{"AUSWERTUNGSSPALTE", "AS_ID"},          none},
    {{"AUSWERTUNGSSPALTE", "MIT_ID"},         none},
    {{"AUSWERTUNGSSPALTE", "AS_DATUM"},       none},
    {{"AUSWERTUNGSSPALTE", "DCGUID"},         none},

    {{"AUSWERTUNGSPOSITION", "AP_BEZEICHNUNG"}, general, created},
    {{.table = "AUSWERTUNGSPOSITION"},          none,    created},
    {{"AUSWERTUNGSPOSITION", "AP_ID"},          none},
    {{"AUSWERTUNGSPOSITION", "MIT_ID"},         none},
    {{"AUSWERTUNGSPOSITION", "AP_DATUM"},       none},
    {{"AUSWERTUNGSPOSITION", "AP_NR"},          none},
    {{"AUSWERTUNGSPOSITION", "DCGUID"},         none},

    {{"ZEILENART", "ZA_BEZEICHNUNG"}, general, created},
    {{.table = "ZEILENART"},          none,    created},
    {{"ZEILENART", "ZA_ID"},          none},
    {{"ZEILENART", "MIT_ID"},         none},
    {{"ZEILENART", "ZA_DATUM"},       none},
    {{"ZEILENART", "DCGUID"},         none},

    {{.table = "AUSWERTUNGSZELLE"},              none, created},
    {{"AUSWERTUNGSZELLE", "AZ_ID"},              none},
    {{"AUSWERTUNGSZELLE", "MIT_ID"},             none},
    {{"AUSWERTUNGSZELLE", "AZ_DATUM"},           none},
    {{"AUSWERTUNGSZELLE", "AZ_ABWBEZEICHNUNG"},  none},
    {{"AUSWERTUNGSZELLE", "AZ_ATBEZEICHNUNG2"},  none},
    {{"AUSWERTUNGSZELLE", "AZ_ATBEZEICHNUNG3"},  none},
    {{"AUSWERTUNGSZELLE", "AZ_ATBEZEICHNUNG4"},  none},

    {{.table = "SPALTENFORMATE"},      none, created},
    {{"SPALTENFORMATE", "SPF_ID"},     none},
    {{"SPALTENFORMATE", "MIT_ID"},     none},
    {{"SPALTENFORMATE", "SPF_DATUM"},  none},

    {{"FORMEL_POSITION", "FO_ID"},           none},
    {{"FORMEL_POSITION", "MIT_ID"},          none},
    {{"FORMEL_POSITION", "FO_DATUM"},        none},
    {{"FORMEL_POSITION", "FO_FORMELMENGE"},  none},
};
// clang-format on

}  // namespace

/// Progress counts up to the last record, not their number, deliberately.
LineRules FrameworkLines::rules() const {
    return {.described = LineRules::Description::with_first_line,
            .empty_value = "leer",
            .only_dated = true,
            .progress_end = LineRules::ProgressEnd::last_row};
}

bool FrameworkLines::describe_record(const LogRow& row, CsvLine& line) {
    RecordInfo info = records_.mGetAuswInfos(row.text(LogColumn::dcTable, scratch_), row, *row.moment());
    line[framework_cell] = std::move(info.framework);
    line[density_cell] = std::move(info.density);
    line[record_cell] = std::move(info.text);
    return true;
}

std::string_view FrameworkLines::caption(const ChangedField& field) {
    return msDBGetFieldDescription(field, run_);
}

std::optional<std::string> FrameworkLines::marked_old_value(const ChangedField& field,
                                                            std::string_view logged) {
    if (!upper_equals(logged, memo_mark)) return std::nullopt;
    return memos_.msMemoWertAlt(field.row);
}

std::optional<std::string> FrameworkLines::marked_new_value(const ChangedField& field,
                                                            std::string_view logged) {
    if (!upper_equals(logged, memo_mark)) return std::nullopt;
    return memos_.msMemoWertNeu(field.row.id());
}

/// The translation object is given the whole number that the value begins with; one outside 32 bits has none.
std::string FrameworkLines::translated_value(const ChangedField& field, std::string_view value) {
    const std::optional<std::int32_t> number = number_in_range(value);
    if (!number) return {};
    return values_.msTranslateValue(field.table, field.name, *number, *field.row.moment());
}

std::string_view msDBGetFieldDescription(const ChangedField& field, Run& run) try {
    return caption_by(caption_rules, NameMatch::in_capitals, field, run);
} catch (...) {
    leave(owner, "msDBGetFieldDescription");
}

}  // namespace prot::report_frameworks
