#include "platform/portable/time/system_clock.h"

#include <cstdlib>
#include <ctime>

#include <gtest/gtest.h>

namespace prot {
namespace {

TEST(SystemClock, TellsTheLocalTimeOfNow) {
    SystemClock clock;
    const std::time_t before = std::time(nullptr);
    const CivilTime now = clock.now();
    const std::time_t after = std::time(nullptr);
    EXPECT_TRUE(is_valid(now));
    std::tm local{};
    local.tm_year = now.year - 1900;
    local.tm_mon = now.month - 1;
    local.tm_mday = now.day;
    local.tm_hour = now.hour;
    local.tm_min = now.minute;
    local.tm_sec = now.second;
    local.tm_isdst = std::localtime(&before)->tm_isdst;
    const std::time_t told = std::mktime(&local);
    EXPECT_GE(told, before);
    EXPECT_LE(told, after);
}

}  // namespace
}  // namespace prot
