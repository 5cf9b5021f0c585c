#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// Ranges of account, customer and supplier numbers, as forms and parameter texts give them.
namespace prot {

struct NumberRange {
    double from = 0, to = 0;
};

/// A number as plain decimals, as statements and the filter text have them: no mark of thousands, no
/// exponent, a point before a fraction. A number beyond Double (Val reads it as infinite): automation
/// error 6.
std::string plain_number(double number);

/// Whether an entry can be a number of a range: a whole number, with or without a sign, or nothing yet. Marks
/// of thousands and fractions are none, because Val would stop at them.
bool is_number_entry(std::string_view text);

/// Why a range cannot be taken.
struct RangeRefusal {
    std::string_view text;  ///< for the person
    std::size_t bound;      ///< which field is concerned: 0 from, 1 to
};
std::optional<RangeRefusal> refusal_of(const NumberRange& range);

}  // namespace prot
