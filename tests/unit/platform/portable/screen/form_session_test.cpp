#include "platform/portable/screen/form_session.h"

#include <gtest/gtest.h>

#include "scripted_screen.h"

namespace prot {
namespace {

using Kind = Key::Kind;
using test::alt;
using test::back_tab;
using test::key;
using test::letter;

/// A form of a list, a text, options and a label, all of whose functions leave a trace.
class FormSessionTest : public testing::Test {
protected:
    enum : std::size_t { list, text, options, label, ok, cancel };

    FormSessionTest() {
        form.fields = {
            {.kind = FieldKind::list, .name = "lst", .label = "&Liste"},
            {.kind = FieldKind::text, .name = "txt", .label = "&Text", .text = "alt"},
            {.kind = FieldKind::options, .name = "opt", .label = "&Art"},
            {.kind = FieldKind::label, .name = "lbl", .label = "&Hinweis"},
        };
        for (Field& field : form.fields) field.changed = [this, &field] { trace += field.name + " "; };
        for (const char* entry : {"eins", "zwei", "drei"}) {
            form.fields[list].add(0, entry);
            form.fields[options].add(0, entry);
        }
        form.fields[list].selected = form.fields[options].selected = 0;
        form.fields[text].validate = [this] {
            trace += "check ";
            return valid;
        };
        form.ok = {.text = "OK", .click = [this] {
                       trace += "ok ";
                       on_ok();
                   }};
        form.cancel = {.text = "&Zurück", .causes_validation = false, .click = [this] {
                           trace += "cancel ";
                           form.shown = false;
                       }};
        form.key_down = [this](const KeyStroke& stroke) { trace += std::to_string(stroke.code) + " "; };
        form.shown = true;
    }

    FormSession& press(std::initializer_list<Key> keys) {
        if (!session) session.emplace(form);
        for (const Key& one : keys) session->press(one);
        return *session;
    }

