#pragma once

#include "platform/automation/date.h"

namespace prot {

class Clock {
public:
    virtual ~Clock() = default;

    /// The current local date and time, whole seconds.
    virtual CivilTime now() = 0;
};

}  // namespace prot
