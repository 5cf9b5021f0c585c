#pragma once

#include <cstddef>

#include "tests/faults/support/fault_plan.h"

/// The memory of this test program: operator new and SQLite's allocations pass here. Each counts what is
/// allocated and not yet freed; while a FailingMemory lives, one of them fails as told.
namespace prot::faults {

enum class Memory { cpp, sqlite };

/// Allocations of `memory` fail by a plan while it lives. One at a time.
class FailingMemory {
public:
    FailingMemory(Memory memory, std::size_t nth, Failing failing);
    ~FailingMemory();
    FailingMemory(const FailingMemory&) = delete;
    FailingMemory& operator=(const FailingMemory&) = delete;

    bool reached() const;
};

/// How many blocks of both are allocated.
std::ptrdiff_t live_blocks();

/// Lets SQLite allocate here; before anything else is asked of it.
void take_over_sqlite_memory();

}  // namespace prot::faults
