#pragma once

#include <string>
#include <utility>

#include "platform/forms/form.h"

namespace prot {

/// What this program adds to the filter forms, in whichever display: above the fields, what the run is about
/// besides; below a range of accounts, what stands
/// for all of them; and the list of fiscal years is off while the clients are chosen together, where no year
/// counts.
class FormAids : public FormDisplay {
public:
    /// `display` shows the forms and outlives it.
    explicit FormAids(FormDisplay& display) : display_(display) {}

    /// The form stays where it is until it has been shown.
    void standard_setup(Form& form, int code) override;
    void show_modal(Form& form) override {
        form.notice = notice_;
        display_.show_modal(form);
    }

    /// See Form::notice.
    void set_notice(std::string notice) { notice_ = std::move(notice); }

private:
    FormDisplay& display_;
    std::string notice_;
};

}  // namespace prot
