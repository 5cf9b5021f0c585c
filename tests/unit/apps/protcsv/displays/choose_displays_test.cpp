#include "apps/protcsv/displays/choose_displays.h"

#include <sstream>

#include <gtest/gtest.h>

#include "apps/protcsv/displays/line_displays.h"

namespace prot {
namespace {

TEST(ChooseDisplays, TakesTheLargestThatTheRunMayHaveAndThatCanBeHad) {
    const struct {
        bool may_have, can_be_had;
        int tried;
        bool full_screen;
        const char* why;
    } rows[] = {
        {false, true, 0, false, "the run may not have them: the terminal is left alone"},
        {true, false, 1, false, "the terminal has no room for them"},
        {true, true, 1, true, "both"},
    };
    for (const auto& row : rows) {
        std::ostringstream output;
        TerminalSettings settings;
        settings.output = &output;
        Terminal terminal(settings);
        TerminalMessageBoxes boxes(terminal, false);
        int tried = 0;
        const Displays* made = nullptr;
        const std::unique_ptr<Displays> displays = choose_displays(
            {terminal, boxes, row.may_have}, [&](const DisplayMeans& means) -> std::unique_ptr<Displays> {
                ++tried;
                if (!row.can_be_had) return nullptr;
                auto full_screen = std::make_unique<LineDisplays>(means);
                made = full_screen.get();
                return full_screen;
            });
        ASSERT_NE(displays, nullptr) << row.why;
        EXPECT_EQ(tried, row.tried) << row.why;
        EXPECT_EQ(displays.get() == made, row.full_screen) << row.why;
    }
}

}  // namespace
}  // namespace prot
