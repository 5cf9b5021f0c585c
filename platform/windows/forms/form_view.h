#pragma once

#include <windows.h>

#include <optional>
#include <vector>

#include "platform/forms/picker_matches.h"
#include "platform/windows/forms/dialog_window.h"
#include "platform/windows/forms/form_layout.h"

namespace prot {

/// The controls of a form in its window: makes them, and brings them to what the form says.
class FormView {
public:
    /// `form` and `dialog` outlive the view; the controls end with the dialog.
    FormView(Form& form, HWND dialog) : form_(form), dialog_(dialog), measure_(dialog) {}

    /// False when the system makes no more controls.
    bool make_controls();

    /// Brings the window to what the form says; only give_focus moves the focus to where the form has it.
    void follow();
    void give_focus();

    const std::vector<FormControl>& controls() const { return controls_; }
    HWND window(std::size_t number) const { return windows_[number]; }
    std::optional<std::size_t> number_of(HWND window) const;
    /// The control that has the focus.
    std::optional<FormControl> focused() const;

    /// The rows of a field that is a picker, and how many of them are on view at once.
    const PickerMatches& matches_of(std::size_t field) const { return pickers_[field].matches; }
    int page_of(std::size_t field) const;
    /// The focus goes to a picker's line, the caret behind what is typed. Returns the line.
    HWND begin_typing(std::size_t field) const;

    /// Whether a list or an option shows another selection than the form has.
    bool holds_other_selection(std::size_t number) const;
    std::optional<std::size_t> selection_at(std::size_t number) const;

private:
    struct Picker {
        PickerMatches matches;
        int number_width = 0;  // of the column of numbers
        bool unshown = false;  // the list holds other rows
    };

    void prepare_control(std::size_t number);
    void destroy_controls();
    void follow_control(std::size_t number);
    void follow_list(std::size_t number);
    void follow_match_count(std::size_t number);
    void follow_matches(std::size_t number);
    void follow_text(std::size_t number);
    void arrange();
    void place_control(std::size_t number);
    void leave_unusable_control();
    /// The control of a field that the focus goes to; null when it cannot have it.
    HWND target_of(std::size_t field) const;
    /// A control that there is.
    HWND window_of(ControlPart part, std::size_t field) const;

    Form& form_;
    HWND dialog_;
    DialogMeasure measure_;
    std::vector<FormControl> controls_;
    std::vector<HWND> windows_;                // of controls_
    std::vector<std::vector<Entry>> entries_;  // that the lists hold, of fields
    std::vector<Picker> pickers_;              // of fields
    FormLayout layout_;
    bool unarranged_ = true;  // what the layout depends on has changed
};

}  // namespace prot
