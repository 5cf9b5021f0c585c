#include "sections/exchange_rates/rate_lines.h"

#include <algorithm>
#include <iterator>

#include "core/ProtQRBCsvBas.h"
#include "core/ZQErrorHandling.h"
#include "platform/automation/letter_case.h"
#include "platform/automation/text_forms.h"
#include "sections/exchange_rates/rate_selection.h"

namespace prot::exchange_rates {

namespace {

constexpr std::string_view no_longer_there = "nicht vorhanden";

/// Fields that say who touched the rate and which one it is; changes of them are never exported.
constexpr std::string_view suppressed_fields[] = {"ddDatumAend", "flMitarbeiter", "idDevisenKurs",
                                                  "flDevisenWaehr", "ddGueltigAb"};

}  // namespace

bool RateLines::describe_record(const LogRow& row, CsvLine& line) {
    const Currency& currency = mGetWaehrInfos(row.number(LogColumn::dlSuchId2));
    line[rate_iso_code] = currency.iso_code;
    line[rate_currency_name] = currency.name;
    line[rate_valid_from] = mGetKursGueltigAb(row.number(LogColumn::dlSuchId1));
    return true;
}

std::string_view RateLines::caption(std::string_view field, std::string_view table, const LogRow&) {
    return msDBGetFieldDescription(field, table, run_);
}

void RateLines::translate_values(std::string_view field, std::string_view, const LogRow& row, CsvLine& line) {
    translate_both(line, rate_captions.size(),
                   [&](std::string_view value) { return msTranslateID(value, field, row, run_); });
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

std::string_view msDBGetFieldDescription(std::string_view sFeld, std::string_view sTabelle, Run& run) try {
    if (std::ranges::find(suppressed_fields, sFeld) != std::end(suppressed_fields)) return {};
    return caption_or_empty(sFeld, sTabelle, run);
} catch (...) {
    leave(owner, "msDBGetFieldDescription");
}

std::string msTranslateID(std::string_view sWert, std::string_view sFeld, const LogRow& row, Run& run) try {
    // A name in capitals never equals this one, so values are always written as logged. Deliberate: readers
    // compare the files with those of earlier years.
    if (!upper_equals(sFeld, "idDevisenKurs")) return {};
    const std::optional<Date> moment = row.moment();
    const std::optional<std::int32_t> id = number_in_range(sWert);
    if (!moment || !id) return {};
    if (*id == 0) return "ohne ISOKennzeichen";
    return PROT_gsGetValueByDate("tDevisenWaehr", "dCISOKENNZ", "idDevisenWaehr", std::to_string(*id), *moment,
                                 run);
} catch (...) {
    leave(owner, "msTranslateID");
}

}  // namespace prot::exchange_rates
