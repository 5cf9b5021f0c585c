#include "apps/protcsv/displays/form_aids.h"

#include <gtest/gtest.h>

namespace prot {
namespace {

constexpr int filter_form_setup = 1000;

class CountedForms : public FormDisplay {
public:
    std::vector<int> setups;
    int shown = 0;
    void standard_setup(Form&, int code) override { setups.push_back(code); }
    void show_modal(Form&) override { ++shown; }
};

class FormAidsTest : public testing::Test {
protected:
    FormAidsTest() {
        form.fields = {{.name = "cboMandant", .entries = {{1, "Mandant"}, {3, "Alle"}}, .selected = 0},
                       {.kind = FieldKind::picker, .name = "ctlMandant"},
                       {.name = "cboWirtschaftsjahr"},
                       {.kind = FieldKind::text, .name = "txtKLNr(0)"},
                       {.kind = FieldKind::text, .name = "txtKLNr(1)"}};
        form.fields[0].changed = [this] { form.field("ctlMandant").enabled = form.fields[0].selected == 0U; };
        form.groups = {{"Mandant", 0, 3}, {"Konten", 3, 2}};
    }

    CountedForms display;
    FormAids aids{display};
    Form form;
};

TEST_F(FormAidsTest, SayBelowTheAccountsWhatStandsForAllOfThem) {
    aids.standard_setup(form, filter_form_setup);
    ASSERT_EQ(form.fields.size(), 6U);
    EXPECT_EQ(form.fields[5].kind, FieldKind::label);
    EXPECT_EQ(form.fields[5].label, "1 bis 999999999: alle Konten");
    EXPECT_EQ(form.groups[0].count, 3U);
    EXPECT_EQ(form.groups[1].count, 3U) << "within the frame of the accounts";
}

TEST_F(FormAidsTest, TheFiscalYearsAreOffWhileTheClientsAreChosenTogether) {
    aids.standard_setup(form, filter_form_setup);
    EXPECT_TRUE(form.fields[2].enabled);
    form.fields[0].choose(1);
    EXPECT_FALSE(form.fields[1].enabled) << "the form's own function is called";
    EXPECT_FALSE(form.fields[2].enabled);
    form.fields[0].choose(0);
    EXPECT_TRUE(form.fields[2].enabled);
}

TEST_F(FormAidsTest, LeaveOtherFormsAsTheyAre) {
    form.fields.erase(form.fields.begin() + 2);
    aids.standard_setup(form, filter_form_setup);
    EXPECT_EQ(form.fields.size(), 4U);
}

TEST_F(FormAidsTest, LeaveEverythingElseToTheDisplay) {
    aids.standard_setup(form, filter_form_setup);
    aids.show_modal(form);
    EXPECT_EQ(display.setups, std::vector<int>{filter_form_setup});
    EXPECT_EQ(display.shown, 1);
}

}  // namespace
}  // namespace prot
