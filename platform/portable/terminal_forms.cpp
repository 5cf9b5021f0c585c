#include "platform/portable/terminal_forms.h"

#include <algorithm>

#include "platform/automation/letter_case.h"

namespace prot {

namespace {

const std::string hint =
    "(Eingabetaste übernimmt den Vorschlag, ? zeigt Hilfe, " + std::string(cancel_hint) + ")\n";
constexpr std::string_view help_request = "?";
constexpr std::size_t entries_in_a_refusal = 20;

std::string joined_entries(const Field& field, std::size_t limit) {
    std::string text;
    for (std::size_t i = 0; i < std::min(limit, field.entries.size()); ++i) {
        if (i > 0) text += ", ";
        text += field.entries[i].text;
    }
    if (field.entries.size() > limit) text += " …";
    return text;
}

std::optional<std::size_t> find_entry(const Field& field, const std::string& answer) {
    const auto index = [&](auto entry) { return static_cast<std::size_t>(entry - field.entries.begin()); };
    const auto exact = std::ranges::find(field.entries, answer, &Entry::text);
    if (exact != field.entries.end()) return index(exact);
    const std::string lower = to_lower(std::string_view(answer));
    const auto similar = std::ranges::find_if(
        field.entries, [&](const Entry& entry) { return to_lower(std::string_view(entry.text)) == lower; });
    if (similar != field.entries.end()) return index(similar);
    return std::nullopt;
}

bool can_be_asked(const Field& field) {
    return field.can_have_focus() && (field.kind == FieldKind::text || !field.entries.empty());
}

std::string content(const Field& field) {
    return field.kind == FieldKind::text ? field.text : field.selected_text();
}

void notify(const std::function<void()>& handler) {
    if (handler) handler();
}

}  // namespace

void TerminalForms::standard_setup(Form& /*form*/, int /*code*/) {}

void TerminalForms::show_modal(Form& form) {
    form.shown = true;
    const bool can_ask = terminal_.require_input();
    if (can_ask) write_heading(form);
    while (can_ask && form.shown) {
        const Asked asked = ask_fields(form);
        if (asked == Asked::cancelled) break;
        if (form.ok.enabled) notify(form.ok.click);
        // Without a question nobody can mend what a check of the form refuses.
        if (asked == Asked::nothing && form.shown) {
            terminal_.note(Outcome::cancelled);
            break;
        }
    }
    if (form.shown) notify(form.cancel.click);
    form.shown = false;
}

void TerminalForms::write_heading(const Form& form) {
    terminal_.write(form.caption + '\n');
    if (terminal_.asks_person()) terminal_.write(hint);
}

void TerminalForms::show_field(const Field& field) {
    if (!field.visible) return;
    const std::string label = without_access_key(field.label);
    terminal_.write(field.kind == FieldKind::label ? label + '\n' : label + ": " + content(field) + '\n');
}

TerminalForms::Asked TerminalForms::ask_fields(Form& form) {
    Asked asked = Asked::nothing;
    for (std::size_t i = 0; i < form.fields.size(); ++i) {
        if (!can_be_asked(form.fields[i])) {
            show_field(form.fields[i]);
            continue;
        }
        form.focus = i;
        if (!ask_field(form, i)) return Asked::cancelled;
        asked = Asked::all;
    }
    return asked;
}

bool TerminalForms::ask_field(Form& form, std::size_t index) {
    for (;;) {
        const Field& field = form.fields[index];
        const std::optional<std::string> answer =
            terminal_.ask(without_access_key(field.label), content(field));
        if (!answer) return false;
        if (*answer == help_request && terminal_.asks_person() && !find_entry(field, *answer))
            write_help(form, field);
        else if (take_answer(form, index, *answer))
            return true;
    }
}

/// Puts the answer into the field; an empty one leaves what it holds. False when it is refused.
bool TerminalForms::take_answer(Form& form, std::size_t index, const std::string& answer) {
    Field& field = form.fields[index];
    if (field.kind == FieldKind::text) {
        if (!answer.empty()) {
            field.text = answer;
            notify(field.changed);
        }
        return !field.validate || field.validate();
    }
    if (answer.empty() && field.selected) return true;
    if (const std::optional<std::size_t> entry = find_entry(field, answer)) {
        const bool other = field.selected != entry;
        field.selected = entry;
        if (other) notify(field.changed);
        return true;
    }
    terminal_.write("„" + answer +
                    "“ steht nicht in der Liste: " + joined_entries(field, entries_in_a_refusal) + '\n');
    return false;
}

void TerminalForms::write_help(const Form& form, const Field& field) {
    if (!field.entries.empty())
        terminal_.write("Auswahl: " + joined_entries(field, field.entries.size()) + '\n');
    if (form.key_down) form.key_down(KeyStroke{key_f1});
}

}  // namespace prot
