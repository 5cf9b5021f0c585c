#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "core/log_row.h"

namespace prot {

/// One changed column of a log record.
struct ChangedField {
    std::string_view name;   ///< as logged
    std::string_view table;  ///< dcTable, as logged
    const LogRow& row;
    std::optional<std::size_t> number{};  ///< in its run, see FieldNumbers; nothing outside of one
};

}  // namespace prot
