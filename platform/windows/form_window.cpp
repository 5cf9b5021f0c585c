#include "platform/windows/form_window.h"

#include <algorithm>
#include <new>
#include <utility>

namespace prot {

namespace {

constexpr DWORD window_style = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME;

/// Posted when the focus or an open list changed: by the time it arrives, the system has done its part. In
/// the middle of a change of focus no message box may open.
constexpr UINT settle_message = WM_APP + 1;

void notify(const std::function<void()>& function) {
    if (function) function();
}

bool same_texts(const std::vector<Entry>& one, const std::vector<Entry>& other) {
    return std::ranges::equal(one, other, {}, &Entry::text, &Entry::text);
}

}  // namespace

FormWindow::~FormWindow() {
    measure_.reset();
    if (dialog_) DestroyWindow(dialog_);
}

bool FormWindow::open(HWND owner) {
    dialog_ = create_dialog(form_.caption, window_style, owner, procedure, reinterpret_cast<LPARAM>(this));
    if (!dialog_) return false;
    measure_ = std::make_unique<DialogMeasure>(dialog_);
    if (!make_controls()) return false;
    follow();
    centre_window(dialog_, owner);
    ShowWindow(dialog_, SW_SHOW);
    if (!owner) SetForegroundWindow(dialog_);
    form_.select_focus = true;
    give_focus();
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
    return window ? window->answer(message, word) : FALSE;
}

INT_PTR FormWindow::answer(UINT message, WPARAM word) {
    switch (message) {
        case WM_COMMAND:
            command(LOWORD(word), HIWORD(word));
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
    const auto number = static_cast<std::size_t>(id - first_control_id);
    if (id < first_control_id || number >= controls_.size()) return post_settle();
    const FormControl control = controls_[number];
    const bool list =
        control.part == ControlPart::field && form_.fields[control.index].kind == FieldKind::list;
    const bool text = control.part == ControlPart::field && !list;
    if (list && notification == CBN_SELCHANGE)
        handle([=, this] { choose(control.index, selected_in(windows_[number])); });
    else if (text && notification == EN_CHANGE)
        handle([=, this] { edit(control.index, text_in(windows_[number])); });
    else if (control.part == ControlPart::option && notification == BN_CLICKED)
        handle([=, this] { choose(control.index, control.entry); });
    else
        post_settle();
}

bool FormWindow::make_controls() {
    controls_ = controls_of(form_);
    entries_.assign(form_.fields.size(), {});
    for (std::size_t number = 0; number < controls_.size(); ++number) {
        const ControlDescription made = describe_control(form_, controls_[number], number);
        const HWND window =
            create_control(dialog_, made.window_class, made.text, made.style, made.extended_style, made.id);
        if (!window) return false;
        windows_.push_back(window);
        if ((SendMessageW(window, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) != 0)
            SendMessageW(window, EM_SETLIMITTEXT, form_.fields[controls_[number].index].longest, 0);
    }
    SendMessageW(dialog_, DM_SETDEFID, IDOK, 0);
    unarranged_ = true;
    return true;
}

void FormWindow::destroy_controls() {
    for (const HWND window : std::exchange(windows_, {})) DestroyWindow(window);
    form_.select_focus = true;
}

/// Runs `action` as one event of the form, unless one is running. Nothing it raises gets to the system.
template <class Action>
void FormWindow::handle(Action action) {
    if (busy_ || !form_.shown || !dialog_) return;
    busy_ = true;
    try {
        if (const auto control = focused(); control && control->belongs_to_field())
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

void FormWindow::choose(std::size_t index, std::optional<std::size_t> entry) {
    Field& field = form_.fields[index];
    if (field.selected == entry) return;
    field.selected = entry;
    notify(field.changed);
}

void FormWindow::edit(std::size_t index, std::string text) {
    Field& field = form_.fields[index];
    if (field.text == text) return;
    field.text = std::move(text);
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
    for (std::size_t number = 0; number < controls_.size(); ++number) {
        if (!holds_other_selection(number)) continue;
        choose(controls_[number].index, selection_at(number));
        // The controls behind it are compared when they show what the form says now.
        return post_settle();
    }
    const std::optional<FormControl> here = focused();
    if (!here || !may_be_at(*here)) return;
    unasked_.reset();
    if (here->part == ControlPart::field && form_.fields[here->index].validate) unasked_ = here->index;
}

/// A list takes its old selection back when Esc closes it; an option is chosen when the focus comes to it.
bool FormWindow::holds_other_selection(std::size_t number) const {
    const FormControl& control = controls_[number];
    const HWND window = windows_[number];
    if (control.part == ControlPart::option)
        return SendMessageW(window, BM_GETCHECK, 0, 0) == BST_CHECKED &&
               form_.fields[control.index].selected != control.entry;
    return control.part == ControlPart::field && form_.fields[control.index].kind == FieldKind::list &&
           !SendMessageW(window, CB_GETDROPPEDSTATE, 0, 0) &&
           selected_in(window) != form_.fields[control.index].selected;
}

std::optional<std::size_t> FormWindow::selection_at(std::size_t number) const {
    const FormControl& control = controls_[number];
    return control.part == ControlPart::option ? control.entry : selected_in(windows_[number]);
}

/// Whether the field that was entered last is done with when the focus is at `here`.
bool FormWindow::may_be_at(const FormControl& here) {
    if (!unasked_ || (here.part == ControlPart::field && here.index == *unasked_)) return true;
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
    return help || !form_.shown;
}

/// Lists of the system know no more than an entry's first letter.
bool FormWindow::preview_letter(const MSG& message) {
    const auto number = number_of(message.hwnd);
    if (!number || controls_[*number].part != ControlPart::field) return false;
    Field& field = form_.fields[controls_[*number].index];
    const auto letter = static_cast<char32_t>(message.wParam);
    const auto now = std::chrono::steady_clock::now();
    if (field.kind != FieldKind::list) return false;
    if (std::exchange(typed_into_, message.hwnd) != message.hwnd) type_ahead_.forget();
    if (!type_ahead_.takes(letter, now)) return false;
    const auto entry = type_ahead_.typed(letter, now, field.entries, selected_in(message.hwnd));
    if (!entry) return true;
    show_selected(message.hwnd, entry);
    handle([&] { choose(controls_[*number].index, entry); });
    return true;
}

/// Brings the window to what the form says.
void FormWindow::follow() {
    if (controls_ != controls_of(form_)) {
        destroy_controls();
        if (!make_controls()) throw std::bad_alloc();
    }
    leave_unusable_control();
    show_text(dialog_, form_.caption);
    for (std::size_t number = 0; number < controls_.size(); ++number) follow_control(number);
    if (std::exchange(unarranged_, false)) arrange();
    if (form_.select_focus || form_.focus != focus_before_) give_focus();
}

void FormWindow::follow_control(std::size_t number) {
    const FormControl& control = controls_[number];
    const HWND window = windows_[number];
    const bool visible = is_visible(form_, control);
    const bool was_visible = (GetWindowLongPtrW(window, GWL_STYLE) & WS_VISIBLE) != 0;
    if (control.part != ControlPart::field) {
        const std::string text = describe_control(form_, control, number).text;
        unarranged_ = unarranged_ || text_in(window) != text;
        show_text(window, text);
    } else if (form_.fields[control.index].kind == FieldKind::list) {
        follow_list(number);
    } else {
        show_text(window, form_.fields[control.index].text);
    }
    if (control.part == ControlPart::option)
        show_checked(window, form_.fields[control.index].selected == control.entry);
    if (control.belongs_to_field()) show_enabled(window, form_.fields[control.index].enabled);
    if (control.part == ControlPart::ok) show_enabled(window, form_.ok.enabled);
    if (control.part == ControlPart::cancel) show_enabled(window, form_.cancel.enabled);
    show_visible(window, visible);
    unarranged_ = unarranged_ || visible != was_visible;
}

void FormWindow::follow_list(std::size_t number) {
    const Field& field = form_.fields[controls_[number].index];
    std::vector<Entry>& held = entries_[controls_[number].index];
    if (!same_texts(held, field.entries)) {
        show_entries(windows_[number], field.entries, *measure_);
        held = field.entries;
        unarranged_ = true;
    }
    show_selected(windows_[number], field.selected);
}

/// Lays the controls out anew. The window never becomes narrower while it is open.
void FormWindow::arrange() {
    layout_ = layout_form(form_, controls_, *measure_, layout_.width);
    for (std::size_t number = 0; number < controls_.size(); ++number) {
        Rectangle place = layout_.places[number];
        if (controls_[number].part == ControlPart::field)
            place.height += height_of_open_list(windows_[number]);
        MoveWindow(windows_[number], place.left, place.top, place.width, place.height, FALSE);
    }
    resize_client(dialog_, layout_.width, layout_.height);
    InvalidateRect(dialog_, nullptr, TRUE);
}

void FormWindow::give_focus() {
    const bool wanted = std::exchange(form_.select_focus, false);
    HWND target = target_of(form_.focus);
    if (!target && wanted && !focused()) target = GetNextDlgTabItem(dialog_, nullptr, FALSE);
    // The system's own way to a control also selects its text and moves the default button's frame.
    if (target) SendMessageW(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(target), TRUE);
    type_ahead_.forget();
}

/// The focus does not stay on a control that is about to be switched off or hidden: keys would be lost.
void FormWindow::leave_unusable_control() {
    const std::optional<FormControl> here = focused();
    if (!here || !here->belongs_to_field() || form_.fields[here->index].can_have_focus()) return;
    HWND target = target_of(form_.focus);
    for (std::size_t i = 1; !target && i < form_.fields.size(); ++i)
        target = target_of((here->index + i) % form_.fields.size());
    if (!target) target = GetDlgItem(dialog_, form_.ok.enabled ? IDOK : IDCANCEL);
    SendMessageW(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(target), TRUE);
}

std::optional<std::size_t> FormWindow::number_of(HWND window) const {
    const auto found = std::ranges::find(windows_, window);
    if (!window || found == windows_.end()) return std::nullopt;
    return static_cast<std::size_t>(found - windows_.begin());
}

std::optional<FormControl> FormWindow::focused() const {
    const auto number = number_of(GetFocus());
    return number ? std::optional(controls_[*number]) : std::nullopt;
}

HWND FormWindow::target_of(std::size_t index) const {
    if (index >= form_.fields.size() || !form_.fields[index].can_have_focus()) return nullptr;
    HWND target = nullptr;
    for (std::size_t number = 0; number < controls_.size(); ++number) {
        const FormControl& control = controls_[number];
        if (control.index != index || !control.belongs_to_field() || control.part == ControlPart::label)
            continue;
        if (!target || form_.fields[index].selected == control.entry) target = windows_[number];
        if (control.part == ControlPart::field) break;
    }
    return target;
}

void FormWindow::post_settle() const {
    if (dialog_) PostMessageW(dialog_, settle_message, 0, 0);
}

}  // namespace prot
