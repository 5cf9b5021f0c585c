#pragma once

#include <functional>

#include "platform/forms/form.h"

namespace prot {

/// Filter forms as modal windows of the system, over the active window of the calling thread. Fields stand
/// one below the other, labels to their left, in the system's font and colours. F1 always goes to the form,
/// other keys where it previews them. A text field is validated when the focus goes to another control
/// (Cancel only where it asks for that), and before OK is pressed.
class WindowForms : public FormDisplay {
public:
    /// `refused` is told when a form cannot be shown because nobody could see it; its display has ended then.
    explicit WindowForms(std::function<void()> refused) : refused_(std::move(refused)) {}

    /// The suite's set-up of a form changes nothing that these windows do not do anyway.

    /// An error that one of the form's functions lets escape closes the window and goes on to the caller.
    void show_modal(Form& form) override;

private:
    std::function<void()> refused_;
};

}  // namespace prot