    Form form;
    std::string trace;
    bool valid = true;
    std::function<void()> on_ok = [this] { form.shown = false; };
    std::optional<FormSession> session;
};

TEST_F(FormSessionTest, TabGoesRoundFieldsAndButtonsAndPassesLabels) {
    std::vector<std::size_t> targets;
    for (int i = 0; i < 5; ++i) targets.push_back(press({key(Kind::tab)}).target());
    EXPECT_EQ(targets, (std::vector<std::size_t>{text, options, ok, cancel, list}));
    EXPECT_EQ(press({back_tab()}).target(), cancel);
}

TEST_F(FormSessionTest, TabPassesWhatIsSwitchedOffOrHidden) {
    form.fields[text].enabled = false;
    form.fields[options].visible = false;
    form.ok.enabled = false;
    EXPECT_EQ(press({key(Kind::tab)}).target(), cancel);
}

TEST_F(FormSessionTest, BeginsAtTheNextFieldWhenTheFocusIsSwitchedOff) {
    form.fields[list].enabled = false;
    EXPECT_EQ(press({}).target(), text);
}

TEST_F(FormSessionTest, ArrowsSelectInAListAndStopAtItsEnds) {
    press({key(Kind::up), key(Kind::down), key(Kind::down), key(Kind::down)});
    EXPECT_EQ(form.fields[list].selected_text(), "drei");
    EXPECT_EQ(trace, "lst lst ") << "only a change is told";
}

TEST_F(FormSessionTest, PagesFollowTheLinesOnView) {
    press({}).set_page(2);
    press({key(Kind::page_down)});
    EXPECT_EQ(form.fields[list].selected_text(), "drei");
    press({key(Kind::page_up)});
    EXPECT_EQ(form.fields[list].selected_text(), "eins");
}

TEST_F(FormSessionTest, TheFirstKeySelectsInAListWithoutSelection) {
    form.fields[list].selected.reset();
    press({key(Kind::down)});
    EXPECT_EQ(form.fields[list].selected_text(), "eins");
}

TEST_F(FormSessionTest, LettersSelectAnEntry) {
    press({letter(U'D')});
    EXPECT_EQ(form.fields[list].selected_text(), "drei");
}

TEST_F(FormSessionTest, AltAndALetterLeadToTheField) {
    EXPECT_EQ(press({alt(U'A')}).target(), options);
    EXPECT_EQ(press({alt(U't')}).target(), text);
    EXPECT_EQ(press({alt(U'l')}).target(), list);
    press({alt(U'z')});
    EXPECT_FALSE(form.shown) << "a button is pressed";
}

TEST_F(FormSessionTest, TypingReplacesTheTextThatTheFocusCameTo) {
    press({key(Kind::tab), letter(U'n'), letter(U'ü')});
    EXPECT_EQ(form.fields[text].text, "nü");
    EXPECT_EQ(trace, "txt txt ");
}

TEST_F(FormSessionTest, ATextSelectedBeforeTheFormOpensIsReplacedOnce) {
    form.set_focus(text);
    press({letter(U'n'), letter(U'e'), letter(U'u')});
    EXPECT_EQ(form.fields[text].text, "neu");
}

TEST_F(FormSessionTest, ARefusedTextKeepsTheFocus) {
    valid = false;
    EXPECT_EQ(press({key(Kind::tab), key(Kind::tab)}).target(), text);
    EXPECT_EQ(trace, "check ");
    press({key(Kind::enter)});
    EXPECT_TRUE(form.shown);
    EXPECT_EQ(trace, "check check ") << "OK is not pressed";
}

TEST_F(FormSessionTest, EnterChecksTheTextAndPressesOk) {
    press({key(Kind::tab), key(Kind::enter)});
    EXPECT_EQ(trace, "check ok ");
    EXPECT_FALSE(form.shown);
    EXPECT_FALSE(session->cancelled());
}

TEST_F(FormSessionTest, EscPressesCancelWithoutACheck) {
    valid = false;
    press({key(Kind::tab), key(Kind::escape)});
    EXPECT_EQ(trace, "cancel ");
    EXPECT_TRUE(session->cancelled());
}

TEST_F(FormSessionTest, ACancelThatCausesValidationChecks) {
    valid = false;
    form.cancel.causes_validation = true;
    press({key(Kind::tab), key(Kind::escape)});
    EXPECT_EQ(trace, "check ");
    EXPECT_TRUE(form.shown);
}

TEST_F(FormSessionTest, TheCheckIsMadeUpForWhenTheFocusGoesOnFromCancel) {
    valid = false;
    form.fields[options].visible = form.ok.enabled = false;
    EXPECT_EQ(press({key(Kind::tab), key(Kind::tab)}).target(), cancel);
    EXPECT_EQ(trace, "");
    EXPECT_EQ(press({key(Kind::tab)}).target(), text);
    EXPECT_EQ(trace, "check ");
}

TEST_F(FormSessionTest, TheTextIsCheckedAgainAfterAnOkThatLeftTheFormOpen) {
    on_ok = [] {};
    press({key(Kind::tab), key(Kind::enter), key(Kind::tab)});
    EXPECT_EQ(trace, "check ok check ");
}

TEST_F(FormSessionTest, FollowsTheFocusThatTheFormAsksFor) {
    on_ok = [this] { form.set_focus(text); };
    EXPECT_EQ(press({key(Kind::enter)}).target(), text);
    EXPECT_TRUE(session->line()->selected());
    EXPECT_EQ(press({letter(U'x'), key(Kind::enter)}).target(), text);
    EXPECT_TRUE(session->line()->selected()) << "the same field is selected anew";
}

TEST_F(FormSessionTest, TheFocusMayGoElsewhereFromACheck) {
    form.fields[text].validate = [this] {
        form.set_focus(options);
        return false;
    };
    EXPECT_EQ(press({key(Kind::tab), key(Kind::tab)}).target(), options);
}

TEST_F(FormSessionTest, TheFocusGoesOnWhenItsFieldIsSwitchedOff) {
    form.fields[list].changed = [this] { form.fields[list].enabled = false; };
    EXPECT_EQ(press({key(Kind::down)}).target(), text);
}

TEST_F(FormSessionTest, AChangedTextIsEditedAsTheFormLeftIt) {
    form.fields[text].changed = [this] { form.fields[text].text = "XY"; };
    press({key(Kind::tab), letter(U'a')});
    form.fields[text].changed = nullptr;
    press({letter(U'z')});
    EXPECT_EQ(form.fields[text].text, "XYz");
}

TEST_F(FormSessionTest, TheFormSeesF1AlwaysAndOtherKeysWhenItAsksForThem) {
    press({test::function_key(1), key(Kind::down)});
    EXPECT_EQ(trace, "112 lst ");
    form.key_preview = true;
    press({key(Kind::down)});
    EXPECT_EQ(trace, "112 lst 40 lst ");
}

TEST_F(FormSessionTest, AButtonThatIsSwitchedOffCannotBePressed) {
    form.ok.enabled = false;
    press({key(Kind::enter)});
    EXPECT_EQ(trace, "");
}

TEST_F(FormSessionTest, EnterOnCancelPressesCancel) {
    press({back_tab(), key(Kind::enter)});
    EXPECT_EQ(trace, "cancel ");
}

TEST_F(FormSessionTest, AbandoningEndsAFormThatCancelLeavesOpen) {
    form.cancel.click = [this] { trace += "cancel "; };
    press({}).abandon();
    EXPECT_EQ(trace, "cancel ");
    EXPECT_FALSE(form.shown);
    EXPECT_TRUE(session->cancelled());
}

}  // namespace
}  // namespace prot
