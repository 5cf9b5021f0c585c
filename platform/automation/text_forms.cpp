#include "platform/automation/text_forms.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

#include "platform/automation/ascii.h"
#include "platform/automation/error.h"

namespace prot {

namespace {

/// The number at the start of `text` in the form that from_chars reads: without blanks, D as E, no leading
/// plus.
std::string leading_number(std::string_view text) {
    std::string number;
    bool point = false, exponent = false;
    for (char c : text) {
        if (c == ' ' || c == '\t' || c == '\n') continue;
        const bool at_start = number.empty() || number.back() == 'e';
        if (c == '+' && at_start) {
            number += '+';
        } else if (c == '-' && at_start) {
            number += '-';
        } else if (c == '.' && !point && !exponent) {
            point = true;
            number += '.';
        } else if ((c == 'e' || c == 'E' || c == 'd' || c == 'D') && !exponent) {
            exponent = true;
            number += 'e';
        } else if (is_ascii_digit(c)) {
            number += c;
        } else {
            break;
        }
    }
    return number;
}

/// Whether `number`, which from_chars finds out of range, is too small for a double rather than too large:
/// its first digit other than zero stands behind the point that the exponent has moved.
bool is_too_small(std::string_view number) {
    const std::size_t end = std::min(number.find('e'), number.size());
    const std::string_view mantissa = number.substr(0, end);
    const std::string_view power = number.substr(std::min(end + 1, number.size()));
    const auto point = static_cast<std::int64_t>(std::min(mantissa.find('.'), mantissa.size()));
    const auto first = static_cast<std::int64_t>(mantissa.find_first_of("123456789"));
    std::int32_t exponent = 0;
    if (std::from_chars(power.data(), power.data() + power.size(), exponent).ec ==
        std::errc::result_out_of_range)
        return power.starts_with('-');
    return point - first + exponent <= 0;
}

}  // namespace

std::string to_text(double number) {
    if (number == 0.0) return "0";  // also for the negative zero
    char digits[40];
    std::snprintf(digits, sizeof digits, "%.15G", number);
    std::string text(digits);
    if (const auto point = text.find('.'); point != std::string::npos) text[point] = ',';
    return text;
}

std::string to_text(std::int64_t number) { return std::to_string(number); }

std::string to_text(const Value& value) {
    struct Text {
        std::string operator()(std::monostate) const { return {}; }
        std::string operator()(bool truth) const { return truth ? "Wahr" : "Falsch"; }
        std::string operator()(std::int64_t number) const { return to_text(number); }
        std::string operator()(double number) const { return to_text(number); }
        std::string operator()(Date date) const { return to_text(date); }
        std::string operator()(const std::string& text) const { return text; }
    };
    return std::visit(Text{}, value);
}

double widened(float number) {
    if (!std::isfinite(number)) return number;
    char digits[32];
    const auto end = std::to_chars(digits, digits + sizeof digits, number, std::chars_format::general, 7).ptr;
    double result = 0.0;
    std::from_chars(digits, end, result);
    return result;
}

double val(std::string_view text) {
    const std::string number = leading_number(text);
    std::string_view rest(number);
    bool negative = false;
    if (!rest.empty() && (rest.front() == '+' || rest.front() == '-')) {
        negative = rest.front() == '-';
        rest.remove_prefix(1);
    }
    // A sign of the exponent that from_chars would not skip.
    std::string digits(rest);
    if (const auto plus = digits.find("e+"); plus != std::string::npos) digits.erase(plus + 1, 1);
    double result = 0.0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), result);
    if (error == std::errc::result_out_of_range) {
        result = is_too_small(digits) ? 0.0 : std::numeric_limits<double>::infinity();
    } else if (error != std::errc()) {
        result = 0.0;
    }
    return negative ? -result : result;
}

std::int32_t to_long(double number) {
    const double floor = std::floor(number);
    const double above = number - floor;
    double rounded = floor;
    if (above > 0.5 || (above == 0.5 && std::fmod(floor, 2.0) != 0.0)) rounded = floor + 1.0;
    if (!(rounded >= -2147483648.0 && rounded <= 2147483647.0))
        throw AutomationError(ErrorNumber::overflow, "Überlauf: Zahl außerhalb von 32 Bit");
    return static_cast<std::int32_t>(rounded);
}

}  // namespace prot
