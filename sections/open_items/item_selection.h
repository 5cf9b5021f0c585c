#pragma once

#include <string>
#include <string_view>

namespace prot::open_items {

/// The owner of this section's procedures in the source of an error.
inline constexpr std::string_view owner = "ProtOPCsvClass";

/// The condition that completes the main log query: log rows of open items that meet `sWhere`, a condition on
/// their table that begins with " WHERE "; all of them when it is empty.
std::string msWHERE(std::string_view sWhere);

}  // namespace prot::open_items
