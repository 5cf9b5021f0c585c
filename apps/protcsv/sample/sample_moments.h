#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "apps/protcsv/sample/sample_random.h"

/// When things happen in a sample database: a fixed span of three years, never the day of writing.
namespace prot::sample {

/// Local time without zone, whole seconds.
using Moment = std::chrono::sys_seconds;
using Day = std::chrono::sys_days;

/// The log's first Monday, and the Monday after its last week.
inline constexpr Day log_begin{std::chrono::year{2023} / 11 / 6};
inline constexpr Day log_end{std::chrono::year{2026} / 11 / 2};

/// YYYY-MM-DD HH:MM:SS, as date columns hold it.
std::string iso_text(Moment moment);

/// dd.mm.yyyy, followed by hh:mm:ss unless it is midnight, as a German suite logs it.
std::string german_text(Moment moment);

/// Whether nobody is at work and only unattended jobs run.
bool is_night(Moment moment);

/// The moments of a log, in order, at least one second apart, spread over the whole span: mostly office
/// hours, some nightly jobs, some Saturdays.
class Moments {
public:
    /// count: how many moments will be asked for, at most the seconds in which something can happen, 30.9
    /// million.
    Moments(Random random, std::int64_t count) : random_(random), count_(count) {}

    Moment next();

private:
    Random random_;
    std::int64_t count_;
    std::int64_t index_ = 0;
};

}  // namespace prot::sample
