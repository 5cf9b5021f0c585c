#include "platform/portable/terminal_forms.h"

#include <algorithm>

#include "platform/automation/letter_case.h"

namespace prot {

namespace {

const std::string hint =
    "(Eingabetaste übernimmt den Vorschlag, ? zeigt Hilfe, " + std::string(cancel_hint) + ")\n";
constexpr std::string_view help_request = "?";
constexpr std::size_t entries_in_a_refusal = 20;

std::string joined_entries(const ListField& field, std::size_t limit) {
    std::string text;
    for (std::size_t i = 0; i < std::min(limit, field.entries.size()); ++i) {
        if (i > 0) text += ", ";
        text += field.entries[i].text;
    }
    if (field.entries.size() > limit) text += " …";
    return text;
}

std::optional<std::size_t> find_entry(const ListField& field, const std::string& answer) {
    const auto index = [&](auto entry) { return static_cast<std::size_t>(entry - field.entries.begin()); };
    const auto exact = std::ranges::find(field.entries, answer, &ListField::Entry::text);
    if (exact != field.entries.end()) return index(exact);
    const std::string lower = to_lower(std::string_view(answer));
    const auto similar = std::ranges::find_if(field.entries, [&](const ListField::Entry& entry) {
        return to_lower(std::string_view(entry.text)) == lower;
    });
    if (similar != field.entries.end()) return index(similar);
    return std::nullopt;
}

bool can_be_asked(const ListField& field) { return field.enabled && !field.entries.empty(); }

}  // namespace

void TerminalForms::standard_setup(Form& /*form*/, int /*code*/) {}

void TerminalForms::show_modal(Form& form, FormEvents& events) {
    form.shown = true;
    const bool can_ask = terminal_.require_input();
    if (can_ask) write_heading(form);
    while (can_ask && form.shown) {
        const Asked asked = ask_fields(form, events);
        if (asked == Asked::cancelled) break;
        events.cmdOK_Click();
        // Without a question nobody can mend what a check of the form refuses.
        if (asked == Asked::nothing && form.shown) {
            terminal_.note(Outcome::cancelled);
            break;
        }
    }
    if (form.shown) events.cmdCancel_Click();
    form.shown = false;
}

void TerminalForms::write_heading(const Form& form) {
    terminal_.write(form.caption + '\n');
    if (terminal_.asks_person()) terminal_.write(hint);
}

TerminalForms::Asked TerminalForms::ask_fields(Form& form, FormEvents& events) {
    Asked asked = Asked::nothing;
    for (std::size_t i = 0; i < form.fields.size(); ++i) {
        ListField& field = form.fields[i];
        form.focus = i;
        if (!can_be_asked(field)) {
            terminal_.write(field.label + ": " + field.selected_text() + '\n');
            continue;
        }
        if (!ask_field(field, events)) return Asked::cancelled;
        asked = Asked::all;
    }
    return asked;
}

bool TerminalForms::ask_field(ListField& field, FormEvents& events) {
    for (;;) {
        const std::optional<std::string> answer = terminal_.ask(field.label, field.selected_text());
        if (!answer) return false;
        if (answer->empty() && field.selected) return true;
        if (const std::optional<std::size_t> entry = find_entry(field, *answer)) {
            field.selected = entry;
            return true;
        }
        if (*answer == help_request && terminal_.asks_person())
            write_help(field, events);
        else
            terminal_.write("„" + *answer + "“ steht nicht in der Liste: " +
                            joined_entries(field, entries_in_a_refusal) + '\n');
    }
}

void TerminalForms::write_help(const ListField& field, FormEvents& events) {
    terminal_.write("Auswahl: " + joined_entries(field, field.entries.size()) + '\n');
    events.Form_KeyDown(KeyStroke{key_f1});
}

}  // namespace prot
