#pragma once

#include "tests/faults/support/fault_plan.h"

namespace prot::faults {

/// While it lives, SQLite's default VFS is one over the system's own whose operations on files fail as `plan`
/// says: open, read, write (half of the bytes arrive), truncate, sync, size, lock, delete and access. One at
/// a time. Outlives every connection that was opened meanwhile.
class FaultyVfs {
public:
    explicit FaultyVfs(FaultPlan& plan);
    ~FaultyVfs();
    FaultyVfs(const FaultyVfs&) = delete;
    FaultyVfs& operator=(const FaultyVfs&) = delete;
};

}  // namespace prot::faults
