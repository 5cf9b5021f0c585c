#pragma once

#include <string_view>

namespace prot {

/// The query without the ORDER BY at its end, in either dialect: whoever counts its rows needs none. As it is
/// where the order belongs to a part of it, or says which rows there are.
std::string_view without_order(std::string_view query);

}  // namespace prot
