#include "core/client_range_form.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/ZQErrorHandling.h"
#include "platform/automation/letter_case.h"
#include "platform/automation/text_forms.h"

namespace prot {

namespace {

constexpr std::string_view kind_name = "cboMandant", client_name = "ctlMandant";
constexpr std::array<std::string_view, 2> bound_names = {"txtKLNr(0)", "txtKLNr(1)"};
constexpr std::string_view input_error = "Eingabefehler";

/// Does not fail: a number beyond Double fails when the statement is built.
std::string text_of_bound(double number) {
    return std::isfinite(number) ? plain_number(number) : std::string("unendlich");
}

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

BatchReading ClientRangeForm::read_value(std::string_view key, const std::string& value) {
    if (key == client_key) return read_client(value);
    const double number = val(value);
    if (number <= 0) return BatchReading::passed_over();
    (key == range_keys[1] ? batch_.range.from : batch_.range.to) = number;
    return BatchReading::taken(text_of_bound(number));
}

bool ClientRangeForm::end_batch() {
    const NumberRange& range = batch_.range;
    if (range.from > range.to)
        environment_.notices.batch_item(
            BatchReading::crossed(range_keys[1], text_of_bound(range.from), text_of_bound(range.to)));
    return true;
}

/// "k123" is an office, "m123" or "123" a client. A value that leads to nobody leaves the choice as it is.
BatchReading ClientRangeForm::read_client(std::string_view value) {
    const char first = value.empty() ? '\0' : to_lower(value.substr(0, 1))[0];
    std::string letter;
    if (first == 'k') batch_.kind = ClientKind::office;
    if (first == 'k' || first == 'm') {
        letter = value.substr(0, 1);
        value.remove_prefix(1);
    }
    if (val(value) <= 0) return BatchReading::passed_over();
    const std::string number = plain_number(val(value));
    std::optional<Client> client = find_client(*database_, batch_.kind, number);
    if (!client) return BatchReading::absent(letter + number, std::string(label_of(batch_.kind)));
    batch_.client = std::move(*client);
    client_chosen(batch_);
    return BatchReading::taken(letter + number, text_of(batch_));
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
