#include "platform/windows/forms/form_controls.h"

#include <commctrl.h>

#include <algorithm>

#include "platform/windows/forms/match_list.h"
#include "platform/windows/text/wide_text.h"

namespace prot {

namespace {

constexpr LRESULT lines_on_view = 15;  // of a list that is open

/// How a part of a form is made. Each control begins a group for the arrow keys but the second option and
/// those after it, and Cancel, which belongs to OK.
struct PartRule {
    ControlPart part;
    const wchar_t* window_class;
    DWORD style;
};
constexpr PartRule part_rules[] = {
    {ControlPart::notice, L"STATIC", SS_LEFT | SS_NOPREFIX | WS_GROUP},
    {ControlPart::frame, L"BUTTON", BS_GROUPBOX | WS_GROUP},
    {ControlPart::label, L"STATIC", SS_LEFT | WS_GROUP},
    {ControlPart::field, L"COMBOBOX", CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP | WS_GROUP},
    {ControlPart::match_count, L"STATIC", SS_LEFT | SS_NOPREFIX | WS_GROUP},
    {ControlPart::matches, match_list_class, match_list_style | WS_TABSTOP | WS_GROUP},
    {ControlPart::option, L"BUTTON", BS_AUTORADIOBUTTON | BS_NOTIFY},
    {ControlPart::ok, L"BUTTON", BS_DEFPUSHBUTTON | BS_NOTIFY | WS_TABSTOP | WS_GROUP},
    {ControlPart::cancel, L"BUTTON", BS_PUSHBUTTON | BS_NOTIFY | WS_TABSTOP},
};
constexpr DWORD text_style = ES_AUTOHSCROLL | WS_TABSTOP | WS_GROUP;

const PartRule& rule_of(ControlPart part) { return *std::ranges::find(part_rules, part, &PartRule::part); }

std::string text_of(const Form& form, const FormControl& control) {
    switch (control.part) {
        case ControlPart::notice:
            return form.notice;
        case ControlPart::frame:
            return literal_text(form.groups[control.index].caption);
        case ControlPart::label:
            return form.fields[control.index].label;
        case ControlPart::option:
            return literal_text(form.fields[control.index].entries[control.entry].text);
        case ControlPart::ok:
            return form.ok.text;
        case ControlPart::cancel:
            return form.cancel.text;
        case ControlPart::field:
        case ControlPart::match_count:
        case ControlPart::matches:
            break;
    }
    return {};
}

int id_of(const Form& form, ControlPart part, std::size_t number) {
    if (part == ControlPart::notice) return notice_id;
    if (part == ControlPart::ok) return IDOK;
    if (part == ControlPart::cancel) return IDCANCEL;
    return first_control_id + static_cast<int>(number - notices_of(form));
}

}  // namespace

ControlDescription describe_control(const Form& form, const FormControl& control, std::size_t number) {
    const PartRule& rule = rule_of(control.part);
    ControlDescription description{rule.window_class, text_of(form, control), rule.style, 0,
                                   id_of(form, control.part, number)};
    if (control.part == ControlPart::field && form.fields[control.index].kind != FieldKind::list) {
        description.window_class = L"EDIT";
        description.style = text_style;
        description.extended_style = WS_EX_CLIENTEDGE;
    }
    if (control.part == ControlPart::matches) description.extended_style = WS_EX_CLIENTEDGE;
    if (control.part == ControlPart::option && control.entry == 0) description.style |= WS_GROUP | WS_TABSTOP;
    return description;
}

std::string literal_text(std::string_view text) {
    std::string literal;
    for (const char letter : text) {
        if (letter == '&') literal += '&';
        literal += letter;
    }
    return literal;
}

void show_text(HWND control, std::string_view text) {
    if (text_in(control) == text) return;
    DWORD begin = 0, end = 0;
    const bool keeps_caret = (SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) != 0;
    if (keeps_caret)
        SendMessageW(control, EM_GETSEL, reinterpret_cast<WPARAM>(&begin), reinterpret_cast<LPARAM>(&end));
    SetWindowTextW(control, to_wide(text).c_str());
    if (keeps_caret) SendMessageW(control, EM_SETSEL, begin, static_cast<LPARAM>(end));
}

void show_enabled(HWND control, bool enabled) {
    if ((IsWindowEnabled(control) != FALSE) != enabled) EnableWindow(control, enabled);
}

bool is_shown(HWND control) { return (GetWindowLongPtrW(control, GWL_STYLE) & WS_VISIBLE) != 0; }

void show_visible(HWND control, bool visible) {
    if (is_shown(control) != visible) ShowWindow(control, visible ? SW_SHOWNA : SW_HIDE);
}

void show_selected(HWND list, std::optional<std::size_t> selected) {
    if (selected_in(list) == selected) return;
    SendMessageW(list, CB_SETCURSEL, selected ? static_cast<WPARAM>(*selected) : static_cast<WPARAM>(-1), 0);
}

void show_checked(HWND option, bool checked) {
    if ((SendMessageW(option, BM_GETCHECK, 0, 0) == BST_CHECKED) == checked) return;
    SendMessageW(option, BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
}

void show_entries(HWND list, const std::vector<Entry>& entries, const TextMeasure& measure) {
    // Drawing that is switched on again would show a hidden control.
    const bool drawn = is_shown(list);
    if (drawn) SendMessageW(list, WM_SETREDRAW, FALSE, 0);
    SendMessageW(list, CB_RESETCONTENT, 0, 0);
    SendMessageW(list, CB_INITSTORAGE, entries.size(), 0);
    int widest = 0;
    for (const Entry& entry : entries) {
        SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(to_wide(entry.text).c_str()));
        widest = std::max(widest, measure.width(entry.text));
    }
    SendMessageW(list, CB_SETMINVISIBLE, lines_on_view, 0);
    const int room = GetSystemMetrics(SM_CXVSCROLL) + 2 * measure.unit_width();
    SendMessageW(list, CB_SETDROPPEDWIDTH, static_cast<WPARAM>(widest) + static_cast<WPARAM>(room), 0);
    if (drawn) SendMessageW(list, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list, nullptr, TRUE);
}

int height_of_open_list(HWND list) {
    const LRESULT lines = std::clamp<LRESULT>(SendMessageW(list, CB_GETCOUNT, 0, 0), 1, lines_on_view);
    return static_cast<int>(lines * SendMessageW(list, CB_GETITEMHEIGHT, 0, 0)) +
           2 * GetSystemMetrics(SM_CYBORDER);
}

std::string text_in(HWND control) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(control)) + 1, L'\0');
    text.resize(
        static_cast<std::size_t>(GetWindowTextW(control, text.data(), static_cast<int>(text.size()))));
    return to_utf8(text);
}

std::optional<std::size_t> selected_in(HWND list) {
    const LRESULT selected = SendMessageW(list, CB_GETCURSEL, 0, 0);
    if (selected == CB_ERR) return std::nullopt;
    return static_cast<std::size_t>(selected);
}

}  // namespace prot
