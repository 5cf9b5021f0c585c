#pragma once

#include "platform/forms/form.h"

namespace prot {

/// What this program adds to the filter forms, in whichever display: below a range of accounts, what stands
/// for all of them; and the list of fiscal years is off while the clients are chosen together, where no year
/// counts.
class FormAids : public FormDisplay {
public:
    /// `display` shows the forms and outlives it.
    explicit FormAids(FormDisplay& display) : display_(display) {}

    /// The form stays where it is until it has been shown.
    void standard_setup(Form& form, int code) override;
    void show_modal(Form& form) override { display_.show_modal(form); }

private:
    FormDisplay& display_;
};

}  // namespace prot
