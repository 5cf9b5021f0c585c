#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace prot::sample {

/// What happens to a currency while the log is kept.
enum class CurrencyRole {
    traded,    ///< has rates that come, change and go
    base,      ///< the accounting currency; has no rates
    retiring,  ///< replaced by the euro: its last rates and then the currency are deleted
    later,     ///< taken up during the log
};

struct CurrencyFacts {
    std::string_view code;  ///< ISO 4217
    std::string_view name;
    int decimals;           ///< digits after the comma of an amount
    std::int64_t per_euro;  ///< units for one euro, in 1/10000, about right
    CurrencyRole role = CurrencyRole::traded;
};

/// The best known come first: a small database has only these, and then the more the larger it is.
std::span<const CurrencyFacts> currency_facts();

/// How many of them a small database has.
inline constexpr std::int64_t usual_currencies = 24;

}  // namespace prot::sample
