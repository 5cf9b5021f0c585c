#include <string>
#include <vector>

#include "tests/faults/failing_memory/failing_memory.h"
#include "tests/faults/support/whole_run.h"

/// Each allocation of a whole run fails, in turn.
namespace prot::faults {
namespace {

struct MemoryFault {
    const char* name;
    const char* why;
    Memory memory;
    Failing failing;
    const char* encoding;
    std::size_t fewest;  ///< allocations of an export that have to have failed
};

void PrintTo(const MemoryFault& fault, std::ostream* out) { *out << fault.why; }

// clang-format off
constexpr MemoryFault memory_faults[] = {
    {"Once", "a large request fails, and memory is left for the report",
     Memory::cpp, Failing::once, "UTF-8", 1000},
    {"FromThenOn", "no memory is left for the report either",
     Memory::cpp, Failing::from_then_on, "UTF-8", 1000},
    {"SqliteOnce", "an answer may come back without its texts", Memory::sqlite, Failing::once, "UTF-8", 300},
    {"SqliteFromThenOn", "nothing is answered any more",
     Memory::sqlite, Failing::from_then_on, "UTF-8", 300},
    {"SqliteUtf16Once", "each text is converted, into memory of its own",
     Memory::sqlite, Failing::once, "UTF-16le", 300},
    {"SqliteUtf16FromThenOn", "likewise, and for good",
     Memory::sqlite, Failing::from_then_on, "UTF-16le", 300},
};
// clang-format on

/// SQLite's memory is taken over before the base opens its first database.
struct SqliteMemory {
    SqliteMemory() { take_over_sqlite_memory(); }
};

class MemoryFaults : private SqliteMemory, public WholeRun, public testing::WithParamInterface<MemoryFault> {
protected:
    MemoryFaults() {
        std::filesystem::remove(log.file());
        log = LogDatabase(log.file(), GetParam().encoding);
        fill_with_story(log);
    }

    struct Run {
        int status = -1;
        bool reached = false;
        std::ptrdiff_t leaked = 0;  ///< blocks
    };

    Run run(WholeProgram& program, std::size_t nth) {
        const std::ptrdiff_t before = live_blocks();
        Run result;
        {
            const FailingMemory failing(GetParam().memory, nth, GetParam().failing);
            result.status = program.run(section_table());
            result.reached = failing.reached();
        }
        result.leaked = live_blocks() - before;
        return result;
    }

    /// What a program allocates once and keeps is allocated before blocks are counted.
    void warm_up(WholeProgram& program) {
        for (std::size_t nth = 1; nth < 4000; nth = nth * 3 / 2 + 1) run(program, nth);
    }
};

TEST_P(MemoryFaults, LeaveTheEarlierFileOrTheWholeNewOneAndNoBlockBehind) {
    WholeProgram program = exporting();
    ASSERT_EQ(program.run(section_table()), 0);
    const std::string whole = file();
    ASSERT_EQ(lines_in(whole).size(), 6u);
    warm_up(program);
    for (std::size_t nth = 1;; ++nth) {
        SCOPED_TRACE("allocation " + std::to_string(nth));
        put_earlier_file();
        const Run result = run(program, nth);
        check_export(result.status, program, whole);
        EXPECT_EQ(result.leaked, 0);
        if (!result.reached) {
            EXPECT_EQ(result.status, 0);
            EXPECT_GE(nth, GetParam().fewest);
            break;
        }
        if (HasFailure()) return;
    }
}

/// Some of the many allocations of a log that is read ahead, on either thread.
class LongLogMemoryFaults : public MemoryFaults {
protected:
    LongLogMemoryFaults() {
        log.run("DELETE FROM tProtokoll; DELETE FROM tProtokollMemo");
        fill_with_long_story(log);
    }
};

TEST_P(LongLogMemoryFaults, LeaveTheEarlierFileOrTheWholeNewOneAndNoBlockBehind) {
    WholeProgram program = exporting();
    ASSERT_EQ(program.run(section_table()), 0);
    const std::string whole = file();
    ASSERT_GT(lines_in(whole).size(), 2000u);
    const std::ptrdiff_t usual = fields_without_caption(program.errors());
    warm_up(program);
    for (std::size_t nth = 1;; nth += 1 + nth / 16) {
        SCOPED_TRACE("allocation " + std::to_string(nth));
        put_earlier_file();
        const Run result = run(program, nth);
        check_export(result.status, program, whole, usual);
        EXPECT_EQ(result.leaked, 0);
        if (!result.reached) {
            EXPECT_EQ(result.status, 0);
            break;
        }
        if (HasFailure()) return;
    }
}

class DeletionMemoryFaults : public MemoryFaults {};

TEST_P(DeletionMemoryFaults, ClaimNothingAndLeaveNoBlockBehind) {
    WholeProgram program = deleting();
    warm_up(program);
    for (std::size_t nth = 1;; ++nth) {
        SCOPED_TRACE("allocation " + std::to_string(nth));
        if (log.number("SELECT COUNT(*) FROM tProtokollMemo") == 0) {
            log.run("DELETE FROM tProtokoll");
            fill_with_story(log);
        }
        const Run result = run(program, nth);
        check_deletion(result.status, program);
        EXPECT_EQ(result.leaked, 0);
        if (!result.reached) break;
        if (HasFailure()) return;
    }
}

std::string name_of(const testing::TestParamInfo<MemoryFault>& fault) { return fault.param.name; }

INSTANTIATE_TEST_SUITE_P(Cases, MemoryFaults, testing::ValuesIn(memory_faults), name_of);
INSTANTIATE_TEST_SUITE_P(Cases, LongLogMemoryFaults, testing::ValuesIn(memory_faults, memory_faults + 4),
                         name_of);
INSTANTIATE_TEST_SUITE_P(Cases, DeletionMemoryFaults, testing::ValuesIn(memory_faults), name_of);

}  // namespace
}  // namespace prot::faults
