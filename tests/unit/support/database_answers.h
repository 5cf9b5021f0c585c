#pragma once

#include <string>
#include <vector>

#include "platform/automation/error.h"
#include "platform/automation/text_forms.h"
#include "platform/row_set.h"

namespace prot {

/// The error that `action` raises; number 0 when it raises none.
template <typename Action>
AutomationError error_of(Action action) {
    try {
        action();
    } catch (const AutomationError& error) {
        return error;
    }
    return {0, "", "kein Fehler"};
}

/// The rows as texts, cells parted by "|".
inline std::vector<std::string> lines(const RowSet& rows) {
    std::vector<std::string> result(rows.rows());
    for (std::size_t row = 0; row < rows.rows(); ++row)
        for (std::size_t column = 0; column < rows.columns(); ++column)
            result[row] += (column > 0 ? "|" : "") + to_text(rows.at(column, row).value());
    return result;
}

}  // namespace prot
