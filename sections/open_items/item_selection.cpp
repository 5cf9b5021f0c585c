#include "sections/open_items/item_selection.h"

#include "core/ZQErrorHandling.h"

namespace prot::open_items {

std::string msWHERE(std::string_view sWhere) try {
    std::string condition = " ((dcTable = 'OFFENER_POSTEN'";
    if (sWhere.empty())
        condition += ")";
    else
        condition.append(" AND dlPrimaryKey1 IN (SELECT OP_ID FROM OFFENER_POSTEN ")
            .append(sWhere)
            .append(")) ");
    return condition + ")";
} catch (...) {
    leave(owner, "msWHERE");
}

}  // namespace prot::open_items
