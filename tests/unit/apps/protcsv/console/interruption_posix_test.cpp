#include "apps/protcsv/console/interruption.h"

#include <csignal>
#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include <unistd.h>

namespace prot {
namespace {

class InterruptionPosixTest : public testing::TestWithParam<int> {
protected:
    InterruptionPosixTest() { std::ofstream(path) << "halb"; }
    ~InterruptionPosixTest() override { std::filesystem::remove(path); }

    const std::string path =
        std::filesystem::temp_directory_path() /
        ("interruption_test_" + std::to_string(getpid()) + "_" + std::to_string(GetParam()));
};

TEST_P(InterruptionPosixTest, RemovesTheUnfinishedFileAndExitsWithTheSignalsStatus) {
    EXPECT_EXIT(
        {
            handle_interruptions();
            set_unfinished_file(path);
            std::raise(GetParam());
        },
        testing::ExitedWithCode(128 + GetParam()), "");
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_P(InterruptionPosixTest, LeavesAFinishedFile) {
    EXPECT_EXIT(
        {
            handle_interruptions();
            set_unfinished_file(path);
            set_unfinished_file({});
            std::raise(GetParam());
        },
        testing::ExitedWithCode(128 + GetParam()), "");
    EXPECT_TRUE(std::filesystem::exists(path));
}

INSTANTIATE_TEST_SUITE_P(Signals, InterruptionPosixTest, testing::Values(SIGINT, SIGTERM, SIGHUP));

TEST(InterruptionPosix, WaitsForAStatementThatMustRunToItsEnd) {
    EXPECT_EXIT(
        {
            handle_interruptions();
            {
                const InterruptionsWait wait;
                std::raise(SIGINT);
                std::fputs("ausgeführt", stderr);
            }
            _exit(7);
        },
        testing::ExitedWithCode(130), "ausgeführt");
}

TEST(InterruptionPosix, KeepsAHangUpIgnoredThatTheCallerIgnores) {
    EXPECT_EXIT(
        {
            std::signal(SIGHUP, SIG_IGN);
            handle_interruptions();
            std::raise(SIGHUP);
            _exit(7);
        },
        testing::ExitedWithCode(7), "");
}

}  // namespace
}  // namespace prot
