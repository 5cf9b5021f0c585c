#include "platform/windows/forms/form_layout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

#include "tests/unit/platform/windows/forms/fixed_font.h"

namespace prot {
namespace {

/// One form with everything that has a place.
Form rich_form() {
    Form form;
    form.caption = "Protokollausgabe";
    form.notice = "Was hier gewählt wird, wird gelöscht.\nZeitraum: bis 31.12.2015";
    form.fields = {
        {.kind = FieldKind::options, .label = "&Art", .entries = {{0, "Debitoren"}, {1, "Kreditoren"}}},
        {.label = "&von Konto", .entries = {{0, "10000 Müller"}, {1, "20000 Maier"}}},
        {.label = "&bis Konto"},
        {.kind = FieldKind::text, .label = "Suchbegriff der abweichenden Rechnungsanschrift", .longest = 20},
        {.kind = FieldKind::text, .label = "verborgen", .visible = false},
        {.kind = FieldKind::label, .label = "Berücksichtigt werden nur Datensätze nach der Übernahme."},
        {.kind = FieldKind::picker, .label = "&Mandant", .entries = {{0, "Meier", "7"}}},
    };
    form.groups = {{"Konten", 0, 3}, {"Adressen", 3, 2}, {"Mandanten", 6, 1}};
    form.ok.text = "OK";
    form.cancel.text = "Abbrechen";
    return form;
}

struct Arranged {
    Form form = rich_form();
    std::vector<FormControl> controls = controls_of(form);
    FixedFont font;
    FormLayout layout;

    explicit Arranged(int dots_per_inch, int least_width = 0)
        : font(dots_per_inch), layout(layout_form(form, controls, font, least_width)) {}

