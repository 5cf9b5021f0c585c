#include "sections/exchange_rates/rate_selection.h"

#include "core/ZQErrorHandling.h"

namespace prot::exchange_rates {

std::string msWHERE(std::string_view sWhere) try {
    return std::string(
               " ((dcTable = 'TDEVISENKURS' AND dlSuchId2 IN (SELECT idDevisenWaehr FROM tDevisenWaehr ")
        .append(sWhere)
        .append(")) )");
} catch (...) {
    leave(owner, "msWHERE");
}

}  // namespace prot::exchange_rates
