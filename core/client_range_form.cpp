#include "core/client_range_form.h"

#include <algorithm>
#include <array>

#include "core/ZQErrorHandling.h"
#include "platform/automation/letter_case.h"
#include "platform/automation/text_forms.h"

namespace prot {

namespace {

constexpr std::string_view kind_name = "cboMandant", client_name = "ctlMandant";
constexpr std::array<std::string_view, 2> bound_names = {"txtKLNr(0)", "txtKLNr(1)"};
constexpr std::string_view input_error = "Eingabefehler";

const Entry* selected_entry(const Field& field) {
    return field.selected ? &field.entries[*field.selected] : nullptr;
}

}  // namespace

Field ClientRangeForm::kind_field() {
    return {.name = std::string(kind_name), .label = "&Auswahl", .changed = [this] { cboMandant_Click(); }};
}

Field ClientRangeForm::client_field() {
    return {.kind = FieldKind::picker,
            .name = std::string(client_name),
            .label = "&Mandant",
            .longest = 60,
            .changed = [this] { ctlMandant_Change(); }};
}

Field ClientRangeForm::number_field(std::size_t bound, std::string_view label) {
    return {.kind = FieldKind::text,
            .name = std::string(bound_names[bound]),
            .label = std::string(label),
            .longest = 9,
            .validate = [this, bound] { return txtKLNr_Validate(bound); }};
}

void ClientRangeForm::offer(bool bLoeschen, std::string_view from, std::string_view to) {
    field(bound_names[0]).text = from;
    field(bound_names[1]).text = to;
    Field& kinds = field(kind_name);
    for (const KindChoice& choice : kinds_)
        if (is_single(choice.kind) || bLoeschen) kinds.add(choice.key, std::string(label_of(choice.kind)));
    kinds.selected = 0;
}

/// Offers the clients or offices of the chosen kind; none is chosen then. A collective kind needs no choice.
void ClientRangeForm::mMandantAuswahl() try {
    const ClientKind kind = chosen().kind;
    const bool single = is_single(kind);
    Field& clients = field(client_name);
    clients.entries = single ? client_entries(*database_, kind) : std::vector<Entry>();
    clients.selected.reset();
    clients.text.clear();
    clients.enabled = single;
    clients.label = kind == ClientKind::office || kind == ClientKind::all_offices ? "&Kanzlei" : "&Mandant";
    form_.ok.enabled = !single;
    client_chosen(chosen());
} catch (...) {
    fail("mMandantAuswahl");
}

void ClientRangeForm::ctlMandant_Change() try {
    const Selection selection = chosen();
    form_.ok.enabled = selection.client.id > 0;
    client_chosen(selection);
} catch (...) {
    fail("ctlMandant_Change");
}

bool ClientRangeForm::txtKLNr_Validate(std::size_t bound) try {
    if (is_number_entry(field(bound_names[bound]).text)) return true;
    refuse("Das Eingabefeld darf keine alphanumerischen Zeichen enthalten!", input_error,
           index_of_bound(bound));
    return false;
} catch (...) {
    fail("txtKLNr_Validate");
    return false;
}

void ClientRangeForm::cmdOK_Click() try {
    if (const std::optional<RangeRefusal> refusal = refusal_of(entered_range()))
        refuse(refusal->text, not_allowed, index_of_bound(refusal->bound));
    else
        accept();
} catch (...) {
    fail("cmdOK_Click");
}

void ClientRangeForm::begin_batch() {
    batch_ = Selection();
    batch_.range = entered_range();
}

void ClientRangeForm::read_item(const BatchItem& item) {
    if (item.is("mandant:")) {
        read_client(item.value());
        return;
    }
    double* const bound = item.is("vonkonto")   ? &batch_.range.from
                          : item.is("biskonto") ? &batch_.range.to
                                                : nullptr;
    if (!bound) return;
    if (const double number = val(item.value()); number > 0) *bound = number;
}

/// "k123" is an office, "m123" or "123" a client. A value that leads to nobody leaves the choice as it is.
void ClientRangeForm::read_client(std::string_view value) {
    const char first = value.empty() ? '\0' : to_lower(value.substr(0, 1))[0];
    if (first == 'k') batch_.kind = ClientKind::office;
    if (first == 'k' || first == 'm') value.remove_prefix(1);
    if (val(value) <= 0) return;
    std::optional<Client> client = find_client(*database_, batch_.kind, plain_number(val(value)));
    if (!client) return;
    batch_.client = std::move(*client);
    client_chosen(batch_);
}

std::string ClientRangeForm::text_of(const Selection& selection) {
    std::string text(label_of(selection.kind));
    if (is_single(selection.kind)) text += ": " + selection.client.number + " " + selection.client.short_name;
    return text;
}

ClientRangeForm::Selection ClientRangeForm::chosen() const {
    Selection selection;
    if (const Entry* const kind = selected_entry(field(kind_name)))
        selection.kind = std::ranges::find(kinds_, kind->key, &KindChoice::key)->kind;
    const Entry* const client = selected_entry(field(client_name));
    if (client && is_single(selection.kind))
        selection.client = {static_cast<std::int32_t>(client->key), client->number, client->text};
    selection.range = entered_range();
    return selection;
}

NumberRange ClientRangeForm::entered_range() const {
    return {val(field(bound_names[0]).text), val(field(bound_names[1]).text)};
}

std::size_t ClientRangeForm::index_of_bound(std::size_t bound) const {
    return static_cast<std::size_t>(&field(bound_names[bound]) - form_.fields.data());
}

}  // namespace prot
