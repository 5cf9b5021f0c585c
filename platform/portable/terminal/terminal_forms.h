#pragma once

#include "platform/forms/form.h"
#include "platform/portable/terminal/terminal.h"

namespace prot {

/// Filter forms as questions, field by field in the order of the focus, each with what it holds as the
/// suggestion. A list or option field is answered by an entry's text, exactly or without regard to letter
/// case; any other answer is met with the list, and the field is asked again, as is a text that the form's
/// check refuses. A picker is answered by what leads to one entry (EntrySearch), whichever was chosen before;
/// the entry is repeated with its number and text.
/// Labels and fields that are switched off are shown, hidden ones are not. After the last
/// field OK is pressed; when a check of the form keeps it open, the whole form is asked again with the
/// answers given as suggestions, but for the group of the field that the check points at: a refused answer
/// suggests nothing. A question without an answer presses Cancel and marks the run (see Terminal::ask), and
/// so does the first refusal of a prepared one. At a keyboard `?` shows the field's entries, `??` the help.
class TerminalForms : public FormDisplay {
public:
    explicit TerminalForms(Terminal& terminal) : terminal_(terminal) {}

    void show_modal(Form& form) override;

private:
    enum class Asked { all, nothing, cancelled };

    void write_heading(const Form& form);
    void press_ok(Form& form, Asked asked);
    void show_field(const Field& field);
    Asked ask_fields(Form& form);
    bool ask_field(Form& form, std::size_t index);
    bool take_answer(Field& field, const std::string& answer);
    bool take_text(Field& field, const std::string& answer);
    bool take_entry(Field& field, const std::string& answer);
    bool take_picked(Field& field, const std::string& answer);
    bool write_help(const Form& form, const Field& field, const std::string& answer);

    Terminal& terminal_;
};

}  // namespace prot
