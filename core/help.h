#pragma once

#include <string_view>

#include "platform/environment.h"

namespace prot {

/// Shows topic `sHelpId` of the suite's help. An error is shown and ended.
void gShowWikiHelpxxx(std::string_view sHelpId, Environment& environment);

}  // namespace prot
