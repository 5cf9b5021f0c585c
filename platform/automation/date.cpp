#include "platform/automation/date.h"

#include <chrono>
#include <cmath>

#include "platform/automation/calendar.h"
#include "platform/automation/error.h"

namespace prot {

namespace {

using std::chrono::days;
using std::chrono::floor;
using std::chrono::seconds;
using std::chrono::sys_days;
using std::chrono::year;

constexpr sys_days null_day = year(1899) / 12 / 30;
constexpr days first_day = sys_days(year(100) / 1 / 1) - null_day;
constexpr days last_day = sys_days(year(9999) / 12 / 31) - null_day;
constexpr seconds first_second = first_day;
constexpr seconds last_second = last_day + days(1) - seconds(1);

std::chrono::year_month_day day_of(const CivilTime& civil) {
    return year(civil.year) / civil.month / civil.day;
}

[[noreturn]] void overflow() {
    throw AutomationError(ErrorNumber::overflow, "Überlauf: Datum außerhalb der Jahre 100 bis 9999");
}

/// Since 30 December 1899, 00:00, counted evenly also before it.
seconds to_seconds(Date date) {
    const double day = std::trunc(date.serial);
    if (!(day >= static_cast<double>(first_day.count()) && day <= static_cast<double>(last_day.count())))
        overflow();
    const double time = std::fabs(date.serial - day);
    const seconds since =
        days(static_cast<int>(day)) + seconds(std::llround(time * seconds(days(1)).count()));
    if (since > last_second) overflow();
    return since;
}

Date from_seconds(seconds since) {
    const days day = floor<days>(since);
    const double fraction = std::chrono::duration<double, days::period>(since - day).count();
    return Date{static_cast<double>(day.count()) + (day < days(0) ? -fraction : fraction)};
}

}  // namespace

bool is_valid(const CivilTime& civil) {
    // The limits of month and day come first: chrono keeps no more than a byte of each.
    return civil.year >= 100 && civil.year <= 9999 && civil.month >= 1 && civil.month <= 12 &&
           civil.day >= 1 && civil.day <= 31 && day_of(civil).ok() && civil.hour >= 0 && civil.hour <= 23 &&
           civil.minute >= 0 && civil.minute <= 59 && civil.second >= 0 && civil.second <= 59;
}

std::chrono::sys_seconds moment_of(const CivilTime& civil) {
    return sys_days(day_of(civil)) + std::chrono::hours(civil.hour) + std::chrono::minutes(civil.minute) +
           seconds(civil.second);
}

CivilTime civil_time(std::chrono::sys_seconds moment) {
    const sys_days day = floor<days>(moment);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss time(moment - day);
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day())),
            static_cast<int>(time.hours().count()),
            static_cast<int>(time.minutes().count()),
            static_cast<int>(time.seconds().count())};
}

Date to_date(const CivilTime& civil) { return from_seconds(moment_of(civil) - null_day); }

CivilTime to_civil(Date date) { return civil_time(null_day + to_seconds(date)); }

Date add_seconds(Date date, std::int64_t more) {
    const seconds start = to_seconds(date);
    if (more < (first_second - start).count() || more > (last_second - start).count()) overflow();
    return from_seconds(start + seconds(more));
}

}  // namespace prot
