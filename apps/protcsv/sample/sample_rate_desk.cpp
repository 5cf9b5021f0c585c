#include "apps/protcsv/sample/sample_rate_desk.h"

#include <algorithm>

namespace prot::sample {
namespace {

using std::chrono::days;

constexpr std::int64_t most_rates = 50'000;
constexpr days early_years{1826};
constexpr int rates_of_retiring_currency = 2;

constexpr std::string_view by_hand = "manuell";
constexpr std::string_view by_import = "automatisch";

// No source, and no remark, is common: the column is NULL then.
constexpr std::string_view sources[] = {"EZB-Referenzkurs", "Hausbank", "Börse Frankfurt", "", ""};

Day first_of_month(Day day) {
    const std::chrono::year_month_day date(day);
    return date.year() / date.month() / 1;
}

}  // namespace

RateDesk::RateDesk(Random random, std::int64_t rows) : random_(random) {
    const auto all = currency_facts();
    const auto count = std::min<std::int64_t>(usual_currencies + rows / 1000, std::ssize(all));
    const std::int64_t per_currency = std::clamp<std::int64_t>(rows / 40, 120, most_rates / 2) / count;
    for (const CurrencyFacts& facts : all.first(static_cast<std::size_t>(count))) open_account(facts);
    for (Account& account : accounts_) add_early_rates(account, per_currency);
}

void RateDesk::open_account(const CurrencyFacts& facts) {
    const auto id = static_cast<std::int32_t>(accounts_.size() + 1);
    const std::int64_t ask = facts.per_euro + std::max<std::int64_t>(1, facts.per_euro / 200);
    accounts_.push_back({{id, facts.code, facts.name, facts.decimals},
                         facts.role,
                         facts.role != CurrencyRole::later,
                         {facts.per_euro, ask},
                         first_of_month(log_begin - early_years)});
}

/// Rates from the years before the log begins, which no log row tells of.
void RateDesk::add_early_rates(Account& account, std::int64_t count) {
    if (account.role == CurrencyRole::base || account.role == CurrencyRole::later) return;
    if (account.role == CurrencyRole::retiring) count = rates_of_retiring_currency;
    const days distance = std::max(days(1), early_years / (count + 1));
    for (std::int64_t number = 0; number < count; ++number) {
        const Day day = account.latest + distance;
        Rate& rate = new_rate(account, distance > days(31) ? first_of_month(day) : day);
        rate.changed = rate.valid_from + std::chrono::hours(8) + std::chrono::seconds(random_.below(36'000));
        rate.employee = any_employee(random_);
    }
}

LogRow RateDesk::add_currency(const Occasion& occasion, std::string_view code) {
    Account& added = account(code);
    added.exists = true;
    added.role = CurrencyRole::traded;
    return log_row(occasion, nullptr, &added.currency);
}

LogRow RateDesk::rename_currency(const Occasion& occasion, std::string_view code, std::string_view name) {
    Currency& currency = account(code).currency;
    const Currency before = currency;
    currency.name = name;
    return log_row(occasion, &before, &currency);
}

LogRow RateDesk::remove_currency(const Occasion& occasion, std::string_view code) {
    Account& removed = account(code);
    removed.exists = false;
    return log_row(occasion, &removed.currency, nullptr);
}

LogRow RateDesk::add_rate(const Occasion& occasion) {
    if (static_cast<std::int64_t>(rates_.size()) >= most_rates) return remove_rate(occasion);
    return add_rate_of(occasion, any_traded_account().currency.code);
}

LogRow RateDesk::add_rate_of(const Occasion& occasion, std::string_view code) {
    Account& traded = account(code);
    const Day today = std::chrono::floor<days>(occasion.moment);
    return log_creation(new_rate(traded, std::max(today, traded.latest + days(1))), occasion);
}

LogRow RateDesk::remove_rate(const Occasion& occasion) { return log_deletion(rates_, random_, occasion); }

LogRow RateDesk::remove_rate_of(const Occasion& occasion, std::string_view code) {
    const std::int32_t id = account(code).currency.id;
    const auto place = std::ranges::find(retiring_rates_, id, &Rate::currency_id);
    const Rate removed = *place;
    retiring_rates_.erase(place);
    return log_row(occasion, &removed, nullptr);
}

LogRow RateDesk::requote(const Occasion& occasion) {
    return change_any(occasion, [&](Rate& rate) {
        const Quote quote = moved(rate.quote);
        const bool both_sides = random_.percent(25) || quote.bid >= rate.quote.ask;
        rate.quote = {quote.bid, both_sides ? quote.ask : rate.quote.ask};
        if (random_.percent(10)) rate.deviation = static_cast<std::int32_t>(random_.between(1, 240));
        rate.import_mark = occasion.author.employee == 0 ? by_import : by_hand;
    });
}

LogRow RateDesk::change_source(const Occasion& occasion) {
    return change_any(occasion, [&](Rate& rate) {
        const std::string_view before = rate.source;
        while (rate.source == before) rate.source = random_.pick(sources);
    });
}

LogRow RateDesk::touch(const Occasion& occasion) {
    Occasion person = occasion;
    if (person.author.employee == 0) person.author = a_person();
    Rate* rate = &any_of(rates_, random_);
    for (int tries = 0; tries < 50 && rate->employee == person.author.employee; ++tries)
        rate = &any_of(rates_, random_);
    return log_change(*rate, person, [](Rate&) {});
}

std::vector<Currency> RateDesk::currencies() const {
    std::vector<Currency> existing;
    for (const Account& account : accounts_) {
        if (account.exists) existing.push_back(account.currency);
    }
    return existing;
}

std::vector<Rate> RateDesk::rates() const {
    std::vector<Rate> existing = rates_;
    existing.insert(existing.end(), retiring_rates_.begin(), retiring_rates_.end());
    return by_key(std::move(existing));
}

RateDesk::Account& RateDesk::account(std::string_view code) {
    return *std::ranges::find(accounts_, code, [](const Account& account) { return account.currency.code; });
}

RateDesk::Account& RateDesk::any_traded_account() {
    for (;;) {
        Account& account = random_.pick(accounts_);
        if (account.role == CurrencyRole::traded) return account;
    }
}

Rate& RateDesk::new_rate(Account& account, Day valid_from) {
    account.latest = valid_from;
    account.quote = moved(account.quote);
    auto& rates = account.role == CurrencyRole::retiring ? retiring_rates_ : rates_;
    Rate& rate = rates.emplace_back();
    rate.id = ++last_rate_id_;
    rate.currency_id = account.currency.id;
    rate.valid_from = valid_from;
    rate.quote = account.quote;
    rate.source = random_.pick(sources);
    rate.import_mark = by_hand;
    return rate;
}

/// Moved by at most 0.8 percent, never by nothing.
Quote RateDesk::moved(const Quote& quote) {
    std::int64_t step = quote.bid * random_.between(-80, 80) / 10'000;
    if (step == 0) step = 1;
    const std::int64_t spread = std::max<std::int64_t>(2, quote.bid * random_.between(20, 80) / 10'000);
    return {quote.bid + step, quote.bid + step + spread};
}

}  // namespace prot::sample
