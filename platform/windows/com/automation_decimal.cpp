#include "platform/windows/com/automation_decimal.h"

#include <algorithm>
#include <array>
#include <limits>

namespace prot {

namespace {

constexpr std::uint64_t largest_exact = 999'999'999'999'999;  // 15 digits
constexpr double smallest_plain = 0.0001;                     // below it the text of a Double has an exponent
constexpr std::uint8_t most_places = 28;

/// A whole number of 96 bits, the lowest 32 first, moved to the right by decimal places.
struct Decimal {
    std::array<std::uint32_t, 3> limbs;
    int places;
    bool negative;

    /// Divides the whole number by ten; returns the rest.
    unsigned divide() {
        std::uint64_t rest = 0;
        for (std::size_t i = limbs.size(); i-- > 0;) {
            const std::uint64_t part = rest << 32 | limbs[i];
            limbs[i] = static_cast<std::uint32_t>(part / 10);
            rest = part % 10;
        }
        return static_cast<unsigned>(rest);
    }
    bool is_zero() const { return limbs[0] == 0 && limbs[1] == 0 && limbs[2] == 0; }
    std::uint64_t low() const { return std::uint64_t{limbs[1]} << 32 | limbs[0]; }
};

Decimal without_trailing_zeros(Decimal decimal) {
    for (Decimal shorter = decimal; decimal.places > 0 && shorter.divide() == 0; decimal = shorter)
        --shorter.places;
    return decimal;
}

std::string digits_of(Decimal decimal) {
    std::string digits;  // from the last one on
    for (int place = decimal.places; place >= 0 || !decimal.is_zero(); --place) {
        if (place == 0 && decimal.places > 0) digits += ',';
        digits += static_cast<char>('0' + decimal.divide());
    }
    if (decimal.negative) digits += '-';
    std::reverse(digits.begin(), digits.end());
    return digits;
}

std::optional<std::int64_t> to_integer(const Decimal& decimal) {
    constexpr std::uint64_t largest = std::numeric_limits<std::int64_t>::max();
    if (decimal.places > 0 || decimal.limbs[2] != 0 || decimal.low() > largest + (decimal.negative ? 1 : 0))
        return std::nullopt;
    const std::uint64_t number = decimal.negative ? 0 - decimal.low() : decimal.low();
    return static_cast<std::int64_t>(number);
}

/// The Double nearest to `decimal`, when 15 digits without exponent tell all of it.
std::optional<double> to_double(const Decimal& decimal) {
    if (decimal.places == 0 || decimal.limbs[2] != 0 || decimal.low() > largest_exact) return std::nullopt;
    // Both operands are exact as long as the result is not tiny, so that one division rounds once.
    double power = 1.0;
    for (int i = 0; i < decimal.places; ++i) power *= 10.0;
    const double number = static_cast<double>(decimal.low()) / power;
    if (number < smallest_plain) return std::nullopt;
    return decimal.negative ? -number : number;
}

Value number_of(const Decimal& given) {
    const Decimal decimal = without_trailing_zeros(given);
    if (const auto integer = to_integer(decimal)) return *integer;
    if (const auto number = to_double(decimal)) return *number;
    return digits_of(decimal);
}

}  // namespace

Value to_value(CY currency) {
    const bool negative = currency.int64 < 0;
    const auto bits = static_cast<std::uint64_t>(currency.int64);
    const std::uint64_t magnitude = negative ? 0 - bits : bits;
    return number_of(
        Decimal{{static_cast<std::uint32_t>(magnitude), static_cast<std::uint32_t>(magnitude >> 32), 0},
                4,
                negative});
}

std::optional<Value> to_value(const DECIMAL& decimal) {
    if (decimal.scale > most_places) return std::nullopt;
    return number_of(
        Decimal{{static_cast<std::uint32_t>(decimal.Lo32), static_cast<std::uint32_t>(decimal.Mid32),
                 static_cast<std::uint32_t>(decimal.Hi32)},
                decimal.scale,
                (decimal.sign & DECIMAL_NEG) != 0});
}

}  // namespace prot
