#pragma once

#include <string>

#include "platform/forms/form.h"

namespace prot {

/// Forms of a run that deletes: each says so above its fields.
class DeletionForms : public FormDisplay {
public:
    /// notice: see Form.
    DeletionForms(FormDisplay& forms, std::string notice) : forms_(forms), notice_(std::move(notice)) {}

    void standard_setup(Form& form, int code) override { forms_.standard_setup(form, code); }
    void show_modal(Form& form) override {
        form.notice = notice_;
        forms_.show_modal(form);
    }

private:
    FormDisplay& forms_;
    const std::string notice_;
};

}  // namespace prot
