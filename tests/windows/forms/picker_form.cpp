#include "tests/windows/forms/picker_form.h"

#include <utility>

namespace prot::demo {

namespace {

enum FieldIndex : std::size_t { kind, client, year, from_account };

constexpr int key_f5 = 116, key_f6 = 117, key_f7 = 118, key_f8 = 119;

struct Kind {
    const char *name, *label, *person;
    std::size_t count;
};
constexpr Kind kinds[] = {{"Mandant", "&Mandant", "Händler & Söhne", 20000},
                          {"Kanzlei", "&Kanzlei", "Kanzlei", 3},
                          {"niemand", "&Niemand", "", 0}};

std::vector<Entry> clients_of(const Kind& chosen) {
    std::vector<Entry> clients;
    for (std::size_t number = 1; number <= chosen.count; ++number)
        clients.push_back({static_cast<std::int64_t>(number),
                           std::string(chosen.person) + ' ' + std::to_string(number),
                           std::to_string(10 * number)});
    if (clients.size() > 6) clients[6].text = "Müller Übersee GmbH";
    return clients;
}

}  // namespace

PickerForm::PickerForm(Log log) : log_(std::move(log)) {
    describe();
    for (const Kind& one : kinds) form_.fields[kind].add(0, one.name);
    form_.fields[kind].selected = 0;
    for (const char* text : {"2023", "2024"}) form_.fields[year].add(0, text);
    kind_changed();
    form_.focus = client;
}

void PickerForm::describe() {
    form_.caption = "Protokollausgabe Mandanten";
    form_.fields = {
        {.name = "kind", .label = "&Auswahl", .changed = [this] { kind_changed(); }},
        {.kind = FieldKind::picker, .name = "client", .longest = 60, .changed = [this] { client_changed(); }},
        {.name = "year", .label = "&Wirtschaftsjahr", .enabled = false},
        {.kind = FieldKind::text, .name = "from", .label = "&von Konto", .text = "10000", .longest = 9},
    };
    form_.groups = {{"Mandant oder Kanzlei", kind, 3}, {"Konten", from_account, 1}};
    form_.ok = {.name = "ok", .text = "OK", .click = [this] {
                    log_("ok: " + form_.fields[client].selected_text());
                    form_.shown = false;
                }};
    form_.cancel = {.name = "cancel", .text = "Abbrechen", .causes_validation = false, .click = [this] {
                        log_("cancel");
                        form_.shown = false;
                    }};
    form_.key_preview = true;
    form_.key_down = [this](const KeyStroke& key) { key_pressed(key.code); };
}

void PickerForm::kind_changed() {
    const Kind& chosen = kinds[form_.fields[kind].selected.value_or(0)];
    Field& field = form_.fields[client];
    field.label = chosen.label;
    field.entries = clients_of(chosen);
    field.text.clear();
    field.selected.reset();
    client_changed();
}

void PickerForm::client_changed() {
    const Field& field = form_.fields[client];
    form_.fields[year].enabled = form_.ok.enabled = field.selected.has_value();
    log_("client: " + (field.selected ? field.entries[*field.selected].number : "-"));
}

void PickerForm::key_pressed(int code) {
    Field& field = form_.fields[client];
    if (code == key_f1) log_("help");
    if (code == key_f5) field.enabled = !field.enabled;
    if (code == key_f6) field.visible = !field.visible;
    if (code == key_f7) field.text.clear();
    if (code == key_f8) field.selected = field.entries.size() - 1;
}

}  // namespace prot::demo
