#include "sections/open_items/plain_number.h"

#include <array>
#include <charconv>
#include <cmath>

#include "platform/automation/error.h"

namespace prot::open_items {

std::string plain_number(double number) {
    if (!std::isfinite(number))
        throw AutomationError(ErrorNumber::overflow, "Überlauf: Zahl jenseits aller darstellbaren");
    std::array<char, 400> digits;  // the longest Double has 309 before the point
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed);
    return {digits.data(), end.ptr};
}

}  // namespace prot::open_items
