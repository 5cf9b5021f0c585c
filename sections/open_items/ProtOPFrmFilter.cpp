#include "sections/open_items/ProtOPFrmFilter.h"

#include <algorithm>

#include "core/Prot0000UtilitiesBAS.h"
#include "core/ZQErrorHandling.h"
#include "platform/automation/letter_case.h"
#include "platform/automation/text_forms.h"
#include "platform/automation/text_parts.h"
#include "sections/open_items/fiscal_years.h"
#include "sections/open_items/plain_number.h"

namespace prot::open_items {

namespace {

constexpr std::string_view owner = "ProtOPFrmFilter";
constexpr std::string_view input_error = "Eingabefehler";

enum FormField : std::size_t { kind_field, client_field, year_field, from_field, to_field };

/// The range that stands for all accounts.
constexpr double lowest_account = 1, highest_account = 999999999;

}  // namespace

ProtOPFrmFilter::ProtOPFrmFilter(Environment& environment) : FilterForm(environment, owner) {}

Form ProtOPFrmFilter::described_form() {
    Form form;
    form.caption = "Protokollausgabe Offene Posten";
    form.help_id = "HID_MIVRA_ALLGEMEIN_PROTOKOLLIERUNG_OFFENE_POSTEN";
    form.fields = {
        {.name = "cboMandant", .label = "&Auswahl", .changed = [this] { mMandantAuswahl(); }},
        {.kind = FieldKind::picker,
         .name = "ctlMandant",
         .label = "&Mandant",
         .longest = 60,
         .changed = [this] { ctlMandant_Change(); }},
        {.name = "cboWirtschaftsjahr", .label = "&Wirtschaftsjahr"},
        {.kind = FieldKind::text,
         .name = "txtKLNr(0)",
         .label = "&von Konto",
         .longest = 9,
         .validate = [this] { return txtKLNr_Validate(from_field); }},
        {.kind = FieldKind::text,
         .name = "txtKLNr(1)",
         .label = "&bis Konto",
         .longest = 9,
         .validate = [this] { return txtKLNr_Validate(to_field); }},
    };
    form.groups = {{"Mandant oder Kanzlei", kind_field, 3}, {"Konten", from_field, 2}};
    add_buttons(form, [this] { cmdOK_Click(); });
    return form;
}

bool ProtOPFrmFilter::gbGetFilter(std::string& sWhere, std::string& sFilter, bool bLoeschen, Database& oDBU,
                                  std::string& sCommandline) try {
    bLoeschen_ = bLoeschen;
    const bool ready = accepted(oDBU, sCommandline);
    if (ready) {
        const Selection selection = sCommandline.empty() ? chosen() : batch_;
        sWhere = condition(selection);
        sFilter = label_of(selection.kind);
        if (selection.kind != ClientKind::all)
            sFilter += ": " + selection.client.number + " " + selection.client.short_name;
        sFilter +=
            ", von Konto: " + plain_number(selection.from) + " bis Konto: " + plain_number(selection.to);
    }
    Form_Unload();
    return ready;
} catch (...) {
    fail("gbGetFilter");
    Form_Unload();
    return false;
}

/// The condition on the open items; empty for all of them.
std::string ProtOPFrmFilter::condition(const Selection& selection) const {
    std::string text;
    if (selection.from > lowest_account || selection.to < highest_account)
        text =
            " WHERE OP_SkNr BETWEEN " + plain_number(selection.from) + " AND " + plain_number(selection.to);
    if (selection.client.id <= 0) return text;
    text += text.empty() ? " WHERE " : " AND ";
    if (selection.fiscal_year >= 1) return text + " WJ_ID = " + std::to_string(selection.fiscal_year);
    std::string ids;
    for (const std::string& id : fiscal_years_) ids.append(ids.empty() ? "" : ", ").append(id);
    return text + " WJ_ID IN (" + ids + ")";
}

void ProtOPFrmFilter::fill(Database&) {
    form_.fields[from_field].text = "10000";
    form_.fields[to_field].text = "10001";
    mInitCBO_MandKanz();
}

/// All clients and offices together are offered to a deletion only: an export always concerns one.
void ProtOPFrmFilter::mInitCBO_MandKanz() {
    Field& kinds = form_.fields[kind_field];
    for (const ClientKind kind : {ClientKind::client, ClientKind::office, ClientKind::all})
        if (kind != ClientKind::all || bLoeschen_)
            kinds.add(static_cast<std::int64_t>(kind), std::string(label_of(kind)));
    kinds.selected = 0;
}

void ProtOPFrmFilter::fill_for_person() { mMandantAuswahl(); }

/// Offers the clients or offices of the chosen kind; none is chosen then. All together need no choice.
void ProtOPFrmFilter::mMandantAuswahl() try {
    const ClientKind kind = chosen().kind;
    Field& clients = form_.fields[client_field];
    const bool all = kind == ClientKind::all;
    clients.entries = all ? std::vector<Entry>() : client_entries(*oDBU_, kind);
    clients.selected.reset();
    clients.text.clear();
    clients.enabled = !all;
    if (!all) clients.label = kind == ClientKind::office ? "&Kanzlei" : "&Mandant";
    form_.ok.enabled = all;
    mFuelleWJListe(chosen());
} catch (...) {
    fail("mMandantAuswahl");
}

void ProtOPFrmFilter::ctlMandant_Change() try {
    const Selection selection = chosen();
    form_.ok.enabled = selection.client.id > 0;
    mFuelleWJListe(selection);
} catch (...) {
    fail("ctlMandant_Change");
}

/// Fills the list of fiscal years: of the chosen client, or of all that may be chosen.
void ProtOPFrmFilter::mFuelleWJListe(const Selection& selection) try {
    Field& years = form_.fields[year_field];
    fiscal_years_.clear();
    years.entries = {{0, "Alle Wirtschaftsjahre"}};
    years.selected = 0;
    std::string restriction;
    if (selection.client.id > 0) {
        restriction = " = " + std::to_string(selection.client.id);
    } else if (selection.kind == ClientKind::all) {
        const std::string ids = msMandantId(*oDBU_, selection.kind);
        if (!ids.empty()) restriction = " IN (" + ids + ")";
    }
    if (restriction.empty()) return;
    for (const FiscalYear& year : fiscal_years(*oDBU_, restriction)) {
        years.add(year.id, year.text);
        fiscal_years_.push_back(std::to_string(year.id));
    }
} catch (...) {
    fail("mFuelleWJListe");
}

/// Account numbers are whole numbers without marks of thousands, which Val would stop at.
bool ProtOPFrmFilter::txtKLNr_Validate(std::size_t field) try {
    const std::string_view text = trim_blanks(form_.fields[field].text);
    const std::string_view digits = text.substr(text.starts_with('-') || text.starts_with('+') ? 1 : 0);
    const bool whole = std::ranges::all_of(digits, [](char c) { return c >= '0' && c <= '9'; });
    if (text.empty() || (whole && !digits.empty())) return true;
    refuse("Das Eingabefeld darf keine alphanumerischen Zeichen enthalten!", input_error, field);
    return false;
} catch (...) {
    fail("txtKLNr_Validate");
    return false;
}

void ProtOPFrmFilter::cmdOK_Click() try {
    const Selection selection = chosen();
    const std::size_t not_positive = selection.from <= 0 ? from_field : to_field;
    const struct {
        bool failed;
        std::string_view text;
        std::size_t field;
    } checks[] = {
        {selection.from <= 0 || selection.to <= 0,
         "Die Werte in den Eingabefeldern 'von/bis Nummer' müssen größer 0 sein!", not_positive},
        // The next two cannot fail behind the first; their order is kept, deliberately.
        {selection.from <= 0, "Bitte geben Sie an, ab welcher Nummer die Ausgabe erfolgen soll.", from_field},
        {selection.to <= 0, "Bitte geben Sie an, bis zu welcher Nummer die Ausgabe erfolgen soll.", to_field},
        {selection.to < selection.from,
         "Der Wert im Feld 'bis Nummer' darf nicht kleiner sein als der Wert im Feld 'von Nummer' !",
         to_field},
    };
    for (const auto& check : checks) {
        if (!check.failed) continue;
        refuse(check.text, not_allowed, check.field);
        return;
    }
    accept();
} catch (...) {
    fail("cmdOK_Click");
}

/// What the fields hold.
ProtOPFrmFilter::Selection ProtOPFrmFilter::chosen() const {
    const auto entry_of = [this](std::size_t index) -> const Entry* {
        const Field& field = form_.fields[index];
        return field.selected ? &field.entries[*field.selected] : nullptr;
    };
    Selection selection;
    if (const Entry* const kind = entry_of(kind_field)) selection.kind = ClientKind{kind->key};
    const Entry* const client = entry_of(client_field);
    if (client && selection.kind != ClientKind::all)
        selection.client = {static_cast<std::int32_t>(client->key), client->number, client->text};
    if (const Entry* const year = entry_of(year_field)) selection.fiscal_year = year->key;
    selection.from = val(form_.fields[from_field].text);
    selection.to = val(form_.fields[to_field].text);
    return selection;
}

bool ProtOPFrmFilter::mbCommandlineOk(const std::string& sCommandline) try {
    batch_ = Selection();
    batch_.from = val(form_.fields[from_field].text);
    batch_.to = val(form_.fields[to_field].text);
    std::string fiscal_year;
    bool autostart = false;
    for (const std::string& part : split(sCommandline, '/')) {
        autostart = autostart || pbCommandVorhanden(part, "autostart");
        if (!autostart) continue;  // parameters before "autostart" are ignored, deliberately
        const std::string value = psComWert("/" + part, environment_);
        if (pbCommandVorhanden(part, "mandant:"))
            read_client(value);
        else if (pbCommandVorhanden(part, "wirtschaftsjahr:"))
            fiscal_year = value;
        else if (pbCommandVorhanden(part, "vonkonto") && val(value) > 0)
            batch_.from = val(value);
        else if (pbCommandVorhanden(part, "biskonto") && val(value) > 0)
            batch_.to = val(value);
    }
    if (batch_.client.id > 0 && !fiscal_year.empty()) select_fiscal_year(fiscal_year);
    return autostart;
} catch (...) {
    fail("mbCommandlineOk");
    return false;
}

/// "k123" is an office, "m123" or "123" a client.
void ProtOPFrmFilter::read_client(std::string_view value) {
    const char first = value.empty() ? '\0' : to_lower(value.substr(0, 1))[0];
    if (first == 'k') batch_.kind = ClientKind::office;
    if (first == 'k' || first == 'm') value.remove_prefix(1);
    if (val(value) <= 0) return;
    std::optional<Client> client = find_client(*oDBU_, batch_.kind, plain_number(val(value)));
    if (!client) return;
    batch_.client = std::move(*client);
    mFuelleWJListe(batch_);
}

/// Chooses the fiscal year whose entry reads exactly so; all of them when there is none.
void ProtOPFrmFilter::select_fiscal_year(std::string_view text) {
    const std::vector<Entry>& years = form_.fields[year_field].entries;
    const auto found = std::find_if(years.begin() + 1, years.end(),
                                    [text](const Entry& entry) { return entry.text == text; });
    if (found != years.end()) batch_.fiscal_year = found->key;
}

}  // namespace prot::open_items
