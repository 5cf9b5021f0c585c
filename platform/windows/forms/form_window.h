#pragma once

#include <windows.h>

#include <chrono>
#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/forms/type_ahead.h"
#include "platform/windows/forms/form_view.h"

namespace prot {

/// One form that is open as a window of the system. What a person does goes into the form, its functions
/// answer, and then the window follows the form. They run one at a time: what happens meanwhile, while one of
/// them shows a message box, is no event of the form.
class FormWindow {
public:
    /// Nothing is on view yet. `form` outlives the window.
    explicit FormWindow(Form& form) : form_(form) {}
    ~FormWindow();
    FormWindow(const FormWindow&) = delete;
    FormWindow& operator=(const FormWindow&) = delete;

    /// Shows the form over `owner`, which may be null. False when no window can be made.
    bool open(HWND owner);

    /// Passes messages on until one of the form's functions ends its display. Raises what one of them raised.
    void run();

private:
    static INT_PTR CALLBACK procedure(HWND dialog, UINT message, WPARAM word, LPARAM number);
    INT_PTR answer(UINT message, WPARAM word, LPARAM number);
    void command(WORD id, WORD notification);
    LRESULT hear_list(NMHDR& heading);

    template <class Action>
    void handle(Action action);
    void edit(std::size_t field, std::string text);
    void press(const Button& button);
    void settle();
    bool may_be_at(const FormControl& here);
    bool validated();

    bool preview(const MSG& message);
    bool preview_key(const MSG& message);
    bool preview_letter(const MSG& message);
    bool move_in_picker(const MSG& message, const KeyStroke& stroke);

    void follow();
    void post_settle() const;

    Form& form_;
    HWND dialog_ = nullptr;
    std::unique_ptr<FormView> view_;
    bool busy_ = true;                    // while it opens, and while an event is being handled
    std::size_t focus_before_ = 0;        // the form's focus when it began
    std::optional<std::size_t> unasked_;  // text field entered and not validated since
    TypeAhead type_ahead_;
    HWND typed_into_ = nullptr;  // the list that type_ahead_ is at
    std::exception_ptr failure_;
};

}  // namespace prot
