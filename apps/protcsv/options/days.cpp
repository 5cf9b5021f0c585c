#include "apps/protcsv/options/days.h"

#include <cstdint>
#include <optional>
#include <string>

#include "apps/protcsv/options/usage_error.h"
#include "platform/automation/date_text.h"
#include "platform/automation/letter_case.h"

namespace prot {

namespace {

constexpr std::int64_t seconds_of_day = 86400;

Date midnight(Date date) {
    const CivilTime civil = to_civil(date);
    return to_date(CivilTime{civil.year, civil.month, civil.day});
}

/// The first day of the month `text`, YYYY-MM.
std::optional<Date> read_month(std::string_view text) { return read_iso_day(std::string(text) + "-01"); }

Date last_day_of_month(Date first) {
    CivilTime civil = to_civil(first);
    for (civil.day = 31; !is_valid(civil);) --civil.day;
    return to_date(civil);
}

std::optional<Date> read_day(std::string_view text, Date today) {
    const std::string word = to_lower(text);
    if (word == "heute") return midnight(today);
    if (word == "gestern") return add_seconds(midnight(today), -seconds_of_day);
    const std::optional<Date> day = read_iso_day(text);
    return day ? day : read_german_day(text);
}

[[noreturn]] void refuse_day(std::string_view text, std::string_view reason) {
    throw UsageError("„" + std::string(text) + "“ " + std::string(reason));
}

}  // namespace

Days parse_days(std::string_view text, Date today) {
    if (const std::optional<Date> day = read_day(text, today)) return {*day, *day};
    if (const std::optional<Date> month = read_month(text)) return {*month, last_day_of_month(*month)};
    refuse_day(text, "ist kein Tag; erwartet wird TT.MM.JJJJ, JJJJ-MM-TT, JJJJ-MM, heute oder gestern");
}

Date parse_last_day_of_deletion(std::string_view text, Date today) {
    const Date date = parse_days(text, today).last;
    if (date.is_null()) refuse_day(text, "ist der Nulltag; er stünde für eine Löschung ohne Grenze");
    return date;
}

}  // namespace prot
