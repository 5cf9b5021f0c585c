#include "platform/windows/forms/match_list.h"

#include <algorithm>
#include <cwchar>
#include <new>

#include "platform/windows/text/wide_text.h"

namespace prot {

namespace {

constexpr int number_column = 0, text_column = 1;
constexpr WPARAM all_rows = static_cast<WPARAM>(-1);

void set_column_width(HWND list, int column, int width) {
    if (SendMessageW(list, LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0) != width)
        SendMessageW(list, LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column), MAKELPARAM(width, 0));
}

void set_state(HWND list, WPARAM row, UINT state) {
    LVITEMW item{};
    item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    item.state = state;
    SendMessageW(list, LVM_SETITEMSTATE, row, reinterpret_cast<LPARAM>(&item));
}

/// The inner width when rows need no scroll bar.
int whole_width(HWND list) {
    RECT client{};
    GetClientRect(list, &client);
    const bool scrolls = (GetWindowLongPtrW(list, GWL_STYLE) & WS_VSCROLL) != 0;
    return static_cast<int>(client.right) + (scrolls ? GetSystemMetrics(SM_CXVSCROLL) : 0);
}

}  // namespace

void register_match_list() {
    const INITCOMMONCONTROLSEX wanted{sizeof wanted, ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&wanted);
}

void prepare_match_list(HWND list) {
    constexpr DWORD style = LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP;
    SendMessageW(list, LVM_SETEXTENDEDLISTVIEWSTYLE, style, style);
    for (const int number : {number_column, text_column}) {
        LVCOLUMNW column{};
        column.mask = LVCF_WIDTH | LVCF_SUBITEM;
        column.iSubItem = number;
        SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(number), reinterpret_cast<LPARAM>(&column));
    }
}

int number_column_width(const std::vector<Entry>& entries, const TextMeasure& measure) {
    int widest = 0;
    for (const Entry& entry : entries)
        if (!entry.number.empty()) widest = std::max(widest, measure.width(entry.number));
    return widest == 0 ? 0 : widest + 3 * measure.unit_width();
}

void show_rows(HWND list, std::size_t count, int number_width) {
    set_state(list, all_rows, 0);
    // The columns must never be wider than what a scroll bar leaves, or a second one appears.
    const bool fewer = static_cast<LRESULT>(count) < SendMessageW(list, LVM_GETITEMCOUNT, 0, 0);
    if (!fewer) fit_columns(list, count, number_width);
    SendMessageW(list, LVM_SETITEMCOUNT, count, 0);
    if (fewer) fit_columns(list, count, number_width);
    if (count > 0) bring_on_view(list, 0);
}

void fit_columns(HWND list, std::size_t count, int number_width) {
    const bool scrolls = count > static_cast<std::size_t>(rows_on_view(list));
    const int width = whole_width(list) - (scrolls ? GetSystemMetrics(SM_CXVSCROLL) : 0);
    const int numbers = std::clamp(number_width, 0, std::max(0, width / 2));
    set_column_width(list, number_column, numbers);
    set_column_width(list, text_column, std::max(0, width - numbers));
}

void show_selected_row(HWND list, std::optional<std::size_t> row) {
    if (selected_row_in(list) == row) return;
    set_state(list, all_rows, 0);
    if (row) set_state(list, *row, LVIS_SELECTED | LVIS_FOCUSED);
    bring_on_view(list, row);
}

void bring_on_view(HWND list, std::optional<std::size_t> row) {
    if (row) SendMessageW(list, LVM_ENSUREVISIBLE, *row, FALSE);
}

std::optional<std::size_t> selected_row_in(HWND list) {
    const LRESULT row = SendMessageW(list, LVM_GETNEXTITEM, all_rows, LVNI_SELECTED);
    if (row < 0) return std::nullopt;
    return static_cast<std::size_t>(row);
}

int height_of_whole_rows(HWND list, int height) {
    const auto height_of = [list](WPARAM rows) {
        return static_cast<int>(
            HIWORD(SendMessageW(list, LVM_APPROXIMATEVIEWRECT, rows, MAKELPARAM(-1, -1))));
    };
    const int row = height_of(2) - height_of(1);
    const int frame = 2 * GetSystemMetrics(SM_CYEDGE);
    return row < 1 || height < row + frame ? height : height - (height - frame) % row;
}

int rows_on_view(HWND list) {
    return std::max(1, static_cast<int>(SendMessageW(list, LVM_GETCOUNTPERPAGE, 0, 0)));
}

void answer_text(const PickerMatches& matches, NMLVDISPINFOW& question) noexcept {
    LVITEMW& item = question.item;
    if ((item.mask & LVIF_TEXT) == 0 || !item.pszText || item.cchTextMax < 1) return;
    item.pszText[0] = L'\0';
    const Entry* const entry = matches.entry_in(static_cast<std::size_t>(item.iItem));
    if (!entry) return;
    try {
        const std::wstring text = to_wide(item.iSubItem == number_column ? entry->number : entry->text);
        const std::size_t length = std::min(text.size(), static_cast<std::size_t>(item.cchTextMax) - 1);
        std::wmemcpy(item.pszText, text.data(), length);
        item.pszText[length] = L'\0';
    } catch (const std::bad_alloc&) {
    }
}

LRESULT answer_drawing(NMLVCUSTOMDRAW& question, std::optional<std::size_t> selected, bool enabled) noexcept {
    if (question.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
    if (question.nmcd.dwDrawStage != CDDS_ITEMPREPAINT || !enabled || selected != question.nmcd.dwItemSpec)
        return CDRF_DODEFAULT;
    question.nmcd.uItemState &= ~static_cast<UINT>(CDIS_SELECTED);  // which draws with colours of its own
    question.clrText = GetSysColor(COLOR_HIGHLIGHTTEXT);
    question.clrTextBk = GetSysColor(COLOR_HIGHLIGHT);
    return CDRF_DODEFAULT;
}

}  // namespace prot
