#include "tests/faults/failing_memory/failing_memory.h"

#include <sqlite3.h>

#include <atomic>
#include <cstdlib>
#include <mutex>
#include <new>

namespace prot::faults {

namespace {

// Two threads allocate.
std::mutex plan_mutex;  // of the three below
bool armed = false;
Memory failing_memory = Memory::cpp;
FaultPlan plan;
std::atomic<std::ptrdiff_t> live = 0;
sqlite3_mem_methods sqlite_memory;

bool fails(Memory memory) {
    const std::lock_guard lock(plan_mutex);
    return armed && memory == failing_memory && plan.fails();
}

void* counted(void* block) {
    if (block != nullptr) ++live;
    return block;
}

void free_block(void* block) {
    if (block != nullptr) --live;
    std::free(block);
}

void* allocate_sqlite(int size) {
    return fails(Memory::sqlite) ? nullptr : counted(sqlite_memory.xMalloc(size));
}
void* resize_sqlite(void* block, int size) {
    return fails(Memory::sqlite) ? nullptr : sqlite_memory.xRealloc(block, size);
}
void free_sqlite(void* block) {
    --live;
    sqlite_memory.xFree(block);
}

}  // namespace

FailingMemory::FailingMemory(Memory memory, std::size_t nth, Failing failing) {
    const std::lock_guard lock(plan_mutex);
    failing_memory = memory;
    plan = FaultPlan(nth, failing);
    armed = true;
}

FailingMemory::~FailingMemory() {
    const std::lock_guard lock(plan_mutex);
    armed = false;
}

bool FailingMemory::reached() const { return plan.reached(); }

std::ptrdiff_t live_blocks() { return live; }

void take_over_sqlite_memory() {
    if (sqlite_memory.xMalloc != nullptr) return;
    sqlite3_config(SQLITE_CONFIG_GETMALLOC, &sqlite_memory);
    sqlite3_mem_methods methods = sqlite_memory;
    methods.xMalloc = allocate_sqlite;
    methods.xRealloc = resize_sqlite;
    methods.xFree = free_sqlite;
    sqlite3_config(SQLITE_CONFIG_MALLOC, &methods);
    // Without the memory that each connection keeps aside, its small blocks pass here too.
    sqlite3_config(SQLITE_CONFIG_LOOKASIDE, 0, 0);
}

namespace {

void* allocate_cpp(std::size_t size, std::size_t alignment) {
    if (fails(Memory::cpp)) return nullptr;
    if (alignment <= alignof(std::max_align_t)) return counted(std::malloc(size > 0 ? size : 1));
    return counted(std::aligned_alloc(alignment, (size + alignment - 1) / alignment * alignment));
}

void* allocate_cpp_or_throw(std::size_t size, std::size_t alignment) {
    void* const block = allocate_cpp(size, alignment);
    if (block == nullptr) throw std::bad_alloc();
    return block;
}

constexpr std::size_t usual = alignof(std::max_align_t);

}  // namespace

}  // namespace prot::faults

using prot::faults::allocate_cpp;
using prot::faults::allocate_cpp_or_throw;
using prot::faults::free_block;
using prot::faults::usual;

void* operator new(std::size_t size) { return allocate_cpp_or_throw(size, usual); }
void* operator new[](std::size_t size) { return allocate_cpp_or_throw(size, usual); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return allocate_cpp(size, usual); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return allocate_cpp(size, usual); }
void* operator new(std::size_t size, std::align_val_t alignment) {
    return allocate_cpp_or_throw(size, static_cast<std::size_t>(alignment));
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
    return allocate_cpp_or_throw(size, static_cast<std::size_t>(alignment));
}
void operator delete(void* block) noexcept { free_block(block); }
void operator delete[](void* block) noexcept { free_block(block); }
void operator delete(void* block, std::size_t) noexcept { free_block(block); }
void operator delete[](void* block, std::size_t) noexcept { free_block(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { free_block(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { free_block(block); }
void operator delete(void* block, std::align_val_t) noexcept { free_block(block); }
void operator delete[](void* block, std::align_val_t) noexcept { free_block(block); }
void operator delete(void* block, std::size_t, std::align_val_t) noexcept { free_block(block); }
void operator delete[](void* block, std::size_t, std::align_val_t) noexcept { free_block(block); }
