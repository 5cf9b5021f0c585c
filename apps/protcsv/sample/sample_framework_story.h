#pragma once

#include <span>

#include "apps/protcsv/sample/sample_framework_desk.h"

namespace prot::sample {

/// What happens to report frameworks, however the dice fall.
std::span<const Step<FrameworkDesk>> framework_story();

}  // namespace prot::sample
