#include "apps/protcsv/sample/sample_rates.h"

namespace prot::sample {
namespace {

constexpr Field<Currency> currency_fields[] = {
    {"idDevisenWaehr", [](const Currency& currency) { return std::to_string(currency.id); }},
    {"dcISOKennz", [](const Currency& currency) { return std::string(currency.code); }},
    {"dcBezeichnung", [](const Currency& currency) { return std::string(currency.name); }},
    {"dlNachkommastellen", [](const Currency& currency) { return std::to_string(currency.decimals); }},
};

std::string deviation_text(const Rate& rate) {
    return rate.deviation == 0 ? std::string() : decimal_text(rate.deviation, 2);
}

constexpr Field<Rate> rate_fields[] = {
    {"idDevisenKurs", [](const Rate& rate) { return std::to_string(rate.id); }},
    {"flDevisenWaehr", [](const Rate& rate) { return std::to_string(rate.currency_id); }},
    {"ddGueltigAb", [](const Rate& rate) { return german_text(rate.valid_from); }},
    {"dzKursEURGeld", [](const Rate& rate) { return decimal_text(rate.quote.bid, 4); }},
    {"dzKursFremdGeld", [](const Rate& rate) { return decimal_text(foreign_bid(rate.quote), 6); }},
    {"dzKursEURBrief", [](const Rate& rate) { return decimal_text(rate.quote.ask, 4); }},
    {"dzKursFremdBrief", [](const Rate& rate) { return decimal_text(foreign_ask(rate.quote), 6); }},
    {"dzAbweichung", deviation_text},
    {"dcKursquelle", [](const Rate& rate) { return std::string(rate.source); }},
    {"dcBemerkung", [](const Rate& rate) { return std::string(rate.remark); }},
    {"dmBegruendung", [](const Rate& rate) { return std::string(rate.reason.empty() ? "" : "_MEMO_"); }},
    {"dcImportKennz", [](const Rate& rate) { return std::string(rate.import_mark); }},
    {"ddDatumAend", [](const Rate& rate) { return german_text(rate.changed); }},
    {"flMitarbeiter", [](const Rate& rate) { return std::to_string(rate.employee); }},
};

constexpr std::int64_t unit_of_both_prices = 10'000'000'000;

/// The reciprocal price, rounded.
std::int64_t reciprocal(std::int64_t price) { return (unit_of_both_prices + price / 2) / price; }

}  // namespace

std::int64_t foreign_bid(const Quote& quote) { return reciprocal(quote.ask); }

std::int64_t foreign_ask(const Quote& quote) { return reciprocal(quote.bid); }

LogRow currency_row(const Occasion& occasion, const Currency* before, const Currency* after) {
    const std::int32_t id = (before == nullptr ? after : before)->id;
    LogRow row{};
    row.table = "tDevisenWaehr";
    row.event = event_of(before, after);
    row.occasion = occasion;
    row.primary_key1 = id;
    row.search_ids[0] = id;
    row.document = change_document(std::span<const Field<Currency>>(currency_fields), before, after);
    return row;
}

LogRow rate_row(const Occasion& occasion, const Rate* before, const Rate* after) {
    const Rate& rate = before == nullptr ? *after : *before;
    LogRow row{};
    row.table = "TDEVISENKURS";
    row.event = event_of(before, after);
    row.occasion = occasion;
    row.primary_key1 = rate.id;
    row.search_ids[0] = rate.id;
    row.search_ids[1] = rate.currency_id;
    row.document = change_document(std::span<const Field<Rate>>(rate_fields), before, after);
    if (after != nullptr && after->reason != rate.reason) row.memo = after->reason;
    return row;
}

}  // namespace prot::sample
