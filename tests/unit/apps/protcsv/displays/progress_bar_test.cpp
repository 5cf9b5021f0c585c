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
        with_output.columns = [this] { return columns; };
        return with_output;
    }

    std::string drawn_at(std::size_t width, std::int32_t done, std::int32_t total) {
        columns = width;
        now += 1h;
        terminal.clear_status();
        output.str("");
        bar.gSetFortschritt(done, total);
        return output.str().substr(1);
    }

    std::ostringstream output;
    std::size_t columns = 80;
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
    EXPECT_EQ(output.str(),
              "\r[#############################..........] 75 %, 1 610 612 736 von 2 147 483 647")
        << "a little over three quarters; the digits in groups";
}

TEST_F(ProgressBarTest, BecomesShorterWithTheTerminalAndIsNeverWrapped) {
    EXPECT_EQ(drawn_at(80, 160, 400), "[################........................] 40 %, 160 von 400");
    EXPECT_EQ(drawn_at(41, 160, 400), "[########............] 40 %, 160 von 400");
    EXPECT_EQ(drawn_at(31, 160, 400), "[####......] 40 %, 160 von 400");
    EXPECT_EQ(drawn_at(30, 160, 400), "40 %, 160 von 400") << "no room for a bar";
    EXPECT_EQ(drawn_at(17, 160, 400), "40 %") << "no room for the numbers";
    EXPECT_EQ(drawn_at(3, 160, 400), "40") << "not even for the share";
    EXPECT_EQ(drawn_at(0, 160, 400), "");
    for (std::size_t width = 0; width <= 200; ++width)
        EXPECT_LE(drawn_at(width, 2000000000, 2147483647).size(), width == 0 ? 0 : width - 1) << width;
}

TEST_F(ProgressBarTest, FollowsATerminalThatChangesItsWidthDuringTheRun) {
    bar.gSetFortschritt(0, 1000);
    columns = 30;
    now += 1h;
    output.str("");
    bar.gSetFortschritt(160, 1000);
    EXPECT_EQ(output.str(), "\r16 %, 160 von 1 000          ") << "what is wiped is not wrapped either";
}

TEST_F(ProgressBarTest, HasNoColoursSoThatNoColorAsksForNothingElse) {
    bar.gSetFortschritt(160, 400);
    EXPECT_EQ(output.str().find('\x1B'), std::string::npos);
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
