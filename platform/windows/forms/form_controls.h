#pragma once

#include <windows.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "platform/windows/forms/form_layout.h"

/// The controls of a form as the system's own: made, filled and read one by one.
namespace prot {

/// What the system makes of a control.
struct ControlDescription {
    const wchar_t* window_class;
    std::string text;
    DWORD style, extended_style;
    int id;  ///< OK and Cancel: IDOK and IDCANCEL; the others count from first_control_id
};
inline constexpr int first_control_id = 100;
inline constexpr int notice_id = 99;  ///< so that all others keep theirs

/// How many controls stand before the first that is counted.
inline std::size_t notices_of(const Form& form) { return form.notice.empty() ? 0 : 1; }

/// `number`: place of the control in the form's order.
ControlDescription describe_control(const Form& form, const FormControl& control, std::size_t number);

/// The text so that a control shows each & of it.
std::string literal_text(std::string_view text);

/// Whether the control is switched to visible, whatever its window is.
bool is_shown(HWND control);

/// Each changes what the control shows only where it differs; switching does not move the focus.
void show_text(HWND control, std::string_view text);
void show_enabled(HWND control, bool enabled);
void show_visible(HWND control, bool visible);
void show_selected(HWND list, std::optional<std::size_t> selected);
void show_checked(HWND option, bool checked);

/// Replaces the lines of a list; none is selected then.
void show_entries(HWND list, const std::vector<Entry>& entries, const TextMeasure& measure);

/// How much lower an open list reaches than a closed one, in pixels.
int height_of_open_list(HWND list);

std::string text_in(HWND control);
std::optional<std::size_t> selected_in(HWND list);

}  // namespace prot
