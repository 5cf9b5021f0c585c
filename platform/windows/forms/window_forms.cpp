#include "platform/windows/forms/window_forms.h"

#include "platform/windows/forms/form_window.h"
#include "platform/windows/system/system_message_boxes.h"

namespace prot {

void WindowForms::show_modal(Form& form) {
    form.shown = true;
    const HWND owner = owner_window();
    FormWindow window(form);
    // The owner is switched on again before the window goes, so that it becomes the active one.
    const DisabledWindow disabled(owner);
    if (!has_interactive_desktop() || !window.open(owner)) {
        form.shown = false;
        refused_();
        return;
    }
    window.run();
}

}  // namespace prot
