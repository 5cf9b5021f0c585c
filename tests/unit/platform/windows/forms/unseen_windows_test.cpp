#include <gtest/gtest.h>

#include "platform/windows/forms/dialog_window.h"
#include "platform/windows/forms/progress_window.h"
#include "platform/windows/forms/window_forms.h"
#include "platform/windows/system/save_dialog.h"

namespace prot {
namespace {

class NoBoxes : public MessageBoxes {
public:
    BoxAnswer show(std::string_view /*text*/, BoxStyle /*style*/, std::string_view /*title*/) override {
        ADD_FAILURE() << "nothing is to be told";
        return BoxAnswer::ok;
    }
};

/// Where nobody sees windows; on a desktop these tests would wait for a person.
class UnseenWindows : public testing::Test {
protected:
    void SetUp() override {
        if (can_show_windows()) GTEST_SKIP() << "windows can be seen here";
    }
    int refusals = 0;
};

TEST_F(UnseenWindows, AFormIsRefusedAndItsDisplayEnds) {
    Form form;
    form.fields = {{.label = "von"}};
    WindowForms([&] { ++refusals; }).show_modal(form);
    EXPECT_EQ(refusals, 1);
    EXPECT_FALSE(form.shown);
}

TEST_F(UnseenWindows, TheSaveDialogIsRefusedAndNothingIsChosen) {
    NoBoxes boxes;
    EXPECT_EQ(SaveDialog(boxes, [&] { ++refusals; }).ask("a.csv", {}), std::nullopt);
    EXPECT_EQ(refusals, 1);
}

TEST_F(UnseenWindows, ARunGoesOnWithoutItsProgress) {
    ProgressWindow progress("Lauf");
    progress.gRefresh();
    for (int row = 0; row < 64; ++row) progress.gSetFortschritt(row, 64);
    EXPECT_EQ(owner_window(), nullptr);
}

}  // namespace
}  // namespace prot
