#include "sections/exchange_rates/ProtDevFrmFilter.h"

#include <algorithm>

#include "core/Prot0000UtilitiesBAS.h"
#include "core/ZQErrorHandling.h"
#include "core/help.h"
#include "platform/automation/text_forms.h"
#include "platform/automation/text_parts.h"

namespace prot {

namespace {

constexpr std::string_view owner = "ProtDevFrmFilter";
constexpr std::string_view help_id = "HID_MIVRA_ALLGEMEIN_PROTOKOLLIERUNG_DEVISENKURSE";
constexpr int filter_form_setup = 1000;

enum RangeField : std::size_t { from_field, to_field };

/// The entry's key; it only tells entries apart, so that any number will do.
std::int64_t key_of(const Cell& id) {
    constexpr double largest = 9e15;
    if (id.type() == Cell::Type::integer) return id.integer();
    return static_cast<std::int64_t>(std::clamp(val(to_text(id.value())), -largest, largest));
}

}  // namespace

Form ProtDevFrmFilter::described_form() {
    Form form;
    form.caption = "Protokollausgabe Devisenkurse";
    form.help_id = help_id;
    form.fields = {
        {.name = "cboWaehrung(0)", .label = "&von ISO Währungscode"},
        {.name = "cboWaehrung(1)", .label = "&bis ISO Währungscode"},
    };
    form.groups = {{"Währungen", from_field, 2}};
    form.ok = {.name = "cmdOK", .text = "OK", .click = [this] { cmdOK_Click(); }};
    form.cancel = {.name = "cmdCancel", .text = "Abbrechen", .click = [this] { cmdCancel_Click(); }};
    form.key_down = [this](const KeyStroke& key) { Form_KeyDown(key); };
    return form;
}

bool ProtDevFrmFilter::gbGetFilter(std::string& sWhere, std::string& sFilter, Database& oDBU,
                                   std::string& sCommandline) try {
    environment_.screen_pointer.set(Pointer::standard);
    load(oDBU);
    Range range;
    const bool ready = mIsoWaehrungLesen() && accept(sCommandline, range);
    if (ready) {
        sWhere = " WHERE dcISOKennz BETWEEN '" + range.from + "' AND '" + range.to + "'";
        filter_ = "Von ISO Währungscode: " + range.from + " bis ISO Währungscode: " + range.to;
        sFilter = filter_;
    }
    Form_Unload();
    return ready;
} catch (...) {
    show_and_end(environment_, owner, "gbGetFilter");
    Form_Unload();
    return false;
}

void ProtDevFrmFilter::load(Database& oDBU) {
    form_ = described_form();
    accepted_ = failed_ = false;
    oDBU_ = &oDBU;
    Form_Load();
}

/// Takes the range from the parameter text, or from the person.
bool ProtDevFrmFilter::accept(std::string& sCommandline, Range& range) {
    if (mbCommandlineOk(sCommandline, range)) return !failed_;
    sCommandline.clear();
    if (failed_) return false;
    form_.shown = true;
    environment_.form_display.show_modal(form_);
    range = selected_range();
    return accepted_ && !failed_;
}

/// Fills both lists. The default range is all currencies, from the lowest to the highest code.
bool ProtDevFrmFilter::mIsoWaehrungLesen() try {
    const RowSet rows =
        oDBU_ ? oDBU_->query_array("SELECT idDevisenWaehr, dcISOKennz FROM tDevisenWaehr ORDER BY dcISOKennz")
              : RowSet();
    rows.require_columns(2);
    for (Field& field : form_.fields) {
        for (std::size_t row = 0; row < rows.rows(); ++row)
            field.add(key_of(rows.at(0, row)), to_text(rows.at(1, row).value()));
        if (!rows.empty()) continue;
        field.add(0, "Fehlt!");
        field.selected = 0;
        field.enabled = false;
    }
    if (!rows.empty()) {
        form_.fields[from_field].select_key(form_.fields[from_field].entries.front().key);
        form_.fields[to_field].select_key(form_.fields[to_field].entries.back().key);
    }
    return true;
} catch (...) {
    show_and_end(environment_, owner, "mIsoWaehrungLesen");
    return false;
}

bool ProtDevFrmFilter::mbCommandlineOk(const std::string& sCommandline, Range& range) try {
    if (sCommandline.empty()) return false;
    range = selected_range();
    bool autostart = false;
    for (const std::string& part : split(sCommandline, '/')) {
        autostart = autostart || pbCommandVorhanden(part, "autostart");
        if (!autostart) continue;  // parameters before "autostart" are ignored, deliberately
        std::string* const bound = pbCommandVorhanden(part, "vondevi")   ? &range.from
                                   : pbCommandVorhanden(part, "bisdevi") ? &range.to
                                                                         : nullptr;
        if (!bound) continue;
        const std::string item = psComWert("/" + part, environment_);
        if (const std::string_view value = trim_blanks(item); !value.empty()) *bound = value;
    }
    return autostart;
} catch (...) {
    failed_ = true;
    show_and_end(environment_, owner, "mbCommandlineOk");
    return false;
}

ProtDevFrmFilter::Range ProtDevFrmFilter::selected_range() const {
    return {form_.fields[from_field].selected_text(), form_.fields[to_field].selected_text()};
}

void ProtDevFrmFilter::Form_Load() try {
    environment_.form_display.standard_setup(form_, filter_form_setup);
    form_.key_preview = true;
    form_.cancel.causes_validation = false;
} catch (...) {
    failed_ = true;
    show_and_end(environment_, owner, "Form_Load");
}

void ProtDevFrmFilter::Form_KeyDown(const KeyStroke& key) try {
    if (key.code == key_f1 && !key.shift && !key.control && !key.alt) gShowWikiHelpxxx(help_id, environment_);
} catch (...) {
    show_and_end(environment_, owner, "Form_KeyDown");
}

void ProtDevFrmFilter::Form_Unload() { oDBU_ = nullptr; }

void ProtDevFrmFilter::cmdOK_Click() try {
    const Range range = selected_range();
    if (range.to < range.from) {  // by bytes, which is the order of code points
        environment_.message_boxes.show(
            "Der Wert im Feld 'bis ISO Währungscode' darf nicht kleiner sein als der Wert im Feld 'von ISO "
            "Währungscode' !",
            BoxStyle::exclamation, "Unzulässige Aktion");
        form_.set_focus(to_field);
        return;
    }
    accepted_ = true;
    form_.shown = false;
} catch (...) {
    failed_ = true;
    form_.shown = false;
    show_and_end(environment_, owner, "cmdOK_Click");
}

void ProtDevFrmFilter::cmdCancel_Click() { form_.shown = false; }

}  // namespace prot
