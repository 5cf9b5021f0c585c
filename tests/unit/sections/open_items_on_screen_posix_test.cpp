#include <gtest/gtest.h>

#include "platform/portable/screen/form_layout.h"
#include "sections/open_items/ProtOPFrmFilter.h"
#include "tests/unit/support/fakes.h"

/// The form with the most lines, on the whole terminal.
namespace prot {
namespace {

class OpenItemsOnScreen : public testing::Test {
protected:
    OpenItemsOnScreen() {
        Field& kinds = form.field("cboMandant");
        for (const char* kind : {"Mandant", "Kanzlei", "alle Mandanten und Kanzleien"}) kinds.add(0, kind);
        for (int i = 0; i < 20000; ++i)
            form.field("ctlMandant").entries.push_back({i, "Musterfirma", std::to_string(i)});
        years().entries = {{0, "Alle Wirtschaftsjahre"}};
    }
    Field& years() { return form.field("cboWirtschaftsjahr"); }

    FieldPlace picker(Size screen) {
        const auto layout = lay_out(form, largest_window(screen));
        EXPECT_TRUE(layout) << screen.columns << "x" << screen.rows;
        return layout ? layout->fields[1] : FieldPlace();
    }

    test::FakeHost host;
    Form form = open_items::ProtOPFrmFilter(host.environment, true).described_form();
};

TEST_F(OpenItemsOnScreen, TheSmallestScreenShowsItAllWithAtLeastThreeMatches) {
    const FieldPlace place = picker(smallest_screen);
    EXPECT_GE(place.value.height, 3);
    EXPECT_GE(place.line.width, 30);
    years().entries.assign(12, {1, "01.01.2020 - 31.12.2020"});
    EXPECT_EQ(picker(smallest_screen).value.height, place.value.height) << "years move nothing";
}

TEST_F(OpenItemsOnScreen, LargerScreensShowMoreMatchesUpToTen) {
    EXPECT_GT(picker({80, 30}).value.height, picker(smallest_screen).value.height);
    EXPECT_EQ(picker({80, 40}).value.height, 10);
    EXPECT_EQ(picker({200, 100}).value.height, 10);
}

}  // namespace
}  // namespace prot
