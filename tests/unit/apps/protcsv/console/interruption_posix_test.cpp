#include "apps/protcsv/console/interruption.h"

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

namespace prot {
namespace {

/// Installs the handlers in a process whose parent may have ignored or held back any of the signals.
void handle_all_interruptions() {
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGPIPE}) std::signal(signal, SIG_DFL);
    handle_interruptions();
}

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
            handle_all_interruptions();
            set_unfinished_file(path);
            std::raise(GetParam());
        },
        testing::ExitedWithCode(128 + GetParam()), "");
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_P(InterruptionPosixTest, SaysOnALineOfItsOwnThatTheRunWasStopped) {
    EXPECT_EXIT(
        {
            handle_all_interruptions();
            std::raise(GetParam());
        },
        testing::ExitedWithCode(128 + GetParam()), "^abgebrochen\n$");
}

TEST_P(InterruptionPosixTest, LeavesAFinishedFile) {
    EXPECT_EXIT(
        {
            handle_all_interruptions();
            set_unfinished_file(path);
            set_unfinished_file({});
            std::raise(GetParam());
        },
        testing::ExitedWithCode(128 + GetParam()), "");
    EXPECT_TRUE(std::filesystem::exists(path));
}

TEST_P(InterruptionPosixTest, RemovesTheUnfinishedFolderWithItsFiles) {
    const std::filesystem::path folder = path + ".ordner";
    std::filesystem::create_directory(folder);
    for (const char* name : {"a", "b"}) std::ofstream(folder / name) << "halb";
    EXPECT_EXIT(
        {
            handle_all_interruptions();
            set_unfinished_folder(folder, std::vector<std::string>{"a", "fehlt", "b"});
            std::raise(GetParam());
        },
        testing::ExitedWithCode(128 + GetParam()), "");
    EXPECT_FALSE(std::filesystem::exists(folder));
}

TEST_P(InterruptionPosixTest, LeavesAFinishedFolder) {
    const std::filesystem::path folder = path + ".fertig";
    std::filesystem::create_directory(folder);
    std::ofstream(folder / "a") << "ganz";
    EXPECT_EXIT(
        {
            handle_all_interruptions();
            set_unfinished_folder(folder, std::vector<std::string>{"a"});
            set_unfinished_folder({}, {});
            std::raise(GetParam());
        },
        testing::ExitedWithCode(128 + GetParam()), "");
    EXPECT_TRUE(std::filesystem::exists(folder / "a"));
    std::filesystem::remove_all(folder);
}

INSTANTIATE_TEST_SUITE_P(Signals, InterruptionPosixTest, testing::Values(SIGINT, SIGTERM, SIGHUP));

TEST(InterruptionPosix, LeavesTheLineOfATerminalBeforeItsLastWords) {
    const int master = posix_openpt(O_RDWR | O_NOCTTY);
    ASSERT_TRUE(master != -1 && grantpt(master) == 0 && unlockpt(master) == 0);
    const int terminal = open(ptsname(master), O_RDWR | O_NOCTTY);
    EXPECT_EXIT(
        {
            dup2(terminal, STDERR_FILENO);
            handle_all_interruptions();
            std::raise(SIGINT);
        },
        testing::ExitedWithCode(130), "");
    char text[64] = "";
    EXPECT_GT(read(master, text, sizeof text - 1), 0);
    EXPECT_STREQ(text, "\r\nabgebrochen\r\n");
    close(terminal);
    close(master);
}

TEST(InterruptionPosix, WaitsForAStatementThatMustRunToItsEnd) {
    EXPECT_EXIT(
        {
            handle_all_interruptions();
            {
                const InterruptionsWait wait;
                std::raise(SIGINT);
                std::fputs("ausgeführt", stderr);
            }
            _exit(7);
        },
        testing::ExitedWithCode(130), "ausgeführt");
}

TEST(InterruptionPosix, WaitsForTheOuterOfTwoStatements) {
    EXPECT_EXIT(
        {
            handle_all_interruptions();
            {
                const InterruptionsWait outer;
                { const InterruptionsWait inner; }
                std::raise(SIGINT);
                std::fputs("ausgeführt", stderr);
            }
            _exit(7);
        },
        testing::ExitedWithCode(130), "ausgeführt");
}

TEST(InterruptionPosix, KeepsHeldBackWhatTheCallerHoldsBack) {
    EXPECT_EXIT(
        {
            handle_all_interruptions();
            sigset_t held_back;
            sigemptyset(&held_back);
            sigaddset(&held_back, SIGTERM);
            sigprocmask(SIG_BLOCK, &held_back, nullptr);
            { const InterruptionsWait wait; }
            std::raise(SIGTERM);
            _exit(7);
        },
        testing::ExitedWithCode(7), "");
}

TEST(InterruptionPosix, EndsWithTheStatusOfTheSignalThatItIsBeingStoppedBy) {
    EXPECT_EXIT(
        {
            handle_all_interruptions();
            {
                const InterruptionsWait wait;
                std::raise(SIGTERM);
                std::raise(SIGINT);  // both wait; the system delivers the lower number first
            }
            _exit(7);
        },
        testing::ExitedWithCode(130), "")
        << "no other one may break in on the removal";
}

TEST(InterruptionPosix, IsStoppedByCtrlCAlthoughTheCallerIgnoresIt) {
    EXPECT_EXIT(
        {
            std::signal(SIGINT, SIG_IGN);
            handle_interruptions();
            std::raise(SIGINT);
            _exit(7);
        },
        testing::ExitedWithCode(130), "");
}

TEST(InterruptionPosix, GetsAWriteErrorFromAClosedPipe) {
    EXPECT_EXIT(
        {
            handle_all_interruptions();
            int ends[2];
            if (pipe(ends) != 0) _exit(1);
            close(ends[0]);
            const bool broken = write(ends[1], "x", 1) == -1 && errno == EPIPE;
            _exit(broken ? 7 : 1);
        },
        testing::ExitedWithCode(7), "");
}

TEST(InterruptionPosix, RemovesNothingForAPathThatIsTooLongToBeOpened) {
    // Cut off, or with its first part kept, it would name a file that is there.
    const std::string path =
        std::filesystem::temp_directory_path() / ("interruption_long_" + std::to_string(getpid()));
    std::ofstream(path) << "ganz";
    const std::string padding(PATH_MAX - 1 - path.size(), '/');
    const std::string longest = padding + path, too_long = longest + "x";
    ASSERT_EQ(longest.size(), static_cast<std::size_t>(PATH_MAX - 1));
    EXPECT_EXIT(
        {
            handle_all_interruptions();
            set_unfinished_file(longest);
            set_unfinished_file(too_long);
            std::raise(SIGTERM);
        },
        testing::ExitedWithCode(128 + SIGTERM), "");
    EXPECT_TRUE(std::filesystem::exists(path));
    EXPECT_EXIT(
        {
            handle_all_interruptions();
            set_unfinished_file(longest);
            std::raise(SIGTERM);
        },
        testing::ExitedWithCode(128 + SIGTERM), "");
    EXPECT_FALSE(std::filesystem::exists(path)) << "a path that just fits";
    std::filesystem::remove(path);
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
