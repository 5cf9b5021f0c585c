#include "platform/progress_pace.h"

#include <gtest/gtest.h>

namespace prot {
namespace {

using namespace std::chrono_literals;

class ProgressPaceTest : public testing::Test {
protected:
    std::chrono::steady_clock::time_point now{1h};
    int looks = 0;
    ProgressPace pace{100ms, [this] {
                          ++looks;
                          return now;
                      }};
};

TEST_F(ProgressPaceTest, ShowsAtMostOneStepInAnInterval) {
    EXPECT_TRUE(pace.is_due(0, 1000));
    now += 99ms;
    EXPECT_FALSE(pace.is_due(160, 1000));
    now += 1ms;
    EXPECT_TRUE(pace.is_due(320, 1000));
    EXPECT_FALSE(pace.is_due(336, 1000));
}

TEST_F(ProgressPaceTest, ShowsTheFirstStepOfTheNextRunAtOnce) {
    EXPECT_TRUE(pace.is_due(0, 1000));
    pace.restart();
    EXPECT_TRUE(pace.is_due(0, 1000));
}

TEST_F(ProgressPaceTest, SeldomLooksAtTheClock) {
    for (std::int32_t done = 0; done < 1600; ++done) pace.is_due(done, 1600);
    EXPECT_EQ(looks, 100);
}

TEST_F(ProgressPaceTest, ShowsNoNumbersThatAreNoProgress) {
    struct Row {
        std::int32_t done, total;
        bool shown;
        const char* why;
    };
    // clang-format off
    constexpr Row rows[] = {
        {0,   0,  false, "a run of no records"},
        {-16, 10, false, "before the first record"},
        {32,  16, false, "behind the last record"},
        {16,  16, true,  "all are done"},
        {0,   1,  true,  "the only record"},
    };
    // clang-format on
    for (const Row& row : rows) {
        now += 1s;
        EXPECT_EQ(pace.is_due(row.done, row.total), row.shown) << row.why;
    }
}

}  // namespace
}  // namespace prot
