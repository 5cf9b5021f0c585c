#include "platform/windows/forms/form_controls.h"

#include <commctrl.h>
#include <gtest/gtest.h>

namespace prot {
namespace {

Form sample_form() {
    Form form;
    form.notice = "Gelöscht & fort";
    form.fields = {
        {.kind = FieldKind::options, .label = "&Art", .entries = {{0, "A & B"}, {1, "C"}}},
        {.label = "&von"},
        {.kind = FieldKind::text, .label = "&Text"},
        {.kind = FieldKind::label, .label = "Hinweis && mehr"},
        {.kind = FieldKind::picker, .label = "&Mandant", .text = "Mei"},
    };
    form.groups = {{"Soll & Haben", 0, 2}};
    form.ok.text = "&OK";
    form.cancel.text = "Abbrechen";
    return form;
}

TEST(FormControl, IsWhatTheSystemKnowsForItsPart) {
    const Form form = sample_form();
    const struct {
        FormControl control;
        std::wstring window_class;
        std::string text;
        DWORD style;
        const char* why;
    } rows[] = {
        {{ControlPart::notice}, L"STATIC", "Gelöscht & fort", SS_NOPREFIX, "a notice has no access key"},
        {{ControlPart::frame, 0}, L"BUTTON", "Soll && Haben", BS_GROUPBOX, "a caption has no access key"},
        {{ControlPart::label, 0}, L"STATIC", "&Art", SS_LEFT, "a label keeps its access key"},
        {{ControlPart::option, 0, 0},
         L"BUTTON",
         "A && B",
         BS_AUTORADIOBUTTON | BS_NOTIFY | WS_GROUP | WS_TABSTOP,
         "the first option begins a group and is reached by the Tab key"},
        {{ControlPart::option, 0, 1},
         L"BUTTON",
         "C",
         BS_AUTORADIOBUTTON | BS_NOTIFY,
         "the next belongs to it"},
        {{ControlPart::field, 1}, L"COMBOBOX", "", CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP, "a list"},
        {{ControlPart::field, 2}, L"EDIT", "", ES_AUTOHSCROLL | WS_TABSTOP, "a text"},
        {{ControlPart::field, 4}, L"EDIT", "", ES_AUTOHSCROLL | WS_TABSTOP, "a picker's line"},
        {{ControlPart::match_count, 4}, L"STATIC", "", SS_NOPREFIX, "no access key among the counted"},
        {{ControlPart::matches, 4},
         L"SysListView32",
         "",
         LVS_REPORT | LVS_OWNERDATA | LVS_SINGLESEL | LVS_SHOWSELALWAYS | WS_TABSTOP,
         "matches are asked for when they come on view"},
        {{ControlPart::label, 3}, L"STATIC", "Hinweis && mehr", SS_LEFT, "a label alone"},
        {{ControlPart::ok}, L"BUTTON", "&OK", BS_DEFPUSHBUTTON | WS_TABSTOP, "OK is the default"},
        {{ControlPart::cancel}, L"BUTTON", "Abbrechen", BS_PUSHBUTTON | WS_TABSTOP, "Cancel is not"},
    };
    for (const auto& row : rows) {
        const ControlDescription made = describe_control(form, row.control, 5);
        EXPECT_EQ(made.window_class, row.window_class) << row.why;
        EXPECT_EQ(made.text, row.text) << row.why;
        EXPECT_EQ(made.style & row.style, row.style) << row.why;
    }
}

TEST(FormControl, OnlyTheFirstOptionBeginsAGroupForTheArrowKeys) {
    const Form form = sample_form();
    EXPECT_EQ(describe_control(form, {ControlPart::option, 0, 1}, 0).style & (WS_GROUP | WS_TABSTOP), 0U);
    EXPECT_NE(describe_control(form, {ControlPart::label, 1}, 0).style & WS_GROUP, 0U)
        << "the group ends with the next label";
}

TEST(FormControl, OnlyTheMatchesOfAPickerAreReachedBesidesItsLine) {
    const Form form = sample_form();
    EXPECT_EQ(describe_control(form, {ControlPart::match_count, 4}, 0).style & WS_TABSTOP, 0U);
    EXPECT_EQ(describe_control(form, {ControlPart::matches, 4}, 0).extended_style, DWORD{WS_EX_CLIENTEDGE})
        << "framed as the line above it";
}

TEST(FormControl, OkAndCancelHaveTheSystemsIds) {
    const Form form = sample_form();
    EXPECT_EQ(describe_control(form, {ControlPart::ok}, 7).id, IDOK);
    EXPECT_EQ(describe_control(form, {ControlPart::cancel}, 8).id, IDCANCEL);
    EXPECT_EQ(describe_control(form, {ControlPart::label, 1}, 4).id, first_control_id + 3)
        << "behind the notice";
    EXPECT_EQ(describe_control(form, {ControlPart::notice}, 0).id, notice_id);
}

TEST(FormControl, ALiteralTextShowsEachAmpersand) {
    EXPECT_EQ(literal_text("A & B && C"), "A && B &&&& C");
    EXPECT_EQ(literal_text(""), "");
}

}  // namespace
}  // namespace prot
