#include <gtest/gtest.h>

#include "platform/portable/screen/form_layout.h"
#include "sections/section_table.h"
#include "tests/unit/sections/shown_form.h"

/// The filter form of every section on the whole terminal, its pickers full.
namespace prot {
namespace {

class EveryFormOnScreen : public testing::TestWithParam<Section> {
protected:
    void SetUp() override {
        const std::optional<Form> shown = test::shown_form(GetParam());
        ASSERT_TRUE(shown);
        form = *shown;
        for (Field& field : form.fields)
            if (field.kind == FieldKind::picker)
                for (int i = 0; i < 20000; ++i)
                    field.entries.push_back({i, "Musterfirma", std::to_string(i)});
    }

    /// Where the matches of each picker and the line to type in are.
    std::vector<FieldPlace> pickers(Size screen) {
        const auto layout = lay_out(form, largest_window(screen));
        EXPECT_TRUE(layout) << screen.columns << "x" << screen.rows;
        std::vector<FieldPlace> places;
        for (std::size_t i = 0; layout && i < form.fields.size(); ++i)
            if (form.fields[i].kind == FieldKind::picker) places.push_back(layout->fields[i]);
        return places;
    }

    Form form;
};

TEST_P(EveryFormOnScreen, ShowsItAllOnTheSmallestScreenWithAtLeastThreeMatchesOfAPicker) {
    for (const FieldPlace& place : pickers(smallest_screen)) {
        EXPECT_GE(place.value.height, 3);
        EXPECT_GE(place.line.width, 30);
    }
}

TEST_P(EveryFormOnScreen, HasRoomOnTheSmallestScreenForWhatADeletionSays) {
    form.notice =
        "Die Protokollsätze, die hier gewählt werden, werden gelöscht.\n"
        "Zeitraum: 01.01.2015 bis 31.12.2015   Mitarbeiter: Annegret Krüger-Schäfer   Ereignisse: "
        "angelegt, geändert";
    for (const FieldPlace& place : pickers(smallest_screen)) EXPECT_GE(place.value.height, 3);
}

TEST_P(EveryFormOnScreen, MovesNothingWhenAListIsRefilled) {
    const Size window = largest_window(smallest_screen);
    const auto before = lay_out(form, window);
    for (Field& field : form.fields)
        if (field.refilled) field.entries.assign(12, {1, "01.01.2020 - 31.12.2020"});
    const auto after = lay_out(form, window);
    ASSERT_TRUE(before && after);
    EXPECT_EQ(after->size, before->size);
    for (std::size_t i = 0; i < form.fields.size(); ++i) {
        const Place now = after->fields[i].value, then = before->fields[i].value;
        EXPECT_EQ(now.at.column, then.at.column) << form.fields[i].name;
        EXPECT_EQ(now.at.row, then.at.row) << form.fields[i].name;
        EXPECT_EQ(now.height, then.height) << form.fields[i].name;
    }
}

TEST_P(EveryFormOnScreen, ShowsMoreMatchesOfAPickerOnLargerScreensUpToTen) {
    const std::vector<FieldPlace> smallest = pickers(smallest_screen), larger = pickers({80, 30});
    for (std::size_t i = 0; i < smallest.size(); ++i)
        EXPECT_GT(larger[i].value.height, smallest[i].value.height);
    for (const Size screen : {Size{80, 40}, Size{200, 100}})
        for (const FieldPlace& place : pickers(screen)) EXPECT_EQ(place.value.height, 10);
}

INSTANTIATE_TEST_SUITE_P(Sections, EveryFormOnScreen, testing::ValuesIn(section_table()),
                         [](const auto& section) { return test::test_name(section.param); });

}  // namespace
}  // namespace prot
