#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <string>
#include <string_view>

#include "platform/automation/error.h"
#include "platform/automation/letter_case.h"
#include "platform/automation/text_forms.h"
#include "platform/automation/utf8.h"
#include "tests/fuzz/claim.h"
#include "tests/fuzz/utf8_reference.h"

/// Input: a letter for what is converted (see `conversions`), then its bytes.
namespace prot::fuzz {
namespace {

/// Runs `step`; true when it failed, which it may only with error `allowed`.
template <class Step>
bool fails_with(ErrorNumber allowed, Step step) {
    try {
        step();
    } catch (const AutomationError& error) {
        claim(error.number() == static_cast<std::int32_t>(allowed), "only documented errors leave",
              error.description());
        return true;
    }
    return false;
}

/// The first bytes of `input` as a number; missing ones are zero.
template <class Number>
Number take_number(std::string_view& input) {
    Number number{};
    const std::size_t size = std::min(sizeof number, input.size());
    std::memcpy(&number, input.data(), size);
    input.remove_prefix(size);
    return number;
}

// The serials of 1 January 100, 00:00, and of the first moment that rounds to the year 10000.
constexpr double before_first_day = -657435.0;
constexpr double behind_last_second = 2958466.0 - 0.5 / 86400;
constexpr double rounding = 1e-9;  // days; how exact a serial is that far from zero

void check_text_of(Date date, const CivilTime& civil) {
    const std::string text = to_text(date);
    const Date read = to_date(text);
    claim(to_civil(read) == civil, "a date's text reads back as the date", text);
    claim(to_date(civil) == read, "a date taken apart is the date", text);
    claim(to_text(read) == text, "the date read has the same text", text);
}

void check_date(std::string_view input) {
    const Date date{take_number<double>(input)};
    CivilTime civil;
    const bool failed = fails_with(ErrorNumber::overflow, [&] { civil = to_civil(date); });
    const bool inside = date.serial > before_first_day && date.serial < behind_last_second - rounding;
    const bool outside = !(date.serial > before_first_day && date.serial < behind_last_second + rounding);
    claim(failed ? !inside : !outside, "the years 100 to 9999 have dates, no others");
    if (failed) return;
    claim(is_valid(civil), "a date taken apart names a day and a time");
    check_text_of(date, civil);
}

void check_moved_date(std::string_view input) {
    const Date date{take_number<double>(input)};
    const auto seconds = take_number<std::int64_t>(input);
    Date moved;
    if (fails_with(ErrorNumber::overflow, [&] { moved = add_seconds(date, seconds); })) return;
    const CivilTime civil = to_civil(moved);
    claim(is_valid(civil), "a moved date is a date");
    claim(to_date(civil) == moved, "a moved date is of whole seconds");
    claim(to_civil(add_seconds(moved, -seconds)) == to_civil(date), "a date moves back");
}

void check_date_text(std::string_view text) {
    Date date;
    if (fails_with(ErrorNumber::type_mismatch, [&] { date = to_date(text); })) return;
    check_text_of(date, to_civil(date));
}

/// The length of the number at the start of `text`; 0 when there is none.
std::size_t number_length(std::string_view text) {
    std::size_t at = 0;
    const auto is_one_of = [&](std::string_view set) {
        return at < text.size() && set.find(text[at]) != std::string_view::npos;
    };
    const auto take_digits = [&] {
        const std::size_t start = at;
        while (is_one_of("0123456789")) ++at;
        return at - start;
    };
    if (is_one_of("+-")) ++at;
    std::size_t digits = take_digits();
    if (is_one_of(".")) {
        ++at;
        digits += take_digits();
    }
    if (digits == 0) return 0;
    const std::size_t mantissa = at;
    if (!is_one_of("eEdD")) return mantissa;
    ++at;
    if (is_one_of("+-")) ++at;
    return take_digits() == 0 ? mantissa : at;
}

void check_val(std::string_view input) {
    std::string text(input);
    std::erase_if(text, [](char c) { return c == ' ' || c == '\t' || c == '\n'; });
    text.resize(number_length(text));
    for (char& c : text)
        if (c == 'd' || c == 'D') c = 'e';
    const double expected = std::strtod(text.c_str(), nullptr);
    const double found = val(input);
    claim(found == expected, "val reads the number that the text begins with",
          std::to_string(found) + " instead of " + std::to_string(expected));
}

void check_number(std::string_view input) {
    const auto number = take_number<double>(input);
    std::int32_t whole = 0;
    const bool failed = fails_with(ErrorNumber::overflow, [&] { whole = to_long(number); });
    const double nearest = std::nearbyint(number);
    claim(failed == !(nearest >= -2147483648.0 && nearest <= 2147483647.0), "a long has 32 bits");
    if (!failed) claim(static_cast<double>(whole) == nearest, "a long is the nearest number, half to even");

    std::string text = to_text(number);
    if (!std::isfinite(number)) return;
    claim(text.find_first_not_of("0123456789,-+E") == std::string::npos, "a number has a decimal comma",
          text);
    std::replace(text.begin(), text.end(), ',', '.');
    const double read = val(text);
    claim(std::isinf(read) || std::fabs(read - number) <= std::fabs(number) * 5.1e-15,
          "a number's text holds 15 digits", text);
}

void check_code_points(std::string_view text) {
    std::size_t parts = 0;
    bool all_valid = true;
    for_each_utf8_part(text, [&](std::string_view, bool is_character) {
        ++parts;
        all_valid = all_valid && is_character;
    });
    claim(decode_utf8(text).size() == parts, "each character and each other byte is one code point");
    claim(is_valid_utf8(text) == all_valid, "UTF-8 is told from other bytes");
    claim(encode_utf8(decode_utf8(text)) == text, "encoding takes decoding back");
}

void check_letter_case(std::string_view text) {
    const std::string lower = to_lower(text);
    const std::string upper = to_upper(text);
    const std::size_t size = decode_utf8(text).size();
    claim(decode_utf8(lower).size() == size && decode_utf8(upper).size() == size,
          "letter case keeps the number of code points");
    claim(to_lower(lower) == lower && to_upper(upper) == upper, "letter case is folded at once");
    claim(to_lower(upper) == lower && to_upper(lower) == upper, "capitals and small letters are pairs");
    claim(std::all_of(lower.begin(), lower.end(), [](char c) { return c < 'A' || c > 'Z'; }),
          "no capital letter is left");
}

void check_text(std::string_view text) {
    check_code_points(text);
    check_letter_case(text);
}

struct Conversion {
    char letter;
    void (*check)(std::string_view);
};

// clang-format off
constexpr Conversion conversions[] = {
    {'d', check_date},        // a serial (double)
    {'m', check_moved_date},  // a serial (double) and seconds (int64)
    {'t', check_date_text},   // the text of a date
    {'v', check_val},         // the text of a number
    {'n', check_number},      // a number (double)
    {'u', check_text},        // any text
};
// clang-format on

}  // namespace
}  // namespace prot::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace prot::fuzz;
    const std::string_view input = input_text(data, size);
    for (const Conversion& conversion : conversions)
        if (input.starts_with(conversion.letter)) conversion.check(input.substr(1));
    return 0;
}
