#include "platform/portable/time/system_clock.h"

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

}  // namespace

CivilTime SystemClock::now() {
    const std::tm local = local_time(std::time(nullptr));
    // A leap second counts as the last ordinary one.
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
            local.tm_hour,        local.tm_min,     local.tm_sec > 59 ? 59 : local.tm_sec};
}

}  // namespace prot
