#include "apps/protcsv/console/process.h"

#include <cstdlib>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace prot {
namespace {

TEST(ProcessPosix, ArgumentsAreThoseBehindTheProgramsName) {
    std::string program = "protcsv", command = "export", text = "Ü \xFF";
    char* arguments[] = {program.data(), command.data(), text.data(), nullptr};
    EXPECT_EQ(process_arguments(3, arguments), (std::vector<std::string>{command, text}));
    EXPECT_EQ(process_arguments(1, arguments), std::vector<std::string>());
    EXPECT_EQ(process_arguments(0, arguments + 3), std::vector<std::string>()) << "no name either";
}

/// Stands in for a person's terminal, or for a file.
int open_end(bool terminal) {
    if (!terminal) return open("/dev/null", O_RDWR);
    const int master = posix_openpt(O_RDWR | O_NOCTTY);
    if (master == -1 || grantpt(master) != 0 || unlockpt(master) != 0) return -1;
    return open(ptsname(master), O_RDWR | O_NOCTTY);
}

TEST(ProcessPosix, AScreenIsWhereAPersonTypesAndReads) {
    const struct {
        bool in, err, full_screen;
    } rows[] = {{false, false, false}, {false, true, false}, {true, false, false}, {true, true, true}};
    for (const auto& row : rows)
        EXPECT_EXIT(
            {
                const bool redirected = dup2(open_end(row.in), STDIN_FILENO) != -1 &&
                                        dup2(open_end(row.err), STDERR_FILENO) != -1;
                const Console console = standard_console();
                std::_Exit(redirected && console.in_is_terminal == row.in &&
                                   console.err_is_terminal == row.err &&
                                   console.full_screen == row.full_screen
                               ? 7
                               : 1);
            },
            testing::ExitedWithCode(7), "")
            << row.in << row.err;
}

TEST(ProcessPosix, ALineCanBeReplacedUnlessTheTerminalIsDumb) {
    const struct {
        const char* type;
        bool dumb;
    } rows[] = {{"xterm-256color", false}, {"dumb", true}, {"", true}};
    for (const auto& row : rows) {
        setenv("TERM", row.type, 1);
        const Console console = standard_console();
        EXPECT_EQ(console.err_is_dumb, row.dumb) << row.type;
        EXPECT_EQ(console.err_erases, !row.dumb) << row.type;
    }
    unsetenv("TERM");
    EXPECT_TRUE(standard_console().err_is_dumb) << "nobody says what it is";
}

TEST(ProcessPosix, KnowsHowWideTheTerminalIsNow) {
    EXPECT_EXIT(
        {
            const int terminal = open_end(true);
            dup2(terminal, STDERR_FILENO);
            const Console console = standard_console();
            const bool unknown = console.err_columns() == 80;
            winsize size{};
            size.ws_col = 33;
            ioctl(terminal, TIOCSWINSZ, &size);
            std::_Exit(unknown && console.err_columns() == 33 ? 7 : 1);
        },
        testing::ExitedWithCode(7), "");
}

}  // namespace
}  // namespace prot
