#include "platform/portable/screen/screen_forms.h"

#include "platform/portable/screen/form_session.h"
#include "platform/portable/screen/form_window.h"

#include "platform/portable/screen/text_window.h"

namespace prot {

namespace {

/// A search is what a person begins with, unless the form asks for another field.
void start_in_search_field(Form& form) {
    if (form.select_focus) return;
    for (std::size_t i = 0; i < form.fields.size(); ++i) {
        const Field& field = form.fields[i];
        if (field.kind != FieldKind::picker || !field.can_have_focus()) continue;
        form.focus = i;
        return;
    }
}

}  // namespace

void ScreenForms::show_modal(Form& form) {
    form.shown = true;
    const bool fits = lay_out(form, largest_window(smallest_screen)).has_value();
    if (!fits || !show(form)) plain_.show_modal(form);
}

/// False when the screen could not be had.
bool ScreenForms::show(Form& form) {
    start_in_search_field(form);
    FormSession session(form);
    FormWindow window(form, session);
    const OpenWindow open(screen_, window);
    if (!open.is_open()) return false;
    have_been_shown_ = true;
    while (form.shown) {
        if (const std::optional<Key> key = screen_.next_key())
            session.press(*key);
        else
            session.abandon();
        if (const std::string missing = session.take_message(); form.shown && !missing.empty())
            show_text_window(screen_, {"Auswahl", missing, {"OK"}});
    }
    if (session.cancelled()) terminal_.note(Outcome::cancelled);
    return true;
}

}  // namespace prot
