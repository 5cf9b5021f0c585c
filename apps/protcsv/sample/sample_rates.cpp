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
    {"dmBegruendung", [](const Rate& rate) { return std::string(rate.reason); }, true},
    {"dcImportKennz", [](const Rate& rate) { return std::string(rate.import_mark); }},
    {"ddDatumAend", [](const Rate& rate) { return german_text(rate.changed); }},
    {"flMitarbeiter", [](const Rate& rate) { return std::to_string(rate.employee); }},
};

constexpr LoggedTable<Currency> logged_currencies = {
    "tDevisenWaehr", currency_fields, [](const Currency& currency) {
        return LogKeys{.primary_key1 = currency.id, .search_ids = {currency.id}};
    }};

constexpr LoggedTable<Rate> logged_rates = {
    "TDEVISENKURS", rate_fields, [](const Rate& rate) {
        return LogKeys{.primary_key1 = rate.id, .search_ids = {rate.id, rate.currency_id}};
    }};

constexpr std::int64_t unit_of_both_prices = 10'000'000'000;

/// The reciprocal price, rounded.
std::int64_t reciprocal(std::int64_t price) { return (unit_of_both_prices + price / 2) / price; }

}  // namespace

std::int64_t foreign_bid(const Quote& quote) { return reciprocal(quote.ask); }

std::int64_t foreign_ask(const Quote& quote) { return reciprocal(quote.bid); }

LogRow log_row(const Occasion& occasion, const Currency* before, const Currency* after) {
    return log_row(logged_currencies, occasion, before, after);
}

LogRow log_row(const Occasion& occasion, const Rate* before, const Rate* after) {
    return log_row(logged_rates, occasion, before, after);
}

}  // namespace prot::sample
