#include <chrono>
#include <csignal>
#include <sstream>
#include <thread>

#include <gtest/gtest.h>

#include "tests/terminal/pane.h"

/// The line that shows how far a run is, on a terminal that changes its width.
namespace prot {
namespace {

constexpr const char* long_run = "sample gross.db --rows 20000000";

/// The lines of the pane that a bar, or a part of one, stands in.
long lines_with_bars(const std::string& screen) {
    std::istringstream lines(screen);
    long count = 0;
    for (std::string line; std::getline(lines, line);)
        count += line.find("20 000 000") != std::string::npos || line.find("...") != std::string::npos;
    return count;
}

TEST(StatusLine, StaysOneLineWhateverTheTerminalsWidth) {
    test::Pane pane(100, 24);
    pane.start(long_run);
    pane.expect_text("........................................] 0 %, ");
    pane.resize(60, 24);
    pane.expect_text("[..............");
    pane.resize(24, 24);
    pane.resize(50, 24);
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    EXPECT_EQ(lines_with_bars(pane.screen()), 1) << pane.screen();
    pane.resize(100, 24);
    pane.press({"C-c"});
    pane.expect_text("\nabgebrochen\n");
    EXPECT_EQ(pane.exit_status(), 130);
}

TEST(StatusLine, ADumbTerminalGetsNone) {
    test::Pane pane(80, 24);
    pane.start(long_run, "TERM=dumb");
    std::this_thread::sleep_for(std::chrono::seconds(1));
    EXPECT_EQ(lines_with_bars(pane.screen()), 0) << pane.screen();
    kill(pane.process(), SIGTERM);
    pane.expect_text("\nabgebrochen\n");
    EXPECT_EQ(pane.exit_status(), 143);
}

}  // namespace
}  // namespace prot
