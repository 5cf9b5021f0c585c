#include <cstdlib>
#include <ctime>

#include <gtest/gtest.h>

#include "platform/portable/time/system_clock.h"

namespace prot {
namespace {

TEST(IsoTime, TellsTheOffsetOfTheTimeZoneAtThatMoment) {
    const struct {
        const char* zone;
        std::time_t seconds;
        const char* text;
    } cases[] = {
        {"UTC0", 0, "1970-01-01T00:00:00+00:00"},
        {"CET-1CEST,M3.5.0,M10.5.0/3", 1767225599, "2026-01-01T00:59:59+01:00"},
        {"CET-1CEST,M3.5.0,M10.5.0/3", 1782820800, "2026-06-30T14:00:00+02:00"},
        {"NST3:30", 1767225600, "2025-12-31T20:30:00-03:30"},
    };
    const char* const before = std::getenv("TZ");
    const std::string zone_before = before != nullptr ? before : "";
    for (const auto& row : cases) {
        setenv("TZ", row.zone, 1);
        tzset();
        EXPECT_EQ(iso_time(std::chrono::system_clock::from_time_t(row.seconds)), row.text) << row.zone;
    }
    if (before != nullptr)
        setenv("TZ", zone_before.c_str(), 1);
    else
        unsetenv("TZ");
    tzset();
}

}  // namespace
}  // namespace prot
