#include "platform/windows/forms/form_window.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/windows/forms/form_controls.h"
#include "platform/windows/forms/match_list.h"

namespace prot {

namespace {

constexpr DWORD window_style = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME;

/// Posted when the focus or an open list changed: by the time it arrives, the system has done its part. In
/// the middle of a change of focus no message box may open.
constexpr UINT settle_message = WM_APP + 1;

/// The character of Ctrl+Backspace, which is none of a text.
constexpr WPARAM deletes_word = 0x7F;

}  // namespace

FormWindow::~FormWindow() {
    if (!dialog_) return;
    SetWindowLongPtrW(dialog_, DWLP_USER, 0);  // what its end says reaches nobody
    view_.reset();
    DestroyWindow(dialog_);
}

bool FormWindow::open(HWND owner) {
    dialog_ = create_dialog(form_.caption, window_style, owner, procedure, reinterpret_cast<LPARAM>(this));
    if (!dialog_) return false;
    view_ = std::make_unique<FormView>(form_, dialog_);
    if (!view_->make_controls()) return false;
    follow();
    centre_window(dialog_, owner);
    ShowWindow(dialog_, SW_SHOW);
    if (!owner) SetForegroundWindow(dialog_);
    form_.select_focus = true;
    view_->give_focus();
    // Whoever opens the form may have left the hourglass.
    SetCursor(LoadCursorW(nullptr, IDC_ARROW));
    post_settle();
    busy_ = false;
    return true;
}

void FormWindow::run() {
    MSG message{};
    while (form_.shown && dialog_) {
        if (const BOOL got = GetMessageW(&message, nullptr, 0, 0); got <= 0) {
            handle([this] { notify(form_.cancel.click); });
            if (got == 0) PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        if (preview(message) || IsDialogMessageW(dialog_, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    form_.shown = false;
    if (failure_) std::rethrow_exception(failure_);
}

INT_PTR CALLBACK FormWindow::procedure(HWND dialog, UINT message, WPARAM word, LPARAM number) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(dialog, DWLP_USER, static_cast<LONG_PTR>(number));
        return FALSE;
    }
    auto* const window = reinterpret_cast<FormWindow*>(GetWindowLongPtrW(dialog, DWLP_USER));
    return window ? window->answer(message, word, number) : FALSE;
}

INT_PTR FormWindow::answer(UINT message, WPARAM word, LPARAM number) {
    switch (message) {
        case WM_COMMAND:
            command(LOWORD(word), HIWORD(word));
            return TRUE;
        case WM_NOTIFY:
            SetWindowLongPtrW(dialog_, DWLP_MSGRESULT, hear_list(*reinterpret_cast<NMHDR*>(number)));
            return TRUE;
        case WM_CLOSE:
            handle([this] { press(form_.cancel); });
            return TRUE;
        case WM_HELP:  // F1 is the form's; the owner's help must not open as well
            return TRUE;
        case settle_message:
            handle([this] { settle(); });
            return TRUE;
        case WM_DESTROY:
            dialog_ = nullptr;
            return FALSE;
        default:
            return FALSE;
    }
}

void FormWindow::command(WORD id, WORD notification) {
    if (id == IDCANCEL && notification == BN_CLICKED) return handle([this] { press(form_.cancel); });
    if (id == IDOK && notification == BN_CLICKED) return handle([this] { press(form_.ok); });
    if (id < first_control_id) return post_settle();
    const std::size_t number = static_cast<std::size_t>(id - first_control_id) + notices_of(form_);
    if (number >= view_->controls().size()) return post_settle();
    const FormControl control = view_->controls()[number];
    const bool list =
        control.part == ControlPart::field && form_.fields[control.index].kind == FieldKind::list;
    const bool text = control.part == ControlPart::field && !list;
    if (list && notification == CBN_SELCHANGE)
        handle([=, this] { form_.fields[control.index].choose(selected_in(view_->window(number))); });
    else if (text && notification == EN_CHANGE)
        handle([=, this] { edit(control.index, text_in(view_->window(number))); });
    else if (control.part == ControlPart::option && notification == BN_CLICKED)
        handle([=, this] { form_.fields[control.index].choose(control.entry); });
    else
        post_settle();
}

/// Rows are drawn whenever the system wants them, also while an event is being handled.
LRESULT FormWindow::hear_list(NMHDR& heading) {
    const auto number = view_->number_of(heading.hwndFrom);
    if (!number || view_->controls()[*number].part != ControlPart::matches) return 0;
    if (heading.code == LVN_GETDISPINFOW)
        answer_text(view_->matches_of(view_->controls()[*number].index),
                    reinterpret_cast<NMLVDISPINFOW&>(heading));
    else if (heading.code == NM_CUSTOMDRAW)
        return answer_drawing(reinterpret_cast<NMLVCUSTOMDRAW&>(heading), selected_row_in(heading.hwndFrom),
                              IsWindowEnabled(heading.hwndFrom) != FALSE);
    else if (heading.code == LVN_ITEMCHANGED && !busy_)
        post_settle();
    return 0;
}

/// Runs `action` as one event of the form, unless one is running. Nothing it raises gets to the system.
template <class Action>
void FormWindow::handle(Action action) {
    if (busy_ || !form_.shown || !dialog_) return;
    busy_ = true;
    try {
        if (const auto control = view_->focused(); control && control->belongs_to_field())
            form_.focus = control->index;
        focus_before_ = form_.focus;
        action();
        if (form_.shown && dialog_) follow();
    } catch (...) {
        failure_ = std::current_exception();
        form_.shown = false;
    }
    busy_ = false;
    // A message that another thread sends does not wake the loop.
    if (!form_.shown && dialog_) PostMessageW(dialog_, WM_NULL, 0, 0);
}

void FormWindow::edit(std::size_t index, std::string text) {
    Field& field = form_.fields[index];
    if (field.text == text) return;
    field.text = std::move(text);
    if (field.kind == FieldKind::picker)
        return field.choose(view_->matches_of(index).chosen(field.text, field.selected));
    notify(field.changed);
}

void FormWindow::press(const Button& button) {
    if (!button.enabled) return;
    if (button.causes_validation && !validated()) return;
    notify(button.click);
    post_settle();
}

/// What follows from where the focus is now, and from a selection of which the system said nothing.
void FormWindow::settle() {
    for (std::size_t number = 0; number < view_->controls().size(); ++number) {
        if (!view_->holds_other_selection(number)) continue;
        form_.fields[view_->controls()[number].index].choose(view_->selection_at(number));
        // The controls behind it are compared when they show what the form says now.
        return post_settle();
    }
    const std::optional<FormControl> here = view_->focused();
    if (!here || !may_be_at(*here)) return;
    unasked_.reset();
    if (here->part == ControlPart::field && form_.fields[here->index].validate) unasked_ = here->index;
}

/// Whether the field that was entered last is done with when the focus is at `here`.
bool FormWindow::may_be_at(const FormControl& here) {
    if (!unasked_ || (here.belongs_to_field() && here.index == *unasked_)) return true;
    // Not yet: from such a button the focus may go anywhere.
    if (here.part == ControlPart::cancel && !form_.cancel.causes_validation) return false;
    if (here.part == ControlPart::ok && !form_.ok.causes_validation) return false;
    return validated();
}

/// Asks the field that was entered last. Refused: the focus goes back to it.
bool FormWindow::validated() {
    if (!unasked_) return true;
    const std::size_t index = *unasked_;
    Field& field = form_.fields[index];
    if (field.can_have_focus() && field.validate && !field.validate()) {
        form_.set_focus(index);
        return false;
    }
    unasked_.reset();
    return true;
}

bool FormWindow::preview(const MSG& message) {
    if (message.hwnd != dialog_ && !IsChild(dialog_, message.hwnd)) return false;
    if (message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN) return preview_key(message);
    return message.message == WM_CHAR && preview_letter(message);
}

/// True when the key has done its work.
bool FormWindow::preview_key(const MSG& message) {
    const auto held = [](int key) { return GetKeyState(key) < 0; };
    const KeyStroke stroke{static_cast<int>(message.wParam), held(VK_SHIFT), held(VK_CONTROL), held(VK_MENU)};
    const bool help = stroke.code == key_f1;
    if (help || form_.key_preview)
        handle([&] {
            if (form_.key_down) form_.key_down(stroke);
        });
    return help || !form_.shown || move_in_picker(message, stroke);
}

/// The keys that mean nothing in a line of text move the selection among the matches beneath it.
bool FormWindow::move_in_picker(const MSG& message, const KeyStroke& stroke) {
    const auto number = view_->number_of(message.hwnd);
    if (!number || stroke.shift || stroke.control || stroke.alt) return false;
    const auto [part, index, entry] = view_->controls()[*number];
    if (part != ControlPart::field) return false;
    Field& field = form_.fields[index];
    if (field.kind != FieldKind::picker) return false;
    const int page = view_->page_of(index);
    const std::pair<int, int> steps[] = {{VK_UP, -1}, {VK_DOWN, 1}, {VK_PRIOR, -page}, {VK_NEXT, page}};
    const auto step = std::ranges::find(steps, stroke.code, &std::pair<int, int>::first);
    if (step == std::end(steps)) return false;
    handle(
        [&, place = index] { field.choose(view_->matches_of(place).moved(field.selected, step->second)); });
    return true;
}

/// Lists of the system know no more than an entry's first letter. What is typed among a picker's matches goes
/// to its line.
bool FormWindow::preview_letter(const MSG& message) {
    const auto number = view_->number_of(message.hwnd);
    if (number && view_->controls()[*number].part == ControlPart::matches &&
        ((message.wParam > L' ' && message.wParam != deletes_word) || message.wParam == VK_BACK)) {
        const HWND line = view_->begin_typing(view_->controls()[*number].index);
        SendMessageW(line, message.message, message.wParam, message.lParam);
        return true;
    }
    if (!number || view_->controls()[*number].part != ControlPart::field) return false;
    Field& field = form_.fields[view_->controls()[*number].index];
    const auto letter = static_cast<char32_t>(message.wParam);
    const auto now = std::chrono::steady_clock::now();
    if (field.kind != FieldKind::list) return false;
    if (std::exchange(typed_into_, message.hwnd) != message.hwnd) type_ahead_.forget();
    if (!type_ahead_.takes(letter, now)) return false;
    const auto entry = type_ahead_.typed(letter, now, field.entries, selected_in(message.hwnd));
    if (!entry) return true;
    show_selected(message.hwnd, entry);
    handle([&] { field.choose(entry); });
    return true;
}

/// Brings the window to what the form says.
void FormWindow::follow() {
    view_->follow();
    if (!form_.select_focus && form_.focus == focus_before_) return;
    view_->give_focus();
    type_ahead_.forget();
}

void FormWindow::post_settle() const {
    if (dialog_) PostMessageW(dialog_, settle_message, 0, 0);
}

}  // namespace prot
