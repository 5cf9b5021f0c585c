#include "tests/faults/support/faulty_sections.h"
#include "tests/faults/support/whole_run.h"

/// Each statement of a whole run fails once, in turn.
namespace prot::faults {
namespace {

struct StatementFault {
    const char* why;
    Failing failing;
    bool connection_fails;
};

constexpr StatementFault statement_faults[] = {
    {"a timeout passes", Failing::once, false},
    {"a right that was taken away stays away", Failing::from_then_on, false},
    {"a connection that broke answers nothing more", Failing::from_then_on, true},
    {"nor does one that broke without a later statement to notice", Failing::once, true},
};

class StatementFaults : public WholeRun {
protected:
    Faults faults;

    StatementFaults() {
        fill_with_story(log);
        faults.csv.folder = out;
    }

    bool is_caption_lookup(const std::string& sql) const {
        return sql.starts_with("SELECT tSysQuvoColumns.");
    }
};

TEST_F(StatementFaults, LeaveTheEarlierFileOrTheWholeNewOne) {
    WholeProgram program = exporting();
    ASSERT_EQ(program.run(sections_with(faults)), 0);
    const std::string whole = file();
    for (const StatementFault& fault : statement_faults) {
        std::size_t runs = 0;
        for (std::size_t nth = 1;; ++nth) {
            SCOPED_TRACE(std::string(fault.why) + ", call " + std::to_string(nth));
            faults = {FaultPlan(nth, fault.failing), fault.connection_fails, {}, faults.csv, {}};
            put_earlier_file();
            const int status = program.run(sections_with(faults));
            check_export(status, program, whole);
            if (!faults.statements.reached()) break;
            ++runs;
            if (status != 1) {
                EXPECT_FALSE(fault.connection_fails);
                for (const std::string& sql : faults.failed_statements)
                    EXPECT_TRUE(is_caption_lookup(sql)) << sql;
            } else {
                EXPECT_TRUE(names_a_place(program.errors())) << program.errors();
                EXPECT_EQ(file(), earlier);
            }
            if (HasFailure()) return;
        }
        EXPECT_GE(runs, 10u);
    }
}

TEST_F(StatementFaults, OfADeletionAreReportedAndClaimNothing) {
    WholeProgram program = deleting();
    for (const StatementFault& fault : statement_faults)
        for (std::size_t nth = 1;; ++nth) {
            SCOPED_TRACE(std::string(fault.why) + ", call " + std::to_string(nth));
            log.run("DELETE FROM tProtokoll; DELETE FROM tProtokollMemo");
            fill_with_story(log);
            faults = {FaultPlan(nth, fault.failing), fault.connection_fails, {}, faults.csv, {}};
            const int status = program.run(sections_with(faults));
            check_deletion(status, program);
            if (!faults.statements.reached()) {
                EXPECT_EQ(status, 0);
                EXPECT_GE(nth, 7u);
                break;
            }
            EXPECT_EQ(status, 1);
            EXPECT_TRUE(names_a_place(program.errors())) << program.errors();
            if (HasFailure()) return;
        }
}

}  // namespace
}  // namespace prot::faults
