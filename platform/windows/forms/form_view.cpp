#include "platform/windows/forms/form_view.h"

#include <algorithm>
#include <new>
#include <utility>

#include "platform/windows/forms/form_controls.h"
#include "platform/windows/forms/match_list.h"

namespace prot {

namespace {

bool same_texts(const std::vector<Entry>& one, const std::vector<Entry>& other) {
    return std::ranges::equal(one, other, {}, &Entry::text, &Entry::text);
}

}  // namespace

bool FormView::make_controls() {
    controls_ = controls_of(form_);
    entries_.assign(form_.fields.size(), {});
    pickers_ = std::vector<Picker>(form_.fields.size());
    register_match_list();
    for (std::size_t number = 0; number < controls_.size(); ++number) {
        const ControlDescription made = describe_control(form_, controls_[number], number);
        const HWND window =
            create_control(dialog_, made.window_class, made.text, made.style, made.extended_style, made.id);
        if (!window) return false;
        windows_.push_back(window);
        prepare_control(number);
    }
    SendMessageW(dialog_, DM_SETDEFID, IDOK, 0);
    unarranged_ = true;
    return true;
}

void FormView::prepare_control(std::size_t number) {
    const FormControl& control = controls_[number];
    const HWND window = windows_[number];
    if (control.part == ControlPart::matches) prepare_match_list(window);
    if ((SendMessageW(window, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) == 0) return;
    const Field& field = form_.fields[control.index];
    SendMessageW(window, EM_SETLIMITTEXT, field.longest, 0);
    if (field.kind == FieldKind::picker)
        SendMessageW(window, EM_SETCUEBANNER, TRUE, reinterpret_cast<LPARAM>(L"Nummer oder Name"));
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
    const bool was_visible = is_shown(window);
    if (control.part == ControlPart::match_count)
        follow_match_count(number);
    else if (control.part == ControlPart::matches)
        follow_matches(number);
    else if (control.part != ControlPart::field)
        follow_text(number);
    else if (form_.fields[control.index].kind == FieldKind::list)
        follow_list(number);
    else
        show_text(window, form_.fields[control.index].text);
    if (control.part == ControlPart::option)
        show_checked(window, form_.fields[control.index].selected == control.entry);
    if (control.belongs_to_field()) show_enabled(window, form_.fields[control.index].enabled);
    if (control.part == ControlPart::ok) show_enabled(window, form_.ok.enabled);
    if (control.part == ControlPart::cancel) show_enabled(window, form_.cancel.enabled);
    show_visible(window, visible);
    unarranged_ = unarranged_ || visible != was_visible;
}

void FormView::follow_text(std::size_t number) {
    const std::string text = describe_control(form_, controls_[number], number).text;
    unarranged_ = unarranged_ || text_in(windows_[number]) != text;
    show_text(windows_[number], text);
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

/// The count comes before the rows, so it is here that they are found.
void FormView::follow_match_count(std::size_t number) {
    const Field& field = form_.fields[controls_[number].index];
    Picker& picker = pickers_[controls_[number].index];
    if (picker.matches.look_through(field.entries)) {
        picker.number_width = number_column_width(field.entries, measure_);
        picker.unshown = true;
    }
    picker.unshown = picker.matches.filter(field.text) || picker.unshown;
    show_text(windows_[number], picker.matches.count_text());
}

void FormView::follow_matches(std::size_t number) {
    Picker& picker = pickers_[controls_[number].index];
    const HWND list = windows_[number];
    if (std::exchange(picker.unshown, false))
        show_rows(list, picker.matches.row_count(), picker.number_width);
    show_selected_row(list, picker.matches.row_of(form_.fields[controls_[number].index].selected));
}

/// Lays the controls out anew. The window never becomes narrower while it is open.
void FormView::arrange() {
    layout_ = layout_form(form_, controls_, measure_, layout_.width);
    for (std::size_t number = 0; number < controls_.size(); ++number) place_control(number);
    resize_client(dialog_, layout_.width, layout_.height);
    InvalidateRect(dialog_, nullptr, TRUE);
}

void FormView::place_control(std::size_t number) {
    const FormControl& control = controls_[number];
    const HWND window = windows_[number];
    Rectangle place = layout_.places[number];
    if (control.part == ControlPart::field && form_.fields[control.index].kind == FieldKind::list)
        place.height += height_of_open_list(window);
    if (control.part == ControlPart::matches) place.height = height_of_whole_rows(window, place.height);
    RECT before{};
    GetWindowRect(window, &before);
    MoveWindow(window, place.left, place.top, place.width, place.height, FALSE);
    const bool same_size =
        place.width == before.right - before.left && place.height == before.bottom - before.top;
    if (control.part != ControlPart::matches || same_size) return;
    const Picker& picker = pickers_[control.index];
    fit_columns(window, picker.matches.row_count(), picker.number_width);
    bring_on_view(window, selected_row_in(window).value_or(0));
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

/// A list takes its old selection back when Esc closes it; an option is chosen when the focus comes to it; a
/// click besides the rows leaves none selected, which says nothing.
bool FormView::holds_other_selection(std::size_t number) const {
    const FormControl& control = controls_[number];
    const HWND window = windows_[number];
    if (!control.belongs_to_field()) return false;
    const Field& field = form_.fields[control.index];
    if (control.part == ControlPart::option)
        return SendMessageW(window, BM_GETCHECK, 0, 0) == BST_CHECKED && field.selected != control.entry;
    if (control.part == ControlPart::matches) {
        const auto selected = selection_at(number);
        return selected && selected != field.selected;
    }
    return control.part == ControlPart::field && field.kind == FieldKind::list &&
           !SendMessageW(window, CB_GETDROPPEDSTATE, 0, 0) && selected_in(window) != field.selected;
}

std::optional<std::size_t> FormView::selection_at(std::size_t number) const {
    const FormControl& control = controls_[number];
    if (control.part == ControlPart::option) return control.entry;
    if (control.part != ControlPart::matches) return selected_in(windows_[number]);
    const PickerMatches& matches = pickers_[control.index].matches;
    const auto row = selected_row_in(windows_[number]);
    if (!row || *row >= matches.row_count()) return std::nullopt;
    return matches.index_of(*row);
}

HWND FormView::window_of(ControlPart part, std::size_t field) const {
    const auto found = std::ranges::find(controls_, FormControl{part, field});
    return windows_[static_cast<std::size_t>(found - controls_.begin())];
}

int FormView::page_of(std::size_t field) const {
    return rows_on_view(window_of(ControlPart::matches, field));
}

HWND FormView::begin_typing(std::size_t field) const {
    const HWND line = window_of(ControlPart::field, field);
    SendMessageW(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(line), TRUE);
    const int length = GetWindowTextLengthW(line);
    SendMessageW(line, EM_SETSEL, static_cast<WPARAM>(length), length);
    return line;
}

}  // namespace prot
