#include "apps/protcsv/displays/progress_bar.h"

#include <sstream>

#include <gtest/gtest.h>

namespace prot {
namespace {

using namespace std::chrono_literals;

class ProgressBarTest : public testing::Test {
protected:
    ProgressBarTest() : terminal(settings()) {}
    TerminalSettings settings() {
        TerminalSettings with_output;
        with_output.output = &output;
        return with_output;
    }

    std::ostringstream output;
    Terminal terminal;
    std::chrono::steady_clock::time_point now{1h};
    ProgressBar bar{terminal, [this] { return now; }};
};

TEST_F(ProgressBarTest, ShowsTheShareThatIsDone) {
    bar.gSetFortschritt(160, 400);
    EXPECT_EQ(output.str(), "\r[################........................] 40 %, 160 von 400");
}

TEST_F(ProgressBarTest, RedrawsAtMostTenTimesASecond) {
    bar.gSetFortschritt(0, 1000);
    now += 99ms;
    output.str("");
    bar.gSetFortschritt(160, 1000);
    EXPECT_EQ(output.str(), "");
    now += 1ms;
    bar.gSetFortschritt(320, 1000);
    EXPECT_NE(output.str(), "");
}

TEST_F(ProgressBarTest, HoldsTheShareOfTheLargestLog) {
    bar.gSetFortschritt(1610612736, 2147483647);
    EXPECT_EQ(output.str(), "\r[##############################..........] 75 %, 1610612736 von 2147483647")
        << "a little over three quarters";
}

TEST(ProgressBar, IsWipedWhenItEnds) {
    std::ostringstream output;
    TerminalSettings settings;
    settings.output = &output;
    Terminal terminal(settings);
    { ProgressBar(terminal).gSetFortschritt(0, 2); }
    const std::string bar = "[........................................] 0 %, 0 von 2";
    EXPECT_EQ(output.str(), "\r" + bar + "\r" + std::string(bar.size(), ' ') + "\r");
}

}  // namespace
}  // namespace prot
