#include "sections/open_items/plain_number.h"

#include <array>
#include <charconv>

namespace prot::open_items {

std::string plain_number(double number) {
    std::array<char, 400> digits;  // the longest Double has 309 before the point
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed);
    return {digits.data(), end.ptr};
}

}  // namespace prot::open_items
