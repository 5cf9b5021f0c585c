#include "apps/protcsv/displays/file_name_form.h"

#include <functional>

#include <gtest/gtest.h>

namespace prot {
namespace {

class FakeForms : public FormDisplay {
public:
    std::function<void(Form&)> person;
    void standard_setup(Form&, int) override {}
    void show_modal(Form& form) override {
        form.shown = true;
        person(form);
        EXPECT_FALSE(form.shown);
    }
};

TEST(FileNameForm, OffersTheSuggestionSelectedAsAWhole) {
    FakeForms forms;
    forms.person = [](Form& form) {
        EXPECT_EQ(form.fields[0].text, "Vorschlag.csv");
        EXPECT_EQ(form.fields[0].label, "&Dateiname") << "with its access key";
        EXPECT_TRUE(form.select_focus);
        form.fields[0].text = "anders.csv";
        form.ok.click();
    };
    EXPECT_EQ(ask_file_name(forms, "Vorschlag.csv"), "anders.csv");
}

TEST(FileNameForm, SaysAboveTheFieldWhatItIsTold) {
    FakeForms forms;
    forms.person = [](Form& form) {
        EXPECT_EQ(form.notice, "Das geht nicht.");
        form.cancel.click();
    };
    ask_file_name(forms, "Vorschlag.csv", "Das geht nicht.");
}

TEST(FileNameForm, CancelGivesNoName) {
    FakeForms forms;
    forms.person = [](Form& form) { form.cancel.click(); };
    EXPECT_EQ(ask_file_name(forms, "Vorschlag.csv"), std::nullopt);
}

TEST(FileNameForm, TakesANameAsLongAsTheSystemDoesAndCancelWhateverStandsInIt) {
    FakeForms forms;
    forms.person = [](Form& form) {
        EXPECT_GE(form.fields[0].longest, 4095U);
        EXPECT_FALSE(form.cancel.causes_validation);
        form.cancel.click();
    };
    ask_file_name(forms, "Vorschlag.csv");
}

}  // namespace
}  // namespace prot
