#include "apps/protcsv/console/interruption.h"

#include <cstdio>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include <windows.h>

#include "tests/unit/support/temporary_folder.h"

namespace prot {
namespace {

constexpr unsigned other_status = 7;

/// Presses Ctrl-C in a console that this process has for itself alone, and ends by itself when that does
/// nothing.
void press_ctrl_c() {
    FreeConsole();
    if (AllocConsole() == 0) std::fprintf(stderr, "no console: %lu\n", GetLastError());
    if (GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0) == 0)
        std::fprintf(stderr, "no event: %lu\n", GetLastError());
}

/// The path of a file, which this same test made in the parent process.
std::string file_of_the_parent() {
    char text[MAX_PATH] = "";
    GetEnvironmentVariableA("PROT_TEST_FILE", text, sizeof text);
    return text;
}

class InterruptionWindowsTest : public testing::Test {
protected:
    // Each test is run again, from its start, by the process that is to be interrupted.
    InterruptionWindowsTest() {
        testing::FLAGS_gtest_death_test_style = "threadsafe";
        if (!file_of_the_parent().empty()) return;
        folder.emplace();
        write_file(*folder / "halb", "halb");
        SetEnvironmentVariableA("PROT_TEST_FILE", folder->text("halb").c_str());
    }
    ~InterruptionWindowsTest() override { SetEnvironmentVariableA("PROT_TEST_FILE", nullptr); }

    bool file_exists() const { return std::filesystem::exists(*folder / "halb"); }

    std::optional<TemporaryFolder> folder;  // the parent's; whoever is interrupted tidies nothing up
};

TEST_F(InterruptionWindowsTest, RemovesTheUnfinishedFileAndExitsWithItsStatus) {
    EXPECT_EXIT(
        {
            handle_interruptions();
            set_unfinished_file(file_of_the_parent());
            press_ctrl_c();
            Sleep(10'000);
            ExitProcess(other_status);
        },
        testing::ExitedWithCode(130), "");
    EXPECT_FALSE(file_exists());
}

TEST_F(InterruptionWindowsTest, LeavesAFinishedFile) {
    EXPECT_EXIT(
        {
            handle_interruptions();
            set_unfinished_file(file_of_the_parent());
            set_unfinished_file({});
            press_ctrl_c();
            Sleep(10'000);
            ExitProcess(other_status);
        },
        testing::ExitedWithCode(130), "");
    EXPECT_TRUE(file_exists());
}

TEST_F(InterruptionWindowsTest, WaitsForAStatementThatMustRunToItsEnd) {
    EXPECT_EXIT(
        {
            handle_interruptions();
            {
                const InterruptionsWait wait;
                press_ctrl_c();
                Sleep(500);
                std::fputs("executed", stderr);
                std::fflush(stderr);
            }
            Sleep(10'000);
            ExitProcess(other_status);
        },
        testing::ExitedWithCode(130), "executed");
}

}  // namespace
}  // namespace prot
