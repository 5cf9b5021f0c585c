#include "core/filter_form.h"

#include "core/ZQErrorHandling.h"
#include "core/help.h"
#include "platform/automation/text_parts.h"

namespace prot {

namespace {
constexpr int filter_form_setup = 1000;
}  // namespace

bool FilterForm::gbGetFilter(Database& oDBU, std::string& sCommandline) try {
    const bool ready = accepted(oDBU, sCommandline);
    if (ready) filter_text_ = take_over(!sCommandline.empty());
    Form_Unload();
    return ready;
} catch (...) {
    fail("gbGetFilter");
    Form_Unload();
    return false;
}

bool FilterForm::accepted(Database& oDBU, std::string& sCommandline) {
    environment_.screen_pointer.set(Pointer::standard);
    accepted_ = failed_ = false;
    database_ = &oDBU;
    form_ = described_form();
    Form_Load();
    fill();
    if (failed_) return false;
    if (!sCommandline.empty() && mbCommandlineOk(sCommandline)) return !failed_;
    sCommandline.clear();
    if (!failed_) fill_for_person();
    if (failed_) return false;
    form_.shown = true;
    environment_.form_display.show_modal(form_);
    return accepted_ && !failed_;
}

bool FilterForm::mbCommandlineOk(const std::string& sCommandline) try {
    begin_batch();
    bool autostart = false;
    for (const std::string& text : batch_items(sCommandline)) {
        const BatchItem item(text, environment_);
        autostart = autostart || item.is("autostart");
        if (autostart) read_item(item);  // items before "autostart" are ignored, deliberately
    }
    return end_batch() && autostart;
} catch (...) {
    fail("mbCommandlineOk");
    return false;
}

std::vector<std::string> FilterForm::batch_items(const std::string& sCommandline) {
    return split(sCommandline, '/');
}

void FilterForm::Form_Load() try {
    environment_.form_display.standard_setup(form_, filter_form_setup);
    form_.key_preview = true;
    form_.cancel.causes_validation = false;
} catch (...) {
    fail("Form_Load");
}

void FilterForm::Form_KeyDown(const KeyStroke& key) try {
    if (key.code == key_f1 && !key.shift && !key.control && !key.alt)
        gShowWikiHelpxxx(form_.help_id, environment_);
} catch (...) {
    // Help that fails does not cost the person what was entered.
    show_and_end(environment_, owner_, "Form_KeyDown");
}

void FilterForm::add_buttons(Form& form, std::function<void()> ok) {
    form.ok = {.name = "cmdOK", .text = "OK", .click = std::move(ok)};
    form.cancel = {.name = "cmdCancel", .text = "Abbrechen", .click = [this] { cmdCancel_Click(); }};
    form.key_down = [this](const KeyStroke& key) { Form_KeyDown(key); };
}

void FilterForm::refuse(std::string_view text, std::string_view title, std::size_t field) {
    environment_.message_boxes.show(text, BoxStyle::exclamation, title);
    form_.set_focus(field);
}

void FilterForm::fail(std::string_view procedure) {
    failed_ = true;
    form_.shown = false;
    show_and_end(environment_, owner_, procedure);
}

}  // namespace prot