    Rectangle place(const FormControl& control) const {
        return layout
            .places[static_cast<std::size_t>(std::ranges::find(controls, control) - controls.begin())];
    }
};

int right_of(const Rectangle& rectangle) { return rectangle.left + rectangle.width; }
int bottom_of(const Rectangle& rectangle) { return rectangle.top + rectangle.height; }

bool is_inside(const Rectangle& inner, const Rectangle& outer) {
    return inner.left >= outer.left && inner.top >= outer.top && right_of(inner) <= right_of(outer) &&
           bottom_of(inner) <= bottom_of(outer);
}

bool overlap(const Rectangle& one, const Rectangle& other) {
    return one.left < right_of(other) && other.left < right_of(one) && one.top < bottom_of(other) &&
           other.top < bottom_of(one);
}

class FormLayoutAt : public testing::TestWithParam<int> {
protected:
    const Arranged arranged{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Resolutions, FormLayoutAt, testing::Values(96, 120, 144, 192));

TEST_P(FormLayoutAt, EverythingVisibleIsInTheWindow) {
    const Rectangle window{0, 0, arranged.layout.width, arranged.layout.height};
    for (std::size_t i = 0; i < arranged.controls.size(); ++i) {
        if (!is_visible(arranged.form, arranged.controls[i])) continue;
        EXPECT_TRUE(is_inside(arranged.layout.places[i], window)) << i;
        EXPECT_GT(arranged.layout.places[i].width, 0) << i;
        EXPECT_GT(arranged.layout.places[i].height, 0) << i;
    }
}

TEST_P(FormLayoutAt, NoControlLiesOnAnother) {
    for (std::size_t i = 0; i < arranged.controls.size(); ++i) {
        for (std::size_t j = i + 1; j < arranged.controls.size(); ++j) {
            const bool frame_and_content =
                arranged.controls[i].part == ControlPart::frame && arranged.controls[j].belongs_to_field();
            if (frame_and_content) continue;
            EXPECT_FALSE(overlap(arranged.layout.places[i], arranged.layout.places[j])) << i << " " << j;
        }
    }
}

TEST_P(FormLayoutAt, AFrameIsAroundTheFieldsOfItsGroupOnly) {
    const Rectangle frame = arranged.place({ControlPart::frame, 0});
    for (const FormControl& control : arranged.controls) {
        if (!control.belongs_to_field() || !is_visible(arranged.form, control)) continue;
        EXPECT_EQ(is_inside(arranged.place(control), frame), control.index < 3) << control.index;
    }
}

TEST_P(FormLayoutAt, ALabelHasRoomForItsText) {
    for (const FormControl& control : arranged.controls) {
        if (control.part != ControlPart::label || !is_visible(arranged.form, control)) continue;
        const std::string text = without_access_key(arranged.form.fields[control.index].label);
        const Rectangle place = arranged.place(control);
        EXPECT_GE(place.height, arranged.font.height(text, place.width)) << text;
    }
}

TEST_P(FormLayoutAt, TheNoticeStandsAboveAllWithRoomForItsLines) {
    const Rectangle notice = arranged.place({ControlPart::notice});
    EXPECT_GE(notice.width, arranged.font.width("Was hier gewählt wird, wird gelöscht."));
    EXPECT_GE(notice.height, arranged.font.height(arranged.form.notice, notice.width));
    EXPECT_LT(bottom_of(notice), arranged.place({ControlPart::frame, 0}).top);
}

TEST_P(FormLayoutAt, ALabelStandsBeforeItsField) {
    const Rectangle label = arranged.place({ControlPart::label, 1});
    const Rectangle field = arranged.place({ControlPart::field, 1});
    EXPECT_LT(right_of(label), field.left);
    EXPECT_GE(label.top, field.top);
    EXPECT_LE(bottom_of(label), bottom_of(field));
}

TEST_P(FormLayoutAt, FieldsStandInOneColumn) {
    EXPECT_EQ(arranged.place({ControlPart::field, 1}).left, arranged.place({ControlPart::field, 3}).left);
    EXPECT_EQ(right_of(arranged.place({ControlPart::field, 1})),
              right_of(arranged.place({ControlPart::field, 3})));
    EXPECT_EQ(arranged.place({ControlPart::option, 0, 1}).left, arranged.place({ControlPart::field, 1}).left);
}

TEST_P(FormLayoutAt, AListHasRoomForItsEntriesAndTheArrow) {
    EXPECT_GT(arranged.place({ControlPart::field, 1}).width, arranged.font.width("10000 Müller") + 16);
}

TEST_P(FormLayoutAt, AHiddenFieldTakesNoRoom) {
    Form without = rich_form();
    without.fields.erase(without.fields.begin() + 4);
    without.groups[1].count = 1;
    without.groups[2].first = 5;
    const FormLayout other = layout_form(without, controls_of(without), arranged.font, 0);
    EXPECT_EQ(arranged.layout.height, other.height);
    EXPECT_EQ(arranged.place({ControlPart::field, 4}), Rectangle());
}

TEST_P(FormLayoutAt, APickerStandsFromTopToBottomInItsGroup) {
    const Rectangle label = arranged.place({ControlPart::label, 6});
    const Rectangle line = arranged.place({ControlPart::field, 6});
    const Rectangle count = arranged.place({ControlPart::match_count, 6});
    const Rectangle matches = arranged.place({ControlPart::matches, 6});
    EXPECT_LT(right_of(label), line.left);
    EXPECT_LE(bottom_of(label), bottom_of(line));
    EXPECT_EQ(line.height, arranged.place({ControlPart::field, 1}).height);
    EXPECT_GE(count.top, bottom_of(line));
    EXPECT_GE(count.height, arranged.font.unit_height());
    EXPECT_GE(matches.top, bottom_of(count));
    EXPECT_GE(matches.height, 6 * arranged.font.unit_height());
    EXPECT_TRUE(is_inside(matches, arranged.place({ControlPart::frame, 2})));
    for (const Rectangle& part : {count, matches}) {
        EXPECT_EQ(part.left, line.left);
        EXPECT_EQ(right_of(part), right_of(line));
    }
}

TEST_P(FormLayoutAt, AHiddenPickerTakesNoRoom) {
    Form hidden = rich_form(), without = rich_form();
    hidden.fields[6].visible = false;
    without.fields.pop_back();
    without.groups.pop_back();
    const FormLayout layout = layout_form(hidden, arranged.controls, arranged.font, 0);
    EXPECT_EQ(layout.height, layout_form(without, controls_of(without), arranged.font, 0).height);
    for (std::size_t i = 0; i < arranged.controls.size(); ++i) {
        if (!arranged.controls[i].belongs_to_field() || arranged.controls[i].index != 6) continue;
        EXPECT_FALSE(is_visible(hidden, arranged.controls[i])) << i;
        EXPECT_EQ(layout.places[i], Rectangle()) << i;
    }
}

TEST_P(FormLayoutAt, APickerKeepsItsPlaceWhateverHappensToIt) {
    Form other = rich_form();
    other.fields[6].enabled = false;
    other.fields[6].text = "Meier";
    other.fields[6].entries.assign(100, {0, std::string(200, 'x'), "12345678"});
    EXPECT_EQ(layout_form(other, controls_of(other), arranged.font, 0), arranged.layout);
}

TEST(FormLayout, GrowsWithTheResolution) {
    const Arranged fine(192), coarse(96);
    EXPECT_NEAR(fine.layout.width, 2 * coarse.layout.width, 24);
    EXPECT_GT(fine.layout.height, coarse.layout.height * 3 / 2);
}

TEST(FormLayout, IsAsWideAsItMustBe) {
    const Arranged free(96), wide(96, 900);
    EXPECT_EQ(wide.layout.width, 900);
    EXPECT_LT(free.layout.width, 900);
    EXPECT_EQ(right_of(wide.place({ControlPart::cancel})), right_of(wide.place({ControlPart::frame, 0})));
}

TEST(FormLayout, AWordThatIsLongerThanALineIsNotCut) {
    Form form;
    const std::string word(80, 'x');
    form.fields = {{.label = "kurz " + word}};
    const FixedFont font(96);
    const std::vector<FormControl> controls = controls_of(form);
    EXPECT_GE(layout_form(form, controls, font, 0).places[0].width, font.width(word));
}

TEST(FormLayout, AGroupWithoutVisibleFieldsIsNotFramed) {
    Form form = rich_form();
    form.fields[3].visible = false;
    const std::vector<FormControl> controls = controls_of(form);
    const auto frame = std::ranges::find(controls, FormControl{ControlPart::frame, 1}) - controls.begin();
    EXPECT_FALSE(is_visible(form, controls[static_cast<std::size_t>(frame)]));
    EXPECT_EQ(layout_form(form, controls, FixedFont(96), 0).places[static_cast<std::size_t>(frame)],
              Rectangle());
}

TEST(FormLayout, AWindowWithoutFieldsHasItsButtons) {
    const Form form;
    const FormLayout layout = layout_form(form, controls_of(form), FixedFont(96), 0);
    ASSERT_EQ(layout.places.size(), 2U);
    EXPECT_FALSE(overlap(layout.places[0], layout.places[1]));
    EXPECT_GT(layout.height, bottom_of(layout.places[0]));
}

TEST(FormControls, ComeInTheOrderOfTheTabKey) {
    const std::vector<FormControl> expected = {
        {ControlPart::notice},         {ControlPart::frame, 0},     {ControlPart::label, 0},
        {ControlPart::option, 0, 0},   {ControlPart::option, 0, 1}, {ControlPart::label, 1},
        {ControlPart::field, 1},       {ControlPart::label, 2},     {ControlPart::field, 2},
        {ControlPart::frame, 1},       {ControlPart::label, 3},     {ControlPart::field, 3},
        {ControlPart::label, 4},       {ControlPart::field, 4},     {ControlPart::label, 5},
        {ControlPart::frame, 2},       {ControlPart::label, 6},     {ControlPart::field, 6},
        {ControlPart::match_count, 6}, {ControlPart::matches, 6},   {ControlPart::ok},
        {ControlPart::cancel},
    };
    EXPECT_EQ(controls_of(rich_form()), expected);
}

TEST(FormControls, AFieldWithoutLabelHasNone) {
    Form form;
    form.fields = {{.kind = FieldKind::text}, {.kind = FieldKind::label}};
    EXPECT_EQ(
        controls_of(form),
        (std::vector<FormControl>{
            {ControlPart::field, 0}, {ControlPart::label, 1}, {ControlPart::ok}, {ControlPart::cancel}}));
}

TEST(WindowPlace, IsTheMiddleOfTheOwnerWithinTheScreen) {
    const Rectangle screen{0, 0, 1000, 800}, second{1000, -200, 1000, 800};
    const struct {
        Rectangle over, area, expected;
        const char* why;
    } rows[] = {
        {{100, 100, 600, 400}, screen, {300, 250, 200, 100}, "in the middle of its owner"},
        {screen, screen, {400, 350, 200, 100}, "in the middle of the screen"},
        {{-300, -300, 200, 200}, screen, {0, 0, 200, 100}, "not beyond the upper left corner"},
        {{950, 780, 200, 200}, screen, {800, 700, 200, 100}, "not beyond the lower right corner"},
        {{1100, -100, 600, 400}, second, {1300, 50, 200, 100}, "on a second screen"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(centred({7, 7, 200, 100}, row.over, row.area), row.expected) << row.why;
}

TEST(WindowPlace, AWindowLargerThanTheScreenBeginsAtItsCorner) {
    EXPECT_EQ(moved_into({50, 50, 1200, 900}, {0, 20, 1000, 800}), (Rectangle{0, 20, 1200, 900}));
}

}  // namespace
}  // namespace prot
