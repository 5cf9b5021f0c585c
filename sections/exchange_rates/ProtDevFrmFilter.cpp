#include "sections/exchange_rates/ProtDevFrmFilter.h"

#include <algorithm>

#include "core/ZQErrorHandling.h"
#include "platform/automation/letter_case.h"
#include "platform/automation/text_forms.h"
#include "platform/automation/text_parts.h"

namespace prot::exchange_rates {

namespace {

enum RangeField : std::size_t { from_field, to_field };

/// The entry's key; it only tells entries apart, so that any number will do.
std::int64_t key_of(const Cell& id) {
    constexpr double largest = 9e15;
    if (id.type() == Cell::Type::integer) return id.integer();
    return static_cast<std::int64_t>(std::clamp(val(to_text(id.value())), -largest, largest));
}

}  // namespace

ProtDevFrmFilter::ProtDevFrmFilter(Environment& environment) : FilterForm(environment, "ProtDevFrmFilter") {}

Form ProtDevFrmFilter::described_form() {
    Form form;
    form.caption = "Protokollausgabe Devisenkurse";
    form.help_id = "HID_MIVRA_ALLGEMEIN_PROTOKOLLIERUNG_DEVISENKURSE";
    form.fields = {
        {.name = "cboWaehrung(0)", .label = "&von ISO Währungscode"},
        {.name = "cboWaehrung(1)", .label = "&bis ISO Währungscode"},
    };
    form.groups = {{"Währungen", from_field, 2}};
    add_buttons(form, [this] { cmdOK_Click(); });
    return form;
}

std::string ProtDevFrmFilter::take_over(bool by_batch) {
    const Range range = by_batch ? batch_ : selected_range();
    where_ = " WHERE dcISOKennz BETWEEN '" + range.from + "' AND '" + range.to + "'";
    return "Von ISO Währungscode: " + range.from + " bis ISO Währungscode: " + range.to;
}

/// Fills both lists; the form always holds its database object by now. The default range is all currencies,
/// from the lowest to the highest code.
void ProtDevFrmFilter::mIsoWaehrungLesen() try {
    const RowSet rows =
        database_->query_array("SELECT idDevisenWaehr, dcISOKennz FROM tDevisenWaehr ORDER BY dcISOKennz");
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
} catch (...) {
    fail("mIsoWaehrungLesen");
}

/// Any text is a bound, in the list of currencies or not. Whether it is one, and which of two is behind the
/// other, is told as the server compares codes, without letter case.
BatchReading ProtDevFrmFilter::read_value(std::string_view key, const std::string& value) {
    const std::string code(trim_blanks(value));
    if (code.empty()) return BatchReading::passed_over();
    (key == keys[0] ? batch_.from : batch_.to) = code;
    const bool listed = std::ranges::any_of(form_.fields[from_field].entries, [&](const Entry& entry) {
        return upper_equals(code, to_upper(entry.text));
    });
    return BatchReading::taken(code, {}, listed);
}

bool ProtDevFrmFilter::end_batch() {
    if (to_upper(batch_.to) < to_upper(batch_.from))
        environment_.notices.batch_item(BatchReading::crossed(keys[0], batch_.from, batch_.to));
    return true;
}

ProtDevFrmFilter::Range ProtDevFrmFilter::selected_range() const {
    return {form_.fields[from_field].selected_text(), form_.fields[to_field].selected_text()};
}

void ProtDevFrmFilter::cmdOK_Click() try {
    const Range range = selected_range();
    if (range.to < range.from)  // by bytes, which is the order of code points
        refuse(
            "Der Wert im Feld 'bis ISO Währungscode' darf nicht kleiner sein als der Wert im Feld 'von ISO "
            "Währungscode' !",
            not_allowed, to_field);
    else
        accept();
} catch (...) {
    fail("cmdOK_Click");
}

}  // namespace prot::exchange_rates
