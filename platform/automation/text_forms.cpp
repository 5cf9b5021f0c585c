#include "platform/automation/text_forms.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

#include "platform/automation/ascii.h"
#include "platform/automation/error.h"
#include "platform/automation/text_parts.h"

namespace prot {

namespace {

void append_digits(std::string& text, int number, int width) {
    char digits[8];
    for (int i = width - 1; i >= 0; --i, number /= 10) digits[i] = static_cast<char>('0' + number % 10);
    text.append(digits, static_cast<std::size_t>(width));
}

bool is_midnight(const CivilTime& civil) { return civil.hour == 0 && civil.minute == 0 && civil.second == 0; }

/// The day that a time of day without a date falls on.
bool is_day_zero(const CivilTime& civil) {
    const CivilTime zero;
    return civil.year == zero.year && civil.month == zero.month && civil.day == zero.day;
}

/// A cursor over the German date form.
class DateReader {
public:
    explicit DateReader(std::string_view text) : rest_(text) {}

    /// Reads a number of `least` to `most` digits.
    int number(std::size_t least, std::size_t most) {
        std::size_t length = 0;
        int number = 0;
        while (length < most && length < rest_.size() && is_ascii_digit(rest_[length]))
            number = number * 10 + (rest_[length++] - '0');
        if (length < least) fail();
        rest_.remove_prefix(length);
        return number;
    }
    bool skip(char c) {
        if (rest_.empty() || rest_.front() != c) return false;
        rest_.remove_prefix(1);
        return true;
    }
    void expect(char c) {
        if (!skip(c)) fail();
    }
    bool at_end() const { return rest_.empty(); }
    bool is_time() const { return rest_.substr(0, 3).find(':') != std::string_view::npos; }

    [[noreturn]] static void fail() {
        throw AutomationError(ErrorNumber::type_mismatch, "Typen unverträglich: kein Datum");
    }

private:
    std::string_view rest_;
};

void read_time(DateReader& reader, CivilTime& civil) {
    civil.hour = reader.number(1, 2);
    reader.expect(':');
    civil.minute = reader.number(2, 2);
    if (reader.skip(':')) civil.second = reader.number(2, 2);
}

void read_day(DateReader& reader, CivilTime& civil) {
    civil.day = reader.number(1, 2);
    reader.expect('.');
    civil.month = reader.number(1, 2);
    reader.expect('.');
    civil.year = reader.number(4, 4);
}

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

void append_text(std::string& text, Date date) {
    const CivilTime civil = to_civil(date);
    const bool time_only = is_day_zero(civil);
    if (!time_only) {
        append_digits(text, civil.day, 2);
        text += '.';
        append_digits(text, civil.month, 2);
        text += '.';
        append_digits(text, civil.year, 4);
        if (is_midnight(civil)) return;
        text += ' ';
    }
    append_digits(text, civil.hour, 2);
    text += ':';
    append_digits(text, civil.minute, 2);
    text += ':';
    append_digits(text, civil.second, 2);
}

std::string to_text(Date date) {
    std::string text;
    append_text(text, date);
    return text;
}

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

Date to_date(std::string_view text) {
    DateReader reader(trim_blanks(text));
    CivilTime civil;
    if (reader.is_time()) {
        read_time(reader, civil);
    } else {
        read_day(reader, civil);
        if (reader.skip(' ')) read_time(reader, civil);
    }
    if (!reader.at_end() || !is_valid(civil)) DateReader::fail();
    return to_date(civil);
}

}  // namespace prot
