#pragma once

#include <chrono>
#include <string>

#include "platform/clock.h"

namespace prot {

/// The system's clock, in its own time zone.
class SystemClock : public Clock {
public:
    CivilTime now() override;
};

/// A moment as ISO 8601 in the system's own time zone, with seconds and offset: 2026-01-31T02:15:00+01:00.
std::string iso_time(std::chrono::system_clock::time_point moment);

}  // namespace prot
