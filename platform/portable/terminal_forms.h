#pragma once

#include "platform/form.h"
#include "platform/portable/terminal.h"

namespace prot {

/// Filter forms as questions, field by field in the order of the focus, each with its selection as the
/// suggestion. An answer names an entry by its text, exactly or without regard to letter case; any other is
/// answered with the list, and the field is asked again. A disabled field is shown. After the last field OK
/// is pressed; when a check of the form keeps it open, the whole form is asked again with the answers given
/// as suggestions. A question without an answer presses Cancel and marks the run (see Terminal::ask). At a
/// keyboard `?` shows the field's entries and help.
class TerminalForms : public FormDisplay {
public:
    explicit TerminalForms(Terminal& terminal) : terminal_(terminal) {}

    void standard_setup(Form& form, int code) override;
    void show_modal(Form& form, FormEvents& events) override;

private:
    enum class Asked { all, nothing, cancelled };

    void write_heading(const Form& form);
    Asked ask_fields(Form& form, FormEvents& events);
    bool ask_field(ListField& field, FormEvents& events);
    void write_help(const ListField& field, FormEvents& events);

    Terminal& terminal_;
};

}  // namespace prot
