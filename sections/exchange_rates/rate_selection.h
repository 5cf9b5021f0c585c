#pragma once

#include <string>
#include <string_view>

namespace prot::exchange_rates {

/// The owner of this section's procedures in the source of an error.
inline constexpr std::string_view owner = "CProtDevCsv";

/// The condition that completes the main log query: log rows of exchange rates whose currency meets `sWhere`,
/// a condition on the currency table that begins with " WHERE ".
std::string msWHERE(std::string_view sWhere);

}  // namespace prot::exchange_rates
