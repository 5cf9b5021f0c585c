#pragma once

#include "platform/forms/form.h"
#include "platform/portable/screen/screen.h"
#include "platform/portable/terminal/terminal.h"

namespace prot {

/// Forms as windows on the whole screen. Cancel, and a terminal that is gone, mark the run as cancelled. A
/// form that the screen has no room for is left to `plain`.
class ScreenForms : public FormDisplay {
public:
    ScreenForms(Screen& screen, Terminal& terminal, FormDisplay& plain)
        : screen_(screen), terminal_(terminal), plain_(plain) {}

    void show_modal(Form& form) override;

    /// Whether the person has had a form on the screen.
    bool have_been_shown() const { return have_been_shown_; }

private:
    bool show(Form& form);

    Screen& screen_;
    Terminal& terminal_;
    FormDisplay& plain_;
    bool have_been_shown_ = false;
};

}  // namespace prot
