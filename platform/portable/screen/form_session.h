#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/forms/form.h"
#include "platform/forms/picker_matches.h"
#include "platform/forms/type_ahead.h"
#include "platform/portable/screen/key.h"
#include "platform/portable/screen/text_line.h"

namespace prot {

/// What keys do to an open form: they move the focus, select, type and press buttons, and the form's own
/// functions are called for it. Whatever those change is followed before the next key.
///   Tab, Shift-Tab      next and previous field or button
///   arrows              within a list, options or the matches of a picker; otherwise as Tab
///   letters             in a list or options: the entry that begins so
///   Alt and a letter    the field or button that is marked with it
///   Enter               OK, or Cancel while that has the focus; an OK that is off says what is missing
///   Esc                 Cancel
/// A text field is checked when the focus leaves it for anything but a Cancel that works without that; a
/// refused one keeps the focus, and what was pressed does nothing.
class FormSession {
public:
    /// `form` outlives the session; its focus is where the session begins.
    explicit FormSession(Form& form);

    void press(const Key& key);

    /// Presses Cancel without any check, and ends the form even if that leaves it open.
    void abandon();

    /// Whether the form was ended by Cancel.
    bool cancelled() const { return cancelled_; }

    /// What a person has to be told of what was pressed last: why OK does nothing. Empty: nothing.
    std::string take_message() { return std::exchange(message_, {}); }

    /// What has the focus: a field's index, ok() or cancel().
    std::size_t target() const { return target_; }
    std::size_t ok() const { return form_.fields.size(); }
    std::size_t cancel() const { return form_.fields.size() + 1; }

    /// The line to type in that has the focus; null when it is something else.
    const TextLine* line() const { return on_line() ? &line_ : nullptr; }

    /// What of the picker, a field of that index, matches what is typed now.
    const PickerMatches& matches(std::size_t index);

    /// How many lines of the list or picker that has the focus are on view.
    void set_page(std::size_t rows) { page_ = rows; }

private:
    bool on_field() const { return target_ < form_.fields.size(); }
    bool on(FieldKind kind) const { return on_field() && form_.fields[target_].kind == kind; }
    bool on_line() const { return on(FieldKind::text) || on(FieldKind::picker); }
    Field& field() { return form_.fields[target_]; }
    const Button& button(std::size_t target) const { return target == ok() ? form_.ok : form_.cancel; }
    bool can_have_focus(std::size_t target) const;

    void dispatch(const Key& key);
    bool press_access_key(const Key& key);
    void press_in_field(const Key& key);
    void press_in_text(const Key& key);
    void press_in_choice(const Key& key);
    void press_in_picker(const Key& key);
    std::optional<std::size_t> entry_after(const Key& key);
    std::optional<std::size_t> entry_typed(char32_t letter);
    std::optional<std::size_t> match_after(const Key& key);

    bool may_leave_to(std::size_t target);
    void go_to(std::size_t target);
    void move(bool forward);
    void enter(std::size_t target);
    void press_button(std::size_t target);
    void say_what_is_missing();
    void follow_form();

    Form& form_;
    std::size_t target_ = 0;
    std::size_t focus_ = 0;                 // form_.focus when it was last looked at
    std::optional<std::size_t> unchecked_;  // the text field whose check is still due
    TextLine line_;
    std::map<std::size_t, PickerMatches> matches_;  // of pickers, by the field's index
    TypeAhead type_ahead_;
    std::size_t page_ = 1;
    bool cancelled_ = false;
    std::string message_;
};

}  // namespace prot
