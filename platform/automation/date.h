#pragma once

#include <cstdint>

namespace prot {

/// A point in time as OLE Automation counts it: days since 30 December 1899, the time of day as the fraction.
/// The date part counts towards zero, so -1.25 is 29 December 1899, 06:00. 0 is the null date, "no date".
/// Range: years 100 to 9999. Source: OLE Automation, type DATE.
struct Date {
    double serial = 0.0;

    bool is_null() const { return serial == 0.0; }
    friend bool operator==(Date, Date) = default;
};

/// A date taken apart: proleptic Gregorian calendar, local time without zone, whole seconds.
struct CivilTime {
    int year = 1899;
    int month = 12;  ///< 1 to 12
    int day = 30;    ///< 1 to 31
    int hour = 0;    ///< 0 to 23
    int minute = 0;  ///< 0 to 59
    int second = 0;  ///< 0 to 59
    friend bool operator==(const CivilTime&, const CivilTime&) = default;
};

/// Whether `civil` names a day that exists, in the years 100 to 9999, and a time of that day.
bool is_valid(const CivilTime& civil);

/// The date of `civil`, which must be valid.
Date to_date(const CivilTime& civil);

/// `date` rounded to the nearest second and taken apart. Outside the years 100 to 9999, also by that
/// rounding: automation error 6 (overflow).
CivilTime to_civil(Date date);

/// `date`, rounded to the nearest second, moved by whole seconds. Dates before 1899 keep their meaning (see
/// Date). Outside the years 100 to 9999: automation error 6 (overflow).
Date add_seconds(Date date, std::int64_t seconds);

}  // namespace prot
