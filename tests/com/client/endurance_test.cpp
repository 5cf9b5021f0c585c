#include <windows.h>

#include <psapi.h>

#include "tests/com/client/server_test.h"

namespace prot::test {

namespace {

using Endurance = ServerTest;

/// What the process holds.
struct Holdings {
    std::size_t heap = 0;  ///< bytes in use in all its heaps
    std::size_t working_set = 0;
    /// The number of the next handle. Freed ones are given out again, so that it tells of those not closed;
    /// Wine does not count them.
    std::size_t next_handle = 0;
};

std::size_t bytes_in_use(HANDLE heap) {
    std::size_t bytes = 0;
    HeapLock(heap);
    PROCESS_HEAP_ENTRY entry = {};
    while (HeapWalk(heap, &entry))
        if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) bytes += entry.cbData;
    HeapUnlock(heap);
    return bytes;
}

Holdings holdings() {
    Holdings result;
    HANDLE heaps[64];
    const DWORD count = GetProcessHeaps(64, heaps);
    for (DWORD i = 0; i < count && i < 64; ++i) result.heap += bytes_in_use(heaps[i]);
    PROCESS_MEMORY_COUNTERS counters = {};
    if (GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters))
        result.working_set = counters.WorkingSetSize;
    const HANDLE next = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    result.next_handle = reinterpret_cast<std::size_t>(next);
    CloseHandle(next);
    return result;
}

}  // namespace

TEST_F(Endurance, TenThousandObjectsOfWhichOneInThirtyWritesAFileLeaveNothingBehind) {
    constexpr int warm_up = 1000, cycles = 10000, per_file = 30;
    NamedDatabase by_name;
    InterfaceDatabase by_interface, failing;
    NamedProgress progress;
    failing.answers.fail_on(log_table_query, {E_FAIL, "SQL Server", "Fehler"});
    Holdings before;
    int files = 0;
    const auto cycle = [&](int number) {
        const auto object = entry();
        if (number % per_file == 0) {
            object->putref_poParent(&progress);
            IDispatch* const database =
                number / per_file % 2 == 0 ? static_cast<IDispatch*>(&by_name) : &by_interface;
            files += export_by_function(*object.borrow(), database).result == S_OK;
        } else if (number % 3 == 0) {
            EXPECT_EQ(export_by_function(*object.borrow(), &failing).result, E_FAIL);
        } else if (number % 3 == 1) {
            EXPECT_EQ(export_by_name(*object.borrow(), nullptr).result, DISP_E_EXCEPTION);
        } else {
            EXPECT_EQ(export_by_function(*rate_exporter().borrow(), nullptr).result,
                      static_cast<HRESULT>(0x800A005B));
            EXPECT_EQ(export_by_function(*object.borrow(), nullptr, 99).result, S_OK);
            EXPECT_EQ(put(*object.borrow(), L"poParent", null()).result, S_OK);
        }
        for (HostAnswers* const answers : {&by_name.answers, &by_interface.answers, &failing.answers})
            answers->asked.clear();
        progress.calls.clear();
    };
    for (int i = 0; i < warm_up + cycles; ++i) {
        if (i == warm_up) before = holdings();
        cycle(i);
    }
    const Holdings after = holdings();
    RecordProperty("heap_before", std::to_string(before.heap));
    RecordProperty("heap_after", std::to_string(after.heap));
    RecordProperty("working_set_before", std::to_string(before.working_set));
    RecordProperty("working_set_after", std::to_string(after.working_set));
    RecordProperty("next_handle_before", std::to_string(before.next_handle));
    RecordProperty("next_handle_after", std::to_string(after.next_handle));
    EXPECT_EQ(files, (warm_up + cycles + per_file - 1) / per_file);
    EXPECT_GT(before.heap, 0U);
    EXPECT_GT(before.working_set, 0U);
    EXPECT_LT(after.heap, before.heap + 16 * 1024) << "less than two bytes a cycle";
    EXPECT_LT(after.working_set, before.working_set + 2 * 1024 * 1024);
    EXPECT_LT(after.next_handle, before.next_handle + 400) << "less than a hundred handles, 4 apart";
    EXPECT_FALSE(folder.files().empty());
    EXPECT_EQ(by_name.references() + by_interface.references() + progress.references(), 3U);
}

}  // namespace prot::test
