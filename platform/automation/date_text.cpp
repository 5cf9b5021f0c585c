#include "platform/automation/date_text.h"

#include <cmath>
#include <cstdint>

#include "platform/automation/ascii.h"
#include "platform/automation/error.h"
#include "platform/automation/text_parts.h"

namespace prot {

namespace {

constexpr double seconds_per_day = 86400.0;

struct Number {
    int value;
    int width;  ///< in digits
};

void append_number(std::string& text, Number number) {
    char digits[4];
    for (int i = number.width; i > 0; number.value /= 10)
        digits[--i] = static_cast<char>('0' + number.value % 10);
    text.append(digits, static_cast<std::size_t>(number.width));
}

void append_three(std::string& text, Number first, Number second, Number third, char separator) {
    append_number(text, first);
    text += separator;
    append_number(text, second);
    text += separator;
    append_number(text, third);
}

void append_time(std::string& text, const CivilTime& civil) {
    append_three(text, {civil.hour, 2}, {civil.minute, 2}, {civil.second, 2}, ':');
}

bool is_midnight(const CivilTime& civil) { return civil.hour == 0 && civil.minute == 0 && civil.second == 0; }

/// The day that a time of day without a date falls on.
bool is_day_zero(const CivilTime& civil) {
    const CivilTime zero;
    return civil.year == zero.year && civil.month == zero.month && civil.day == zero.day;
}

/// Reads numbers and separators from the front of a text. After the first one that is missing it finds no
/// date any more, whatever is read.
class DateReader {
public:
    explicit DateReader(std::string_view text) : rest_(text) {}

    bool at_end() const { return rest_.empty(); }
    bool is_time() const { return rest_.substr(0, 3).find(':') != std::string_view::npos; }

    /// A number of `least` to `most` digits.
    int number(std::size_t least, std::size_t most) {
        std::size_t length = 0;
        int number = 0;
        while (length < most && length < rest_.size() && is_ascii_digit(rest_[length]))
            number = number * 10 + (rest_[length++] - '0');
        good_ = good_ && length >= least;
        rest_.remove_prefix(length);
        return number;
    }

    /// One of the separators.
    bool accept(std::string_view separators) {
        if (rest_.empty() || separators.find(rest_.front()) == std::string_view::npos) return false;
        rest_.remove_prefix(1);
        return true;
    }
    void expect(std::string_view separators) { good_ = accept(separators) && good_; }

    /// All that is left, as decimals behind a point; at least one.
    double decimals() {
        good_ = good_ && !rest_.empty();
        double value = 0.0;
        for (double unit = 0.1; good_ && !rest_.empty(); unit /= 10) value += unit * number(1, 1);
        return value;
    }

    /// The date whose parts were read; nothing when something else stands in the text, or there is no such
    /// day or time.
    std::optional<Date> date(const CivilTime& civil) const {
        if (!good_ || !rest_.empty() || !is_valid(civil)) return std::nullopt;
        return to_date(civil);
    }

private:
    std::string_view rest_;
    bool good_ = true;
};

void read_year_first(DateReader& reader, CivilTime& civil) {
    civil.year = reader.number(4, 4);
    reader.expect("-");
    civil.month = reader.number(2, 2);
    reader.expect("-");
    civil.day = reader.number(2, 2);
}

void read_day_first(DateReader& reader, CivilTime& civil, std::size_t least_digits) {
    civil.day = reader.number(least_digits, 2);
    reader.expect(".");
    civil.month = reader.number(least_digits, 2);
    reader.expect(".");
    civil.year = reader.number(4, 4);
}

void read_time(DateReader& reader, CivilTime& civil, std::size_t least_digits) {
    civil.hour = reader.number(least_digits, 2);
    reader.expect(":");
    civil.minute = reader.number(2, 2);
}

}  // namespace

void append_text(std::string& text, Date date) {
    const CivilTime civil = to_civil(date);
    if (!is_day_zero(civil)) {
        append_three(text, {civil.day, 2}, {civil.month, 2}, {civil.year, 4}, '.');
        if (is_midnight(civil)) return;
        text += ' ';
    }
    append_time(text, civil);
}

std::string to_text(Date date) {
    std::string text;
    append_text(text, date);
    return text;
}

Date to_date(std::string_view text) {
    DateReader reader(trim_blanks(text));
    CivilTime civil;
    const bool time_only = reader.is_time();
    if (!time_only) read_day_first(reader, civil, 1);
    if (time_only || reader.accept(" ")) {
        read_time(reader, civil, 1);
        if (reader.accept(":")) civil.second = reader.number(2, 2);
    }
    const std::optional<Date> date = reader.date(civil);
    if (!date) throw AutomationError(ErrorNumber::type_mismatch, "Typen unverträglich: kein Datum");
    return *date;
}

std::string iso_text(const CivilTime& civil) {
    std::string text;
    append_three(text, {civil.year, 4}, {civil.month, 2}, {civil.day, 2}, '-');
    text += ' ';
    append_time(text, civil);
    return text;
}

std::string iso_text(Date date) {
    constexpr std::int64_t second = 1000;
    const double day = std::trunc(date.serial);
    const std::int64_t time = std::llround(std::fabs(date.serial - day) * seconds_per_day * second);
    if (time % second == 0) return iso_text(to_civil(date));
    const std::int64_t seconds = time / second;
    const double whole = static_cast<double>(seconds) / seconds_per_day;
    std::string text = iso_text(to_civil(Date{day < 0 ? day - whole : day + whole})) + '.';
    append_number(text, {static_cast<int>(time % second), 3});
    return text;
}

std::optional<Date> read_iso_date(std::string_view text) {
    DateReader reader(text);
    CivilTime civil;
    double fraction = 0.0;
    read_year_first(reader, civil);
    if (!reader.at_end()) {
        reader.expect(" T");
        read_time(reader, civil, 2);
        reader.expect(":");
        civil.second = reader.number(2, 2);
        if (reader.accept(".")) fraction = reader.decimals();
    }
    const std::optional<Date> date = reader.date(civil);
    if (!date) return std::nullopt;
    // Before 1899-12-30 the time of day counts away from zero (see Date).
    return Date{date->serial + (date->serial < 0 ? -fraction : fraction) / seconds_per_day};
}

std::optional<Date> read_iso_day(std::string_view text) {
    DateReader reader(text);
    CivilTime civil;
    read_year_first(reader, civil);
    return reader.date(civil);
}

std::optional<Date> read_german_day(std::string_view text) {
    DateReader reader(text);
    CivilTime civil;
    read_day_first(reader, civil, 1);
    return reader.date(civil);
}

}  // namespace prot
