#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "apps/protcsv/sample/sample_currencies.h"
#include "apps/protcsv/sample/sample_rates.h"

namespace prot::sample {

/// The desk where currencies and rates are kept: their present state, and the ways in which they change.
/// Every change keeps the present state and the log in step and returns its log row.
class RateDesk {
public:
    /// rows: of the log to come; the more rows, the more currencies and rates there are from the start.
    RateDesk(Random random, std::int64_t rows);

    LogRow add_currency(const Occasion& occasion, std::string_view code);
    LogRow rename_currency(const Occasion& occasion, std::string_view code, std::string_view name);
    LogRow remove_currency(const Occasion& occasion, std::string_view code);

    LogRow add_rate(const Occasion& occasion);                               ///< of any traded currency
    LogRow add_rate_of(const Occasion& occasion, std::string_view code);     ///< of a traded currency
    LogRow remove_rate(const Occasion& occasion);                            ///< any one
    LogRow remove_rate_of(const Occasion& occasion, std::string_view code);  ///< of a retiring currency

    /// New prices on one side or both.
    LogRow requote(const Occasion& occasion);

    /// Another source of the prices, or none.
    LogRow change_source(const Occasion& occasion);

    /// Saved without a change of content: only when and by whom.
    LogRow touch(const Occasion& occasion);

    /// Any one rate changed by `change`, and stamped with the occasion.
    template <class Change>
    LogRow change_any(const Occasion& occasion, Change change) {
        return log_change(any_of(rates_, random_), occasion, change);
    }

    Random& random() { return random_; }
    std::vector<Currency> currencies() const;  ///< those that exist now, by key
    std::vector<Rate> rates() const;           ///< those that exist now, by key

private:
    struct Account {
        Currency currency;
        CurrencyRole role;
        bool exists;
        Quote quote;  ///< of the latest rate
        Day latest;   ///< valid_from of the latest rate
    };

    void open_account(const CurrencyFacts& facts);
    void add_early_rates(Account& account, std::int64_t count);
    Account& account(std::string_view code);
    Account& any_traded_account();
    Rate& new_rate(Account& account, Day valid_from);
    Quote moved(const Quote& quote);

    Random random_;
    std::vector<Account> accounts_;
    std::vector<Rate> rates_;           ///< of traded currencies
    std::vector<Rate> retiring_rates_;  ///< of retiring ones, which change no more
    std::int32_t last_rate_id_ = 0;
};

}  // namespace prot::sample
