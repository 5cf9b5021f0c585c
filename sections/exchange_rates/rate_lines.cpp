#include "sections/exchange_rates/rate_lines.h"

#include "core/ProtQRBCsvBas.h"
#include "core/ZQErrorHandling.h"
#include "core/field_rules.h"
#include "platform/automation/text_forms.h"
#include "sections/exchange_rates/rate_selection.h"

namespace prot::exchange_rates {

namespace {

constexpr std::string_view no_longer_there = "nicht vorhanden";

/// Changes of the fields that say who touched the rate, and which one it is, are never exported.
constexpr CaptionRule caption_rules[] = {
    {{.field = "ddDatumAend"}, Caption::none()},   {{.field = "flMitarbeiter"}, Caption::none()},
    {{.field = "idDevisenKurs"}, Caption::none()}, {{.field = "flDevisenWaehr"}, Caption::none()},
    {{.field = "ddGueltigAb"}, Caption::none()},
};

/// Compared with names in capitals, this one never fits, so values are always written as logged. Deliberate:
/// readers compare the files with those of earlier years.
constexpr IdRule id_rules[] = {
    {{.field = "idDevisenKurs"}, "ohne ISOKennzeichen", "tDevisenWaehr", "dCISOKENNZ", "idDevisenWaehr"},
};

}  // namespace

bool RateLines::describe_record(const LogRow& row, CsvLine& line) {
    const Currency& currency = mGetWaehrInfos(row.number(LogColumn::dlSuchId2));
    line[rate_iso_code] = currency.iso_code;
    line[rate_currency_name] = currency.name;
    line[rate_valid_from] = mGetKursGueltigAb(row.number(LogColumn::dlSuchId1));
    return true;
}

std::string_view RateLines::caption(const ChangedField& field) {
    return msDBGetFieldDescription(field, run_);
}

std::string RateLines::translated_value(const ChangedField& field, std::string_view value) {
    return msTranslateID(value, field, run_);
}

const RateLines::Currency& RateLines::mGetWaehrInfos(std::int32_t lId) try {
    if (const Currency* const known = currencies_.find(lId)) return *known;
    const RowSet rows = run_.oDBU.query_array(
        "SELECT dcISOKennz, dcBezeichnung FROM tDevisenWaehr"
        " WHERE idDevisenWaehr = " +
        std::to_string(lId));
    rows.require_columns(2);
    Currency currency{std::string(no_longer_there), {}};
    if (!rows.empty()) currency = {to_text(rows.at(0, 0).value()), to_text(rows.at(1, 0).value())};
    return currencies_.remember(lId, std::move(currency));
} catch (...) {
    leave(owner, "mGetWaehrInfos");
}

const std::string& RateLines::mGetKursGueltigAb(std::int32_t lId) try {
    if (const std::string* const known = valid_from_.find(lId)) return *known;
    const RowSet rows = run_.oDBU.query_array("SELECT ddGueltigAb FROM TDEVISENKURS WHERE idDevisenKurs = " +
                                              std::to_string(lId));
    rows.require_columns(1);
    std::string text(rows.empty() ? std::string(no_longer_there) : to_text(rows.at(0, 0).value()));
    return valid_from_.remember(lId, std::move(text));
} catch (...) {
    // Both lookups report under one name; those who search the problem reports count on it.
    leave(owner, "mGetWaehrInfos");
}

std::string_view msDBGetFieldDescription(const ChangedField& field, Run& run) try {
    return caption_by(caption_rules, NameMatch::exact, field, run);
} catch (...) {
    leave(owner, "msDBGetFieldDescription");
}

std::string msTranslateID(std::string_view value, const ChangedField& field, Run& run) try {
    const IdRule* const rule = first_rule<IdRule>(id_rules, field, NameMatch::in_capitals);
    if (!rule) return {};
    const std::optional<Date> moment = field.row.moment();
    const std::optional<std::int32_t> id = number_in_range(value);
    return moment && id ? name_by(*rule, *id, *moment, run) : std::string();
} catch (...) {
    leave(owner, "msTranslateID");
}

}  // namespace prot::exchange_rates
