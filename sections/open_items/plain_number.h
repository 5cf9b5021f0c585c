#pragma once

#include <string>

namespace prot::open_items {

/// A number as plain decimals, as statements and the filter text have them: no mark of thousands, no
/// exponent, a point before a fraction. A number beyond Double (Val reads it as infinite): automation error 6.
std::string plain_number(double number);

}  // namespace prot::open_items
