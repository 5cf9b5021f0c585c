#include "platform/portable/screen/screen_forms.h"

#include "platform/portable/screen/form_session.h"
#include "platform/portable/screen/form_window.h"

namespace prot {

void ScreenForms::show_modal(Form& form) {
    form.shown = true;
    const bool fits = lay_out(form, largest_window(smallest_screen)).has_value();
    if (!fits || !show(form)) plain_.show_modal(form);
}

/// False when the screen could not be had.
bool ScreenForms::show(Form& form) {
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
    }
    if (session.cancelled()) terminal_.note(Outcome::cancelled);
    return true;
}

}  // namespace prot
