#pragma once

#include "core/lookup_memory.h"
#include "platform/database.h"
#include "platform/environment.h"

namespace prot {

/// What the lookups of one export or deletion share. Made anew for each run; nothing is remembered from one
/// to the next.
struct Run {
    Environment& environment;
    Database& oDBU;
    LookupMemory memory{};
};

}  // namespace prot
