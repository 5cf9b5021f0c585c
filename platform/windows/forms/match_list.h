#pragma once

#include <windows.h>

#include <commctrl.h>

#include <optional>

#include "platform/forms/picker_matches.h"
#include "platform/windows/forms/form_layout.h"

/// The rows of a picker as a list view of the system, which asks for the rows that are on view. They stand in
/// two columns, number and text.
namespace prot {

inline constexpr const wchar_t* match_list_class = WC_LISTVIEWW;
inline constexpr DWORD match_list_style =
    LVS_REPORT | LVS_OWNERDATA | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_NOCOLUMNHEADER;

/// Call before the first list is made.
void register_match_list();

/// Sets a new list up: columns, whole rows selected.
void prepare_match_list(HWND list);

/// What the column of numbers needs, in pixels; 0 when no entry has one.
int number_column_width(const std::vector<Entry>& entries, const TextMeasure& measure);

/// Shows other rows, from the first on; none is selected then.
void show_rows(HWND list, std::size_t count, int number_width);

/// Gives the columns the whole width of the list; for a list of another size.
void fit_columns(HWND list, std::size_t count, int number_width);

/// Selects a row, which comes on view; changes nothing when it is selected already.
void show_selected_row(HWND list, std::optional<std::size_t> row);
void bring_on_view(HWND list, std::optional<std::size_t> row);

std::optional<std::size_t> selected_row_in(HWND list);
/// The largest height of whole rows, frame and all, that is no more than `height`, in pixels.
int height_of_whole_rows(HWND list, int height);
int rows_on_view(HWND list);

/// Answers the list's question for a text; an empty one when there is no such row, or no memory.
void answer_text(const PickerMatches& matches, NMLVDISPINFOW& question) noexcept;

/// Answers the list's question how a row is to be drawn: the selected one is marked as if the list had the
/// focus, because that stays in the line above while a person types. `selected`, `enabled`: of the list.
LRESULT answer_drawing(NMLVCUSTOMDRAW& question, std::optional<std::size_t> selected, bool enabled) noexcept;

}  // namespace prot
