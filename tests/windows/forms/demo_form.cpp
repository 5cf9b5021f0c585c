#include "tests/windows/forms/demo_form.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace prot::demo {

namespace {

enum FieldIndex : std::size_t {
    kind,
    from_account,
    to_account,
    account_count,
    search_text,
    year,
    currency,
    details,
    detail_text,
    notice
};

constexpr const char* currencies[] = {"CHF", "CZK", "DKK", "EUR", "GBP", "JPY", "NOK", "PLN", "SEK", "USD"};

}  // namespace

DemoForm::DemoForm(MessageBoxes& boxes, Log log) : boxes_(boxes), log_(std::move(log)) {
    describe();
    for (const char* kind_name : {"Debitoren (Kunden & Interessenten)", "Kreditoren", "keine"})
        form_.fields[kind].add(static_cast<std::int64_t>(form_.fields[kind].entries.size()), kind_name);
    form_.fields[kind].selected = 0;
    for (const char* code : currencies) form_.fields[currency].add(0, code);
    form_.fields[currency].selected = 3;
    for (const char* answer : {"nein", "ja"}) form_.fields[details].add(0, answer);
    form_.fields[details].selected = 0;
    fill_accounts();
    form_.focus = from_account;
}

void DemoForm::describe() {
    form_.caption = "Protokollausgabe Personenkonten";
    form_.fields = {
        {.kind = FieldKind::options, .name = "kind", .label = "K&ontoart"},
        {.name = "from", .label = "&von Personenkonto"},
        {.name = "to", .label = "&bis Personenkonto"},
        {.kind = FieldKind::label, .name = "count"},
        {.kind = FieldKind::text,
         .name = "search",
         .label = "&Suchbegriff der abweichenden Rechnungsanschrift",
         .text = "Müller",
         .longest = 20},
        {.kind = FieldKind::text, .name = "year", .label = "Geschäfts&jahr", .text = "2024", .longest = 4},
        {.name = "currency", .label = "&Währung"},
        {.name = "details", .label = "Ein&zelheiten"},
        {.kind = FieldKind::text, .name = "detail", .label = "Einzelhei&t", .longest = 8, .visible = false},
        {.kind = FieldKind::label,
         .name = "notice",
         .label = "Berücksichtigt werden nur Datensätze, die nach der Übernahme des Altbestandes angelegt, "
                  "geändert oder gelöscht wurden."},
    };
    form_.groups = {{"Personenkonten", kind, 4}, {"Einschränkung auf Belege & Währung", search_text, 5}};
    form_.fields[kind].changed = [this] { kind_changed(); };
    form_.fields[currency].changed = [this] { currency_changed(); };
    form_.fields[details].changed = [this] { detail_changed(); };
    form_.fields[search_text].validate = [this] { return valid_text(); };
    form_.fields[year].validate = [this] { return valid_year(); };
    form_.fields[year].changed = [this] { log_("year: " + form_.fields[year].text); };
    form_.ok = {.name = "ok", .text = "OK", .click = [this] { ok(); }};
    form_.cancel = {.name = "cancel", .text = "Abbrechen", .causes_validation = false, .click = [this] {
                        log_("cancel");
                        form_.shown = false;
                    }};
    form_.key_preview = true;
    form_.key_down = [this](const KeyStroke& key) {
        if (key.code == key_f1) log_(std::string("help") + (key.shift ? " shift" : ""));
        if (key.code == 'E' && key.control) throw std::runtime_error("key_down fails");
    };
}

void DemoForm::fill_accounts() {
    const std::size_t chosen = form_.fields[kind].selected.value_or(0);
    constexpr std::size_t counts[] = {300, 3, 0};
    for (Field* field : {&form_.fields[from_account], &form_.fields[to_account]}) {
        field->entries.clear();
        for (std::size_t i = 0; i < counts[chosen]; ++i)
            field->add(static_cast<std::int64_t>(i), std::to_string(10000 * (chosen + 1) + i) +
                                                         " Größer & Söhne GmbH " + std::to_string(i));
        field->enabled = counts[chosen] > 0;
        field->selected.reset();
    }
    if (counts[chosen] > 0) {
        form_.fields[from_account].selected = 0;
        form_.fields[to_account].selected = counts[chosen] - 1;
    }
    form_.fields[account_count].label = std::to_string(counts[chosen]) + " Konten";
    form_.ok.enabled = counts[chosen] > 0;
}

void DemoForm::kind_changed() {
    fill_accounts();
    log_("kind: " + form_.fields[kind].selected_text());
}

void DemoForm::currency_changed() {
    log_("currency: " + form_.fields[currency].selected_text());
    if (form_.fields[currency].selected_text() == "USD") form_.set_focus(year);
}

void DemoForm::detail_changed() {
    form_.fields[detail_text].visible = form_.fields[details].selected == 1U;
    log_("details: " + form_.fields[details].selected_text());
}

bool DemoForm::valid_text() {
    const bool valid = !form_.fields[search_text].text.empty();
    log_(valid ? "search valid" : "search refused");
    if (!valid) boxes_.show("Bitte geben Sie einen Suchbegriff ein.", BoxStyle::exclamation, "Pruefung");
    return valid;
}

bool DemoForm::valid_year() {
    const std::string& text = form_.fields[year].text;
    const bool valid =
        text.size() == 4 && std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
    log_(valid ? "year valid" : "year refused");
    if (!valid) boxes_.show("Das Geschäftsjahr hat vier Ziffern.", BoxStyle::exclamation, "Pruefung");
    return valid;
}

void DemoForm::ok() {
    if (form_.fields[to_account].selected < form_.fields[from_account].selected) {
        boxes_.show("Das Konto „bis“ liegt vor dem Konto „von“.", BoxStyle::exclamation, "Pruefung");
        form_.set_focus(to_account);
        return;
    }
    log_("ok: " + form_.fields[from_account].selected_text() + " / " + form_.fields[year].text);
    form_.shown = false;
}

}  // namespace prot::demo
