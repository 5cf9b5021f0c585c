#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/database.h"

namespace prot::open_items {

struct FiscalYear {
    std::int64_t id = 0;  ///< WJ_Id
    std::string text;     ///< first and last day, and what is special about it
};

/// The fiscal years of the persons that `restriction` (" = 7", " IN (7, 8)") names, in the server's order.
std::vector<FiscalYear> fiscal_years(Database& oDBU, std::string_view restriction);

}  // namespace prot::open_items
