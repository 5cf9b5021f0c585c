#include "tests/faults/support/faulty_vfs.h"
#include "tests/faults/support/whole_run.h"

/// Each access of the database to its file fails, in turn.
namespace prot::faults {
namespace {

class DatabaseFileFaults : public WholeRun {
protected:
    DatabaseFileFaults() { fill_with_story(log); }

    /// The status of a run during which accesses fail as `plan` says.
    int run(WholeProgram& program, FaultPlan& plan) {
        const FaultyVfs vfs(plan);
        return program.run(section_table());
    }
};

TEST_F(DatabaseFileFaults, LeaveTheEarlierFileOrTheWholeNewOne) {
    WholeProgram program = exporting();
    ASSERT_EQ(program.run(section_table()), 0);
    const std::string whole = file();
    for (const Failing failing : {Failing::once, Failing::from_then_on})
        for (std::size_t nth = 1;; ++nth) {
            SCOPED_TRACE("access " + std::to_string(nth));
            FaultPlan plan(nth, failing);
            put_earlier_file();
            const int status = run(program, plan);
            check_export(status, program, whole);
            if (status == 0) {
                EXPECT_EQ(file(), whole) << "a failed read is no missing caption";
            }
            if (!plan.reached()) {
                EXPECT_EQ(status, 0);
                EXPECT_GE(nth, 30u);
                break;
            }
            if (HasFailure()) return;
        }
}

TEST_F(DatabaseFileFaults, InTheMiddleOfALongLogLeaveTheEarlierFile) {
    log.run("DELETE FROM tProtokoll; DELETE FROM tProtokollMemo");
    fill_with_long_story(log);
    log.run("CREATE INDEX by_date ON tProtokoll (ddDatum)");  // the rows are read as they are needed
    WholeProgram program = exporting();
    ASSERT_EQ(program.run(section_table()), 0);
    const std::string whole = file();
    std::size_t failed_behind_the_first = 0;
    for (std::size_t nth = 1;; nth += 2) {
        SCOPED_TRACE("access " + std::to_string(nth));
        FaultPlan plan(nth, Failing::from_then_on);
        put_earlier_file();
        const int status = run(program, plan);
        EXPECT_TRUE(file() == (status == 0 ? whole : earlier));
        if (!plan.reached()) {
            EXPECT_EQ(status, 0);
            break;
        }
        if (program.errors().find("CProtDevCsv.mbAusgabeCSV") != std::string::npos) ++failed_behind_the_first;
        if (HasFailure()) return;
    }
    EXPECT_GE(failed_behind_the_first, 20u);
}

TEST_F(DatabaseFileFaults, OfADeletionNeitherHarmTheDatabaseNorClaimWhatIsNotSo) {
    WholeProgram program = deleting();
    for (const Failing failing : {Failing::once, Failing::from_then_on})
        for (std::size_t nth = 1;; ++nth) {
            SCOPED_TRACE("access " + std::to_string(nth));
            log.run("DELETE FROM tProtokoll; DELETE FROM tProtokollMemo");
            fill_with_story(log);
            FaultPlan plan(nth, failing);
            const int status = run(program, plan);
            check_deletion(status, program);
            if (!plan.reached()) {
                EXPECT_EQ(status, 0);
                EXPECT_GE(nth, 60u);
                break;
            }
            if (HasFailure()) return;
        }
}

}  // namespace
}  // namespace prot::faults
