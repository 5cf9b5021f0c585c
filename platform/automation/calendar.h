#pragma once

#include <chrono>

#include "platform/automation/date.h"

/// Between the parts of a local time and a moment that std::chrono can reckon with. Apart from date.h because
/// few need <chrono>.
namespace prot {

std::chrono::sys_seconds moment_of(const CivilTime& civil);  ///< valid, see is_valid

CivilTime civil_time(std::chrono::sys_seconds moment);

}  // namespace prot
