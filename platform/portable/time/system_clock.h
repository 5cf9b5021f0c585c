#pragma once

#include "platform/clock.h"

namespace prot {

/// The system's clock, in its own time zone.
class SystemClock : public Clock {
public:
    CivilTime now() override;
};

}  // namespace prot
