#include "apps/protcsv/report/report_text.h"
#include "tests/faults/support/file_size_limit.h"
#include "tests/faults/support/whole_run.h"

/// The report of a run cannot be written.
namespace prot::faults {
namespace {

class ReportFaults : public WholeRun {
protected:
    ReportFaults() { fill_with_story(log); }

    const std::filesystem::path report_file = folder / "bericht.json";

    WholeProgram reporting(const std::string& report) const {
        return WholeProgram({"export", "--db", log.file().string(), "--section", "15", "--output",
                             csv.string(), "--params", "/autostart", "--report", report});
    }
    std::string report() const {
        std::ifstream stream(report_file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    }
    /// Whether it is a report, to its last byte.
    static bool is_whole(const std::string& text) {
        return text.starts_with(report_beginning) && text.ends_with("\n}\n");
    }
    std::ptrdiff_t files_in_folder() const {
        return std::distance(std::filesystem::directory_iterator(folder), {});
    }
};

TEST_F(ReportFaults, ADiskThatIsFullLeavesNoHalfReportAndEveryFileThatWasTold) {
    WholeProgram program = reporting(report_file.string());
    ASSERT_EQ(program.run(section_table()), 0) << program.errors();
    const std::string last = report(), whole = file();
    ASSERT_TRUE(is_whole(last)) << last;
    int refused = 0, ended_in_vain = 0;
    for (std::size_t bytes = 0; bytes < last.size() + 100; bytes += 50) {
        SCOPED_TRACE(bytes);
        std::filesystem::remove(csv);
        const int status = [&] {
            const FileSizeLimit limit(bytes);
            return program.run(section_table());
        }();
        EXPECT_TRUE(is_whole(report())) << report();
        EXPECT_EQ(files_in_folder(), 3) << "database, report and the folder of the file";
        EXPECT_EQ(program.output(), std::filesystem::exists(csv) ? csv.string() + "\n" : "");
        if (std::filesystem::exists(csv)) {
            EXPECT_EQ(file(), whole);
        }
        if (status == 0) continue;
        EXPECT_EQ(status, 1);
        EXPECT_TRUE(tells_what_failed(program.errors())) << program.errors();
        const bool has_begun = report().find("\"outcome\": \"running\"") != std::string::npos;
        ++(has_begun && std::filesystem::exists(csv) ? ended_in_vain : refused);
        if (HasFailure()) return;
    }
    EXPECT_GE(refused, 10) << "before anything is written";
    EXPECT_GE(ended_in_vain, 1) << "when the file is there";
}

TEST_F(ReportFaults, ADeviceThatTakesNothingFailsTheRunAndLeavesItsFile) {
    WholeProgram program = reporting("/dev/full");
    EXPECT_EQ(program.run(section_table()), 1);
    EXPECT_NE(program.errors().find("„/dev/full“ kann nicht geschrieben werden: kein Platz mehr"),
              std::string::npos)
        << program.errors();
    EXPECT_EQ(program.output(), csv.string() + "\n");
    EXPECT_FALSE(file().empty());
}

TEST_F(ReportFaults, AFolderThatIsMissingEndsTheRunBeforeItBegins) {
    WholeProgram program = reporting((folder / "fehlt" / "bericht.json").string());
    EXPECT_EQ(program.run(section_table()), 1);
    EXPECT_NE(program.errors().find("der Ordner ist nicht vorhanden"), std::string::npos) << program.errors();
    EXPECT_EQ(files_in_out(), 0);
}

}  // namespace
}  // namespace prot::faults
