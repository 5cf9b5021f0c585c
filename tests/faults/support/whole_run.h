#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "sections/section_table.h"
#include "tests/faults/support/log_database.h"
#include "tests/faults/support/outcome.h"
#include "tests/faults/support/whole_program.h"

namespace prot::faults {

/// A folder of the running test's own with the database of a log and a place for files.
class WholeRun : public testing::Test {
protected:
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / folder_name();
    const std::filesystem::path out = made(folder / "out");
    const std::filesystem::path csv = out / "kurse.csv";
    const std::string earlier = "die Datei des letzten Laufs\r\n";

    ~WholeRun() override { std::filesystem::remove_all(folder); }

    LogDatabase log{folder / "log.db"};

    /// An interactive export of everything to the file `csv`.
    WholeProgram exporting() const {
        return WholeProgram({"export", "--db", log.file().string(), "--section", "15", "--from", "2026-01-01",
                             "--out", out.string(), "--answers", "-"},
                            "CHF\nUSD\nkurse.csv\n");
    }

    WholeProgram deleting() const {
        return WholeProgram({"delete", "--db", log.file().string(), "--section", "15", "--from", "2026-01-01",
                             "--params", "/autostart", "--yes"});
    }

    void put_earlier_file() const { std::ofstream(csv, std::ios::binary) << earlier; }

    std::string file() const {
        std::ifstream stream(csv, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    }

    /// An export came to `status`: the file is the earlier one or `whole`, as its status says, nothing lies
    /// beside it, and the path is printed for a new file only. A caption that could not be looked up is a
    /// field without caption: its line may be missing, and then the notices count it. `usual`: what they
    /// count in every run.
    void check_export(int status, const WholeProgram& program, const std::string& whole,
                      std::ptrdiff_t usual = 1) const {
        const std::string written = file();
        const bool is_written = status == 0 || status == 4;
        EXPECT_TRUE(is_written || status == 1) << status;
        EXPECT_EQ(files_in_out(), 1);
        if (is_written) {
            EXPECT_EQ(status == 4, tells_of_failed_lookups(program.errors())) << program.errors();
            EXPECT_EQ(lines_left_out(whole, written), fields_without_caption(program.errors()) - usual)
                << written << program.errors();
            EXPECT_EQ(program.output(), csv.string() + "\n");
        } else {
            EXPECT_TRUE(written == earlier || written == whole) << written;
            EXPECT_EQ(program.output(), "");
            EXPECT_TRUE(tells_what_failed(program.errors())) << program.errors();
        }
    }

    /// A deletion came to `status`: what it claims as deleted is deleted, memo rows go before the log, and
    /// the database is sound.
    void check_deletion(int status, const WholeProgram& program) {
        EXPECT_TRUE(status == 0 || status == 1) << status;
        const std::int64_t records = log.number("SELECT COUNT(*) FROM tProtokoll");
        const std::int64_t memos = log.number("SELECT COUNT(*) FROM tProtokollMemo");
        EXPECT_TRUE((records == 4 && memos == 3) || memos == 0)
            << records << " records, " << memos << " memos\n"
            << program.errors();
        EXPECT_TRUE(records == 4 || records == 0) << records;
        if (status == 0) {
            EXPECT_EQ(records, 0) << program.errors();
        } else {
            EXPECT_TRUE(tells_what_failed(program.errors())) << program.errors();
        }
        EXPECT_EQ(log.text("PRAGMA integrity_check"), "ok");
    }

    std::ptrdiff_t files_in_out() const {
        return std::distance(std::filesystem::directory_iterator(out), {});
    }

private:
    static std::string folder_name() {
        const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
        std::string name =
            "faults-" + std::to_string(getpid()) + "-" + test.test_suite_name() + "-" + test.name();
        std::replace(name.begin(), name.end(), '/', '-');
        return name;
    }

    static std::filesystem::path made(const std::filesystem::path& path) {
        std::filesystem::create_directories(path);
        return path;
    }
};

}  // namespace prot::faults
