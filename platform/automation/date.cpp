#include "platform/automation/date.h"

#include <cmath>

#include "platform/automation/error.h"

namespace prot {

namespace {

constexpr std::int64_t seconds_per_day = 86400;
constexpr std::int64_t first_day = -657434;  // 1 January 100
constexpr std::int64_t last_day = 2958465;   // 31 December 9999
constexpr std::int64_t first_second = first_day * seconds_per_day;
constexpr std::int64_t last_second = (last_day + 1) * seconds_per_day - 1;

struct YearMonthDay {
    int year, month, day;
};

// Days since 30 December 1899 and back, in eras of 400 years that begin on 1 March; the civil-calendar
// arithmetic follows from 97 leap days in 400 years.
constexpr std::int64_t days_from_civil(std::int64_t year, int month, int day) {
    const std::int64_t shifted = month <= 2 ? year - 1 : year;
    const std::int64_t era = shifted / 400;
    const std::int64_t year_of_era = shifted - era * 400;
    const std::int64_t day_of_year = (153 * (month > 2 ? month - 3 : month + 9) + 2) / 5 + day - 1;
    const std::int64_t day_of_era = year_of_era * 365 + year_of_era / 4 - year_of_era / 100 + day_of_year;
    return era * 146097 + day_of_era - 693899;
}

constexpr YearMonthDay civil_from_days(std::int64_t days) {
    const std::int64_t shifted = days + 693899;
    const std::int64_t era = shifted / 146097;
    const std::int64_t day_of_era = shifted - era * 146097;
    const std::int64_t year_of_era =
        (day_of_era - day_of_era / 1460 + day_of_era / 36524 - day_of_era / 146096) / 365;
    const std::int64_t day_of_year = day_of_era - (365 * year_of_era + year_of_era / 4 - year_of_era / 100);
    const std::int64_t month_from_march = (5 * day_of_year + 2) / 153;
    const int day = static_cast<int>(day_of_year - (153 * month_from_march + 2) / 5 + 1);
    const int month = static_cast<int>(month_from_march < 10 ? month_from_march + 3 : month_from_march - 9);
    const int year = static_cast<int>(year_of_era + era * 400 + (month <= 2 ? 1 : 0));
    return {year, month, day};
}

static_assert(days_from_civil(1899, 12, 30) == 0);
static_assert(days_from_civil(2026, 1, 1) == 46023);
static_assert(days_from_civil(100, 1, 1) == first_day && days_from_civil(9999, 12, 31) == last_day);

constexpr int days_in_month(int year, int month) {
    constexpr int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
    return month == 2 && leap ? 29 : days[month - 1];
}

[[noreturn]] void overflow() {
    throw AutomationError(ErrorNumber::overflow, "Überlauf: Datum außerhalb der Jahre 100 bis 9999");
}

/// Seconds since 30 December 1899, 00:00, counted evenly also before it.
std::int64_t to_seconds(Date date) {
    const double day = std::trunc(date.serial);
    if (!(day >= static_cast<double>(first_day) && day <= static_cast<double>(last_day))) overflow();
    const double time = std::fabs(date.serial - day);
    const std::int64_t seconds = static_cast<std::int64_t>(day) * seconds_per_day +
                                 std::llround(time * static_cast<double>(seconds_per_day));
    if (seconds > last_second) overflow();
    return seconds;
}

Date from_seconds(std::int64_t seconds) {
    std::int64_t day = seconds / seconds_per_day;
    std::int64_t time = seconds % seconds_per_day;
    if (time < 0) {
        --day;
        time += seconds_per_day;
    }
    const double fraction = static_cast<double>(time) / static_cast<double>(seconds_per_day);
    return Date{static_cast<double>(day) + (day < 0 ? -fraction : fraction)};
}

}  // namespace

bool is_valid(const CivilTime& civil) {
    return civil.year >= 100 && civil.year <= 9999 && civil.month >= 1 && civil.month <= 12 &&
           civil.day >= 1 && civil.day <= days_in_month(civil.year, civil.month) && civil.hour >= 0 &&
           civil.hour <= 23 && civil.minute >= 0 && civil.minute <= 59 && civil.second >= 0 &&
           civil.second <= 59;
}

Date to_date(const CivilTime& civil) {
    return from_seconds(days_from_civil(civil.year, civil.month, civil.day) * seconds_per_day +
                        std::int64_t{civil.hour} * 3600 + std::int64_t{civil.minute} * 60 + civil.second);
}

CivilTime to_civil(Date date) {
    const std::int64_t seconds = to_seconds(date);
    std::int64_t day = seconds / seconds_per_day;
    std::int64_t time = seconds % seconds_per_day;
    if (time < 0) {
        --day;
        time += seconds_per_day;
    }
    const YearMonthDay civil = civil_from_days(day);
    return {civil.year,
            civil.month,
            civil.day,
            static_cast<int>(time / 3600),
            static_cast<int>(time / 60 % 60),
            static_cast<int>(time % 60)};
}

Date add_seconds(Date date, std::int64_t seconds) {
    const std::int64_t start = to_seconds(date);
    if (seconds < first_second - start || seconds > last_second - start) overflow();
    return from_seconds(start + seconds);
}

}  // namespace prot
