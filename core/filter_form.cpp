#include "core/filter_form.h"

#include <algorithm>

#include "core/ZQErrorHandling.h"
#include "core/help.h"
#include "platform/automation/text_parts.h"

namespace prot {

namespace {
constexpr int filter_form_setup = 1000;
constexpr std::string_view flag_autostart = "autostart";
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
    environment_.notices.batch_keys(batch_keys());
    begin_batch();
    bool autostart = false;
    const BatchItems items = batch_items(sCommandline);
    for (const std::string& text : items.read) {
        const BatchItem item(text, environment_);
        autostart = autostart || item.is(flag_autostart);
        environment_.notices.batch_item(read_item(item, autostart));
    }
    for (const std::string& text : items.unread) {
        const BatchItem item(text, environment_);
        BatchReading reading = BatchReading::of(BatchReading::Use::unread, batch_key(item));
        reading.item = item.text();
        environment_.notices.batch_item(reading);
    }
    return end_batch() && autostart;
} catch (...) {
    fail("mbCommandlineOk");
    return false;
}

/// Items before "autostart" are ignored, deliberately.
BatchReading FilterForm::read_item(const BatchItem& item, bool autostart) {
    if (item.is(flag_autostart)) start_batch();
    const std::string_view key = batch_key(item);
    BatchReading reading;
    if (key.empty()) {
        if (item.is(flag_autostart)) reading = BatchReading::of(BatchReading::Use::taken, flag_autostart);
    } else if (autostart) {
        const std::string value = item.value();
        reading = read_value(key, value);
        reading.key = key;
        reading.value = value;
    } else {
        reading = BatchReading::of(BatchReading::Use::early, key);
    }
    reading.item = item.text();
    return reading;
}

/// The first key that the item begins with; empty when it begins with none.
std::string_view FilterForm::batch_key(const BatchItem& item) const {
    const auto keys = batch_keys();
    const auto key = std::ranges::find_if(keys, [&](std::string_view each) { return item.is(each); });
    return key == keys.end() ? std::string_view() : *key;
}

FilterForm::BatchItems FilterForm::batch_items(const std::string& sCommandline) {
    return {split(sCommandline, '/'), {}};
}

FilterForm::BatchItems FilterForm::split_items(const std::string& sCommandline) {
    BatchItems items{gCommandlineSplit(sCommandline, true, environment_), unread_parts(sCommandline)};
    if (!items.read.empty()) items.read.erase(items.read.begin());  // stands before the first slash: no item
    return items;
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
