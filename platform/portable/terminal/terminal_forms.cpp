#include "platform/portable/terminal/terminal_forms.h"

#include <algorithm>
#include <numeric>

#include "platform/automation/letter_case.h"
#include "platform/automation/text_parts.h"
#include "platform/forms/entry_search.h"

namespace prot {

namespace {

const std::string hint = "(Eingabetaste übernimmt den Vorschlag, ? zeigt die Auswahl, ?? die Hilfe, " +
                         std::string(cancel_hint) + ")\n";
constexpr std::string_view entries_request = "?", help_request = "??";
constexpr std::string_view no_entries = "Hier gibt es keine Auswahl.\n";
constexpr std::string_view not_complete = "Diese Angaben reichen noch nicht aus.";
constexpr std::string_view nothing_picked = "Bitte eine Nummer oder einen Teil des Namens eingeben.";
constexpr std::size_t most_entries_named = 20;

std::string joined_entries(const Field& field, std::size_t limit) {
    std::string text;
    for (std::size_t i = 0; i < std::min(limit, field.entries.size()); ++i) {
        if (i > 0) text += ", ";
        text += field.entries[i].text;
    }
    if (field.entries.size() > limit) text += " …";
    return text;
}

/// An entry as a picker names it.
std::string named(const Entry& entry) {
    return entry.number.empty() || entry.text.empty() ? entry.number + entry.text
                                                      : entry.number + " " + entry.text;
}

std::string joined_matches(const Field& picker, const std::vector<std::size_t>& matches) {
    std::string text;
    const std::size_t shown = std::min(matches.size(), most_entries_named);
    for (std::size_t i = 0; i < shown; ++i) text += (i > 0 ? ", " : "") + named(picker.entries[matches[i]]);
    if (matches.size() > shown) text += ", … und " + std::to_string(matches.size() - shown) + " weitere";
    return text;
}

/// What there is to choose from; of a picker no more than a person can read.
std::string whole_list(const Field& field) {
    if (field.kind != FieldKind::picker) return joined_entries(field, field.entries.size());
    std::vector<std::size_t> all(field.entries.size());
    std::iota(all.begin(), all.end(), std::size_t{0});
    return joined_matches(field, all);
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
    if (field.kind == FieldKind::text) return field.text;
    if (field.kind != FieldKind::picker) return field.selected_text();
    return field.selected ? named(field.entries[*field.selected]) : std::string();
}

/// What the fields of a form held at a moment.
class HeldFields {
public:
    explicit HeldFields(const Form& form) {
        for (const Field& field : form.fields) held_.push_back({field.selected, field.text});
    }

    /// Gives the field of that index, and those of its group, back what they held.
    void give_back(Form& form, std::size_t index) const {
        std::size_t first = index, end = index + 1;
        for (const Group& group : form.groups)
            if (index >= group.first && index < group.first + group.count) {
                first = group.first;
                end = group.first + group.count;
            }
        for (std::size_t i = first; i < std::min(end, held_.size()); ++i) give_back(form.fields[i], held_[i]);
    }

private:
    struct Held {
        std::optional<std::size_t> selected;
        std::string text;
    };

    static void give_back(Field& field, const Held& held) {
        if (field.kind == FieldKind::text && field.text != held.text) {
            field.text = held.text;
            notify(field.changed);
        } else if (held.selected.value_or(0) < field.entries.size()) {
            field.choose(held.selected);
        }
    }

    std::vector<Held> held_;
};

}  // namespace

void TerminalForms::show_modal(Form& form) {
    form.shown = true;
    const bool can_ask = terminal_.require_input();
    if (can_ask) write_heading(form);
    while (can_ask && form.shown) {
        const HeldFields before(form);
        const Asked asked = ask_fields(form);
        if (asked == Asked::cancelled) break;
        press_ok(form, asked);
        if (form.shown && form.select_focus) before.give_back(form, form.focus);
        if (terminal_.outcome() == Outcome::refused) break;
        // Without a question nobody can mend what a check of the form refuses.
        if (asked == Asked::nothing && form.shown) {
            terminal_.note(Outcome::cancelled);
            break;
        }
    }
    if (form.shown) notify(form.cancel.click);
    form.shown = false;
}

/// The form stays shown when it does not take what it holds.
void TerminalForms::press_ok(Form& form, Asked asked) {
    form.select_focus = false;
    const bool complete = form.ok.enabled;
    if (complete) notify(form.ok.click);
    if (form.shown && asked == Asked::all)
        terminal_.refuse_answer(complete ? std::string_view() : not_complete);
    else if (!complete)
        terminal_.write(std::string(not_complete) + '\n');
}

void TerminalForms::write_heading(const Form& form) {
    terminal_.write(form.caption + '\n');
    if (!form.notice.empty()) terminal_.write(form.notice + '\n');
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
        if (write_help(form, field, *answer)) continue;
        if (take_answer(form.fields[index], *answer)) return true;
        if (!form.shown) return false;
    }
}

/// Puts the answer into the field; an empty one leaves what it holds. False when it is refused.
bool TerminalForms::take_answer(Field& field, const std::string& answer) {
    if (field.kind == FieldKind::text) return take_text(field, answer);
    if (field.kind == FieldKind::picker) return take_picked(field, answer);
    return take_entry(field, answer);
}

bool TerminalForms::take_text(Field& field, const std::string& answer) {
    const auto put = [&field](const std::string& text) {
        field.text = text;
        notify(field.changed);
    };
    const std::string before = field.text;
    if (!answer.empty()) put(answer);
    if (!field.validate || field.validate()) return true;
    if (field.text != before) put(before);
    terminal_.refuse_answer({});
    return false;
}

bool TerminalForms::take_entry(Field& field, const std::string& answer) {
    if (answer.empty() && field.selected) return true;
    if (const std::optional<std::size_t> entry = find_entry(field, answer)) {
        field.choose(*entry);
        return true;
    }
    terminal_.refuse_answer("„" + answer +
                            "“ steht nicht in der Liste: " + joined_entries(field, most_entries_named));
    return false;
}

bool TerminalForms::take_picked(Field& field, const std::string& answer) {
    if (trim_blanks(answer).empty()) {
        if (!field.selected) terminal_.refuse_answer(nothing_picked);
        return field.selected.has_value();
    }
    EntrySearch search;
    search.look_through(field.entries);
    if (const std::optional<std::size_t> entry = search.chosen(answer, std::nullopt)) {
        terminal_.write(without_access_key(field.label) + ": " + named(field.entries[*entry]) + '\n');
        field.choose(*entry);
        return true;
    }
    const std::vector<std::size_t> matches = search.matches(answer);
    terminal_.refuse_answer("„" + answer +
                            (matches.empty() ? "“ passt auf keinen Eintrag."
                                             : "“ passt auf mehrere: " + joined_matches(field, matches)));
    return false;
}

/// Whether a person asked for help instead of answering; what was asked for is shown.
bool TerminalForms::write_help(const Form& form, const Field& field, const std::string& answer) {
    const bool asks_for_entries = answer == entries_request;
    if (!asks_for_entries && answer != help_request) return false;
    if (!terminal_.asks_person() || find_entry(field, answer)) return false;
    if (!asks_for_entries) {
        if (form.key_down) form.key_down(KeyStroke{key_f1});
    } else {
        terminal_.write(field.entries.empty() ? std::string(no_entries)
                                              : "Auswahl: " + whole_list(field) + '\n');
    }
    return true;
}

}  // namespace prot
