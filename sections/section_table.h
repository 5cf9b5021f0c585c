#pragma once

#include "core/section_table.h"

namespace prot {

/// The sections of this version, in number order.
SectionTable section_table();

}  // namespace prot
