#include "tests/faults/support/faulty_sections.h"
#include "tests/faults/support/file_size_limit.h"
#include "tests/faults/support/whole_run.h"

/// Each step of writing the file fails, in turn.
namespace prot::faults {
namespace {

class FileFaults : public WholeRun {
protected:
    Faults faults;

    FileFaults() {
        fill_with_story(log);
        faults.csv.folder = out;
    }
};

TEST_F(FileFaults, LeaveTheEarlierFileOrTheWholeNewOne) {
    WholeProgram program = exporting();
    ASSERT_EQ(program.run(sections_with(faults)), 0);
    const std::string whole = file();
    for (const Failing failing : {Failing::once, Failing::from_then_on})
        for (std::size_t nth = 1;; ++nth) {
            SCOPED_TRACE("step " + std::to_string(nth));
            faults.files = FaultPlan(nth, failing);
            put_earlier_file();
            const int status = program.run(sections_with(faults));
            check_export(status, program, whole);
            if (!faults.files.reached()) {
                EXPECT_EQ(status, 0);
                EXPECT_GE(nth, 10u);
                break;
            }
            EXPECT_EQ(status, 1);
            EXPECT_TRUE(names_a_place(program.errors())) << program.errors();
            if (HasFailure()) return;
        }
}

TEST_F(FileFaults, AFileThatCannotGrowToItsSizeIsNotLeftHalf) {
    WholeProgram program = exporting();
    ASSERT_EQ(program.run(section_table()), 0);
    const std::string whole = file();
    for (std::size_t bytes = 0; bytes <= whole.size(); bytes += bytes + 50 < whole.size() ? 50 : 1) {
        SCOPED_TRACE(bytes);
        put_earlier_file();
        const int status = [&] {
            const FileSizeLimit limit(bytes);
            return program.run(section_table());
        }();
        check_export(status, program, whole);
        EXPECT_EQ(status, bytes < whole.size() ? 1 : 0);
        if (status == 1) {
            EXPECT_TRUE(names_a_place(program.errors())) << program.errors();
        }
        if (HasFailure()) return;
    }
}

TEST_F(FileFaults, AStandardOutputThatIsFullLeavesTheWholeFileAndIsReported) {
    const std::string command = "'" PROT_PROGRAM "' export --db '" + log.file().string() +
                                "' --section 15 --params /autostart --out '" + out.string() +
                                "' >/dev/full 2>'" + (folder / "stderr").string() + "'";
    const int status = std::system(command.c_str());
    EXPECT_EQ(WEXITSTATUS(status), 1);
    EXPECT_EQ(files_in_out(), 1);
    EXPECT_EQ(std::filesystem::directory_iterator(out)->path().extension(), ".csv");
}

}  // namespace
}  // namespace prot::faults
