#include "platform/windows/forms/progress_window.h"

#include <commctrl.h>

#include <utility>

#include "platform/windows/forms/dialog_window.h"
#include "platform/windows/forms/form_controls.h"
#include "platform/windows/system/system_message_boxes.h"

namespace prot {

namespace {

constexpr std::chrono::milliseconds redraw_interval{50};
constexpr int bar_steps = 1000;

/// Distances in dialog units.
constexpr int margin = 7, line_height = 8, bar_width = 200, bar_height = 10, gap = 4;

INT_PTR CALLBACK keep_open(HWND, UINT message, WPARAM, LPARAM) {
    // Esc and the close box of the taskbar do not end a run.
    return message == WM_CLOSE || message == WM_COMMAND;
}

/// Lets the windows of this thread answer, so that the system does not take the program for hung.
void answer_messages(HWND window) {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) return PostQuitMessage(static_cast<int>(message.wParam));
        if (IsDialogMessageW(window, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

}  // namespace

ProgressWindow::ProgressWindow(std::string caption) : caption_(std::move(caption)), pace_(redraw_interval) {}

ProgressWindow::~ProgressWindow() { close(); }

void ProgressWindow::close() {
    if (window_) DestroyWindow(std::exchange(window_, nullptr));
}

void ProgressWindow::gRefresh() {
    close();
    pace_.restart();
}

void ProgressWindow::gSetFortschritt(std::int32_t lZeile, std::int32_t lLetzte) {
    if (unavailable_ || !pace_.is_due(lZeile, lLetzte)) return;
    if (!window_) open();
    if (window_) show(lZeile, lLetzte);
}

void ProgressWindow::open() {
    unavailable_ = true;
    if (!has_interactive_desktop()) return;
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_PROGRESS_CLASS};
    InitCommonControlsEx(&classes);
    const HWND owner = owner_window();
    window_ = create_dialog(caption_, WS_POPUP | WS_CAPTION | DS_MODALFRAME, owner, keep_open, 0);
    if (!window_) return;
    text_ = create_control(window_, L"STATIC", {}, SS_LEFT | SS_NOPREFIX | WS_VISIBLE, 0, 1);
    bar_ = create_control(window_, PROGRESS_CLASSW, {}, WS_VISIBLE, 0, 2);
    share_ = create_control(window_, L"STATIC", {}, SS_RIGHT | SS_NOPREFIX | WS_VISIBLE, 0, 3);
    if (!text_ || !bar_ || !share_) return close();
    const DialogMeasure measure(window_);
    const auto across = [&](int units) { return units * measure.unit_width() / 4; };
    const auto down = [&](int units) { return units * measure.unit_height() / 8; };
    const int share_width = measure.width("100 %") + across(gap);
    MoveWindow(text_, across(margin), down(margin), across(bar_width), down(line_height) + 1, FALSE);
    const int top = down(margin + line_height + gap);
    MoveWindow(bar_, across(margin), top, across(bar_width) - share_width, down(bar_height), FALSE);
    MoveWindow(share_, across(margin + bar_width) - share_width, top + down(1), share_width,
               down(line_height) + 1, FALSE);
    resize_client(window_, across(bar_width + 2 * margin), top + down(bar_height + margin));
    SendMessageW(bar_, PBM_SETRANGE32, 0, bar_steps);
    centre_window(window_, owner);
    ShowWindow(window_, SW_SHOW);
    unavailable_ = false;
}

void ProgressWindow::show(std::int64_t done, std::int64_t total) {
    show_text(text_, std::to_string(done) + " von " + std::to_string(total) + " Datensätzen");
    show_text(share_, std::to_string(100 * done / total) + " %");
    SendMessageW(bar_, PBM_SETPOS, static_cast<WPARAM>(bar_steps * done / total), 0);
    UpdateWindow(window_);
    answer_messages(window_);
}

}  // namespace prot
