#include "platform/windows/form_view.h"

#include <algorithm>
#include <new>
#include <utility>

#include "platform/windows/form_controls.h"

namespace prot {

namespace {

bool same_texts(const std::vector<Entry>& one, const std::vector<Entry>& other) {
    return std::ranges::equal(one, other, {}, &Entry::text, &Entry::text);
}

}  // namespace

bool FormView::make_controls() {
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

void FormView::destroy_controls() {
    for (const HWND window : std::exchange(windows_, {})) DestroyWindow(window);
    form_.select_focus = true;
}

/// Brings the window to what the form says.
void FormView::follow() {
    if (controls_ != controls_of(form_)) {
        destroy_controls();
        if (!make_controls()) throw std::bad_alloc();
    }
    leave_unusable_control();
    show_text(dialog_, form_.caption);
    for (std::size_t number = 0; number < controls_.size(); ++number) follow_control(number);
    if (std::exchange(unarranged_, false)) arrange();
}

void FormView::follow_control(std::size_t number) {
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

void FormView::follow_list(std::size_t number) {
    const Field& field = form_.fields[controls_[number].index];
    std::vector<Entry>& held = entries_[controls_[number].index];
    if (!same_texts(held, field.entries)) {
        show_entries(windows_[number], field.entries, measure_);
        held = field.entries;
        unarranged_ = true;
    }
    show_selected(windows_[number], field.selected);
}

/// Lays the controls out anew. The window never becomes narrower while it is open.
void FormView::arrange() {
    layout_ = layout_form(form_, controls_, measure_, layout_.width);
    for (std::size_t number = 0; number < controls_.size(); ++number) {
        Rectangle place = layout_.places[number];
        if (controls_[number].part == ControlPart::field)
            place.height += height_of_open_list(windows_[number]);
        MoveWindow(windows_[number], place.left, place.top, place.width, place.height, FALSE);
    }
    resize_client(dialog_, layout_.width, layout_.height);
    InvalidateRect(dialog_, nullptr, TRUE);
}

void FormView::give_focus() {
    const bool wanted = std::exchange(form_.select_focus, false);
    HWND target = target_of(form_.focus);
    if (!target && wanted && !focused()) target = GetNextDlgTabItem(dialog_, nullptr, FALSE);
    // The system's own way to a control also selects its text and moves the default button's frame.
    if (target) SendMessageW(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(target), TRUE);
}

/// The focus does not stay on a control that is about to be switched off or hidden: keys would be lost.
void FormView::leave_unusable_control() {
    const std::optional<FormControl> here = focused();
    if (!here || !here->belongs_to_field() || form_.fields[here->index].can_have_focus()) return;
    HWND target = target_of(form_.focus);
    for (std::size_t i = 1; !target && i < form_.fields.size(); ++i)
        target = target_of((here->index + i) % form_.fields.size());
    if (!target) target = GetDlgItem(dialog_, form_.ok.enabled ? IDOK : IDCANCEL);
    SendMessageW(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(target), TRUE);
}

std::optional<std::size_t> FormView::number_of(HWND window) const {
    const auto found = std::ranges::find(windows_, window);
    if (!window || found == windows_.end()) return std::nullopt;
    return static_cast<std::size_t>(found - windows_.begin());
}

std::optional<FormControl> FormView::focused() const {
    const auto number = number_of(GetFocus());
    return number ? std::optional(controls_[*number]) : std::nullopt;
}

HWND FormView::target_of(std::size_t index) const {
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

/// A list takes its old selection back when Esc closes it; an option is chosen when the focus comes to it.
bool FormView::holds_other_selection(std::size_t number) const {
    const FormControl& control = controls_[number];
    const HWND window = windows_[number];
    if (control.part == ControlPart::option)
        return SendMessageW(window, BM_GETCHECK, 0, 0) == BST_CHECKED &&
               form_.fields[control.index].selected != control.entry;
    return control.part == ControlPart::field && form_.fields[control.index].kind == FieldKind::list &&
           !SendMessageW(window, CB_GETDROPPEDSTATE, 0, 0) &&
           selected_in(window) != form_.fields[control.index].selected;
}

std::optional<std::size_t> FormView::selection_at(std::size_t number) const {
    const FormControl& control = controls_[number];
    return control.part == ControlPart::option ? control.entry : selected_in(windows_[number]);
}

}  // namespace prot
