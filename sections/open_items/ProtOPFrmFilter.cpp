#include "sections/open_items/ProtOPFrmFilter.h"

#include <algorithm>

#include "core/ZQErrorHandling.h"

namespace prot::open_items {

namespace {

constexpr KindChoice kinds[] = {
    {1, ClientKind::client},
    {2, ClientKind::office},
    {3, ClientKind::all},
};

constexpr std::int64_t all_years = 0;

/// The range that stands for all accounts.
constexpr NumberRange all_accounts = {1, 999999999};

}  // namespace

ProtOPFrmFilter::ProtOPFrmFilter(Environment& environment, bool bLoeschen)
    : ClientRangeForm(environment, "ProtOPFrmFilter", kinds), deleting_(bLoeschen) {}

Form ProtOPFrmFilter::described_form() {
    Form form;
    form.caption = "Protokollausgabe Offene Posten";
    form.help_id = "HID_MIVRA_ALLGEMEIN_PROTOKOLLIERUNG_OFFENE_POSTEN";
    form.fields = {
        kind_field(),
        client_field(),
        {.name = "cboWirtschaftsjahr", .label = "&Wirtschaftsjahr", .refilled = true},
        number_field(0, "&von Konto"),
        number_field(1, "&bis Konto"),
    };
    form.groups = {{"Mandant oder Kanzlei", 0, 3}, {"Konten", 3, 2}};
    add_buttons(form, [this] { cmdOK_Click(); });
    return form;
}

void ProtOPFrmFilter::fill() { mInitCBO_MandKanz(); }

void ProtOPFrmFilter::mInitCBO_MandKanz() { offer(deleting_, "10000", "10001"); }

std::string ProtOPFrmFilter::take_over(bool by_batch) {
    const Selection selected = selection(by_batch);
    where_ = condition(selected, by_batch ? batch_year_ : chosen_year());
    return text_of(selected) + ", von Konto: " + plain_number(selected.range.from) +
           " bis Konto: " + plain_number(selected.range.to);
}

/// The condition on the open items; empty for all of them.
std::string ProtOPFrmFilter::condition(const Selection& selection, std::int64_t fiscal_year) const {
    const NumberRange& range = selection.range;
    std::string text;
    if (range.from > all_accounts.from || range.to < all_accounts.to)
        text = " WHERE OP_SkNr BETWEEN " + plain_number(range.from) + " AND " + plain_number(range.to);
    if (selection.client.id <= 0) return text;
    text += text.empty() ? " WHERE " : " AND ";
    if (fiscal_year > all_years) return text + " WJ_ID = " + std::to_string(fiscal_year);
    return text + " WJ_ID IN (" + fiscal_years_ + ")";
}

/// Fills the list of fiscal years: of the chosen client, or of all that may be chosen.
void ProtOPFrmFilter::mFuelleWJListe(const Selection& selection) try {
    fiscal_years_.clear();
    years().entries = {{all_years, "Alle Wirtschaftsjahre"}};
    years().selected = 0;
    std::string restriction;
    if (selection.client.id > 0) {
        restriction = " = " + std::to_string(selection.client.id);
    } else if (!is_single(selection.kind)) {
        const std::string ids = msMandantId(selection.kind);
        if (!ids.empty()) restriction = " IN (" + ids + ")";
    }
    if (restriction.empty()) return;
    for (const FiscalYear& year : fiscal_years(*database_, restriction)) {
        years().add(year.id, year.text);
        mFuellenFelder(year);
    }
} catch (...) {
    fail("mFuelleWJListe");
}

/// Collects the ids for the condition on all years of the client.
void ProtOPFrmFilter::mFuellenFelder(const FiscalYear& year) {
    fiscal_years_.append(fiscal_years_.empty() ? "" : ", ").append(std::to_string(year.id));
}

std::string ProtOPFrmFilter::msMandantId(ClientKind kind) {
    return client_ids(*database_, kind, "Person_v4.Ps_Id, Person_v4.Ps_nr");
}

void ProtOPFrmFilter::begin_batch() {
    ClientRangeForm::begin_batch();
    batch_year_text_.clear();
    batch_year_ = all_years;
}

/// Which year it is shows when the client is known, which may stand behind it.
BatchReading ProtOPFrmFilter::read_value(std::string_view key, const std::string& value) {
    if (key != year_key) return ClientRangeForm::read_value(key, value);
    batch_year_text_ = value;
    return BatchReading::taken(value);
}

/// Chooses the fiscal year whose entry reads exactly so; all of them when there is none.
bool ProtOPFrmFilter::end_batch() {
    ClientRangeForm::end_batch();
    if (batch_year_text_.empty()) return true;
    if (const BatchReading::Use use = choose_batch_year(); use != BatchReading::Use::taken)
        environment_.notices.batch_item(BatchReading::of(use, year_key));
    return true;
}

BatchReading::Use ProtOPFrmFilter::choose_batch_year() {
    if (selection(true).client.id <= 0) return BatchReading::Use::idle;
    const std::vector<Entry>& entries = years().entries;
    const auto found = std::find_if(entries.begin() + 1, entries.end(),
                                    [this](const Entry& entry) { return entry.text == batch_year_text_; });
    if (found == entries.end()) return BatchReading::Use::absent;
    batch_year_ = found->key;
    return BatchReading::Use::taken;
}

std::int64_t ProtOPFrmFilter::chosen_year() {
    const Field& field = years();
    return field.selected ? field.entries[*field.selected].key : all_years;
}

}  // namespace prot::open_items
