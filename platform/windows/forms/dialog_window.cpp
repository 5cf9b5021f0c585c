#include "platform/windows/forms/dialog_window.h"

#include <cstdint>
#include <string>
#include <vector>

#include "platform/windows/system/system_message_boxes.h"
#include "platform/windows/text/wide_text.h"

namespace prot {

namespace {

constexpr int points_per_inch = 72;

Rectangle from_system(const RECT& rectangle) {
    return {rectangle.left, rectangle.top, rectangle.right - rectangle.left,
            rectangle.bottom - rectangle.top};
}

Rectangle window_place(HWND window) {
    RECT rectangle{};
    GetWindowRect(window, &rectangle);
    return from_system(rectangle);
}

/// The part of the screen around `window` that the taskbar leaves free.
Rectangle work_area(HWND window) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTOPRIMARY), &monitor);
    return from_system(monitor.rcWork);
}

LOGFONTW message_font() {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    return metrics.lfMessageFont;
}

WORD points_of(const LOGFONTW& font) {
    const HDC screen = GetDC(nullptr);
    const int resolution = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return static_cast<WORD>(
        MulDiv(font.lfHeight < 0 ? -font.lfHeight : font.lfHeight, points_per_inch, resolution));
}

/// The memory form of a dialog without controls, as CreateDialogIndirectParam reads it.
class TemplateBytes {
public:
    void add16(unsigned value) { words_.push_back(static_cast<std::uint16_t>(value)); }
    void add32(DWORD value) {
        add16(value & 0xFFFF);
        add16(value >> 16);
    }
    void add_text(const wchar_t* text) {
        do add16(*text);
        while (*text++);
    }
    /// The memory is aligned for 32-bit members, as the system wants it.
    const DLGTEMPLATE* get() const { return reinterpret_cast<const DLGTEMPLATE*>(words_.data()); }

private:
    std::vector<std::uint16_t> words_;
};

TemplateBytes dialog_template(const std::wstring& caption, DWORD style) {
    constexpr unsigned version = 1, extended_template = 0xFFFF;
    const LOGFONTW font = message_font();
    TemplateBytes bytes;
    bytes.add16(version);
    bytes.add16(extended_template);
    bytes.add32(0);  // help
    bytes.add32(0);  // extended style
    bytes.add32(style | DS_SETFONT);
    for (int i = 0; i < 5; ++i) bytes.add16(0);  // no controls, no place yet
    bytes.add16(0);                              // no menu
    bytes.add16(0);                              // the system's dialog class
    bytes.add_text(caption.c_str());
    bytes.add16(points_of(font));
    bytes.add16(static_cast<unsigned>(font.lfWeight));
    bytes.add16(static_cast<unsigned>(font.lfItalic | font.lfCharSet << 8));
    bytes.add_text(font.lfFaceName);
    return bytes;
}

bool is_ours(HWND window) {
    DWORD process = 0;
    return GetWindowThreadProcessId(window, &process) && process == GetCurrentProcessId();
}

}  // namespace

HWND owner_window() {
    HWND window = GetActiveWindow();
    if (!window) window = GetForegroundWindow();
    if (!window || !is_ours(window)) return nullptr;
    window = GetAncestor(window, GA_ROOT);
    return window && IsWindowVisible(window) ? window : nullptr;
}

bool can_show_windows() {
    if (!has_interactive_desktop()) return false;
    const HWND window = create_dialog({}, WS_POPUP, nullptr, nullptr, 0);
    if (window) DestroyWindow(window);
    return window != nullptr;
}

HWND create_dialog(std::string_view caption, DWORD style, HWND owner, DLGPROC procedure, LPARAM parameter) {
    const TemplateBytes bytes = dialog_template(to_wide(caption), style);
    return CreateDialogIndirectParamW(GetModuleHandleW(nullptr), bytes.get(), owner, procedure, parameter);
}

HWND create_control(HWND dialog, const wchar_t* window_class, std::string_view text, DWORD style,
                    DWORD extended_style, int id) {
    const HWND control = CreateWindowExW(
        extended_style, window_class, to_wide(text).c_str(), style | WS_CHILD, 0, 0, 0, 0, dialog,
        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr), nullptr);
    if (control)
        SendMessageW(control, WM_SETFONT, static_cast<WPARAM>(SendMessageW(dialog, WM_GETFONT, 0, 0)), FALSE);
    return control;
}

void resize_client(HWND window, int width, int height) {
    RECT outer = {0, 0, width, height};
    AdjustWindowRectEx(&outer, static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongPtrW(window, GWL_EXSTYLE)));
    Rectangle place = window_place(window);
    place.width = outer.right - outer.left;
    place.height = outer.bottom - outer.top;
    place = moved_into(place, work_area(window));
    SetWindowPos(window, nullptr, place.left, place.top, place.width, place.height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void centre_window(HWND window, HWND owner) {
    const bool beside_owner = owner && !IsIconic(owner);
    const Rectangle area = work_area(beside_owner ? owner : nullptr);
    const Rectangle place = centred(window_place(window), beside_owner ? window_place(owner) : area, area);
    SetWindowPos(window, nullptr, place.left, place.top, 0, 0, SWP_NOZORDER | SWP_NOSIZE | SWP_NOACTIVATE);
}

DialogMeasure::DialogMeasure(HWND dialog)
    : device_(CreateCompatibleDC(nullptr)),
      previous_(SelectObject(device_, reinterpret_cast<HGDIOBJ>(SendMessageW(dialog, WM_GETFONT, 0, 0)))) {
    constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    TEXTMETRICW metrics{};
    GetTextMetricsW(device_, &metrics);
    unit_height_ = metrics.tmHeight;
    unit_width_ = (width(letters) / 26 + 1) / 2;
}

DialogMeasure::~DialogMeasure() {
    SelectObject(device_, previous_);
    DeleteDC(device_);
}

int DialogMeasure::width(std::string_view text) const {
    const std::wstring wide = to_wide(text);
    SIZE size{};
    GetTextExtentPoint32W(device_, wide.data(), static_cast<int>(wide.size()), &size);
    return size.cx;
}

int DialogMeasure::height(std::string_view text, int width) const {
    const std::wstring wide = to_wide(text);
    RECT rectangle = {0, 0, width, 0};
    DrawTextW(device_, wide.data(), static_cast<int>(wide.size()), &rectangle,
              DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX | DT_EXPANDTABS);
    return rectangle.bottom;
}

}  // namespace prot
