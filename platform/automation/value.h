#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "platform/automation/date.h"

namespace prot {

/// An automation value of the types that the log uses. monostate: Null, also when a query brought no row.
using Value = std::variant<std::monostate, bool, std::int64_t, double, Date, std::string>;

inline bool is_null(const Value& value) { return std::holds_alternative<std::monostate>(value); }

}  // namespace prot
