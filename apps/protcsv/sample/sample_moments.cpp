#include "apps/protcsv/sample/sample_moments.h"

#include "platform/automation/calendar.h"
#include "platform/automation/date_text.h"

namespace prot::sample {
namespace {

using std::chrono::hours;
using std::chrono::minutes;
using std::chrono::seconds;

struct Window {
    int weekday;  ///< 0 Monday to 6 Sunday
    minutes begin;
    minutes end;
};

constexpr minutes job_begin = hours(2) + minutes(10);
constexpr minutes job_end = hours(2) + minutes(30);
constexpr minutes office_begin = hours(7) + minutes(30);
constexpr minutes office_end = hours(18);

// clang-format off
constexpr Window week[] = {
    {0, job_begin, job_end}, {0, office_begin, office_end},
    {1, job_begin, job_end}, {1, office_begin, office_end},
    {2, job_begin, job_end}, {2, office_begin, office_end},
    {3, job_begin, job_end}, {3, office_begin, office_end},
    {4, job_begin, job_end}, {4, office_begin, office_end},
    {5, hours(10), hours(11)},
};
// clang-format on

constexpr std::int64_t length(const Window& window) { return seconds(window.end - window.begin).count(); }

constexpr std::int64_t week_length() {
    std::int64_t sum = 0;
    for (const Window& window : week) sum += length(window);
    return sum;
}

constexpr std::int64_t weeks_of_log = (log_end - log_begin) / std::chrono::days(7);

/// Seconds of the span in which something can happen.
constexpr std::int64_t most_moments = weeks_of_log * week_length();

/// The moment of the second with that number among the seconds in which something can happen.
Moment moment_of(std::int64_t second) {
    const Day monday = log_begin + std::chrono::days(7 * (second / week_length()));
    std::int64_t rest = second % week_length();
    const Window* window = week;
    for (; rest >= length(*window); ++window) rest -= length(*window);
    return Moment(monday + std::chrono::days(window->weekday)) + window->begin + seconds(rest);
}

}  // namespace

std::string iso_text(Moment moment) { return prot::iso_text(civil_time(moment)); }

std::string german_text(Moment moment) { return to_text(to_date(civil_time(moment))); }

bool is_night(Moment moment) { return moment - std::chrono::floor<std::chrono::days>(moment) < office_begin; }

Moment Moments::next() {
    const std::int64_t low = index_ * most_moments / count_;
    const std::int64_t high = (index_ + 1) * most_moments / count_;
    ++index_;
    return moment_of(low + random_.below(high - low));
}

}  // namespace prot::sample
