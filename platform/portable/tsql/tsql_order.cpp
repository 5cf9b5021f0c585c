#include "platform/portable/tsql/tsql_order.h"

#include <string_view>

namespace prot {

std::string_view without_order(std::string_view query) {
    const std::size_t order = query.rfind(" ORDER BY ");
    if (order == std::string_view::npos) return query;
    const std::string_view behind = query.substr(order);
    for (const std::string_view other : {")", "LIMIT"})
        if (behind.find(other) != std::string_view::npos) return query;
    return query.substr(0, order);
}

}  // namespace prot
