#include "platform/portable/time/system_clock.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>

namespace prot {

namespace {

// Windows and POSIX each have their own safe form of std::localtime.
std::tm local_time(std::time_t seconds) {
    std::tm local{};
#ifdef _WIN32
    localtime_s(&local, &seconds);
#else
    localtime_r(&seconds, &local);
#endif
    return local;
}

std::tm universal_time(std::time_t seconds) {
    std::tm universal{};
#ifdef _WIN32
    gmtime_s(&universal, &seconds);
#else
    gmtime_r(&seconds, &universal);
#endif
    return universal;
}

/// Minutes since any fixed moment, all days having 24 hours.
std::int64_t minutes_of(const std::tm& time) {
    using namespace std::chrono;
    const year_month_day date{year{time.tm_year + 1900}, month{static_cast<unsigned>(time.tm_mon + 1)},
                              day{static_cast<unsigned>(time.tm_mday)}};
    return (sys_days{date}.time_since_epoch().count() * 24LL + time.tm_hour) * 60 + time.tm_min;
}

}  // namespace

std::string iso_time(std::chrono::system_clock::time_point moment) {
    const std::time_t seconds = std::chrono::system_clock::to_time_t(moment);
    const std::tm local = local_time(seconds);
    const auto offset = static_cast<int>(minutes_of(local) - minutes_of(universal_time(seconds)));
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02dT%02d:%02d:%02d%c%02d:%02d", local.tm_year + 1900,
                  local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec,
                  offset < 0 ? '-' : '+', std::abs(offset) / 60, std::abs(offset) % 60);
    return text.data();
}

CivilTime SystemClock::now() {
    const std::tm local = local_time(std::time(nullptr));
    // A leap second counts as the last ordinary one.
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
            local.tm_hour,        local.tm_min,     local.tm_sec > 59 ? 59 : local.tm_sec};
}

}  // namespace prot
