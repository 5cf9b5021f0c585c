#pragma once

#include <windows.h>

#include <string_view>

#include "platform/windows/forms/form_layout.h"

/// What the windows of this module have in common: made without a resource, in the system's font, in the
/// middle of the window they belong to.
namespace prot {

/// The window that a dialog of the calling thread belongs to: its active one, or the one in the foreground
/// when it is of this process; null when there is none that a person can see.
HWND owner_window();

/// Whether this process can make windows, and on a desktop that a person can see.
bool can_show_windows();

/// An empty, hidden dialog in the system's message font; null when no window can be made. `procedure` gets
/// `parameter` with WM_INITDIALOG.
HWND create_dialog(std::string_view caption, DWORD style, HWND owner, DLGPROC procedure, LPARAM parameter);

/// A child of `dialog` in its font, without size yet. Null when no window can be made.
HWND create_control(HWND dialog, const wchar_t* window_class, std::string_view text, DWORD style,
                    DWORD extended_style, int id);

/// Gives the client area of `window` this size; the upper left corner stays as far as the screen allows.
void resize_client(HWND window, int width, int height);

/// Moves `window` into the middle of `owner`, or of the screen's free area.
void centre_window(HWND window, HWND owner);

/// Texts in the font of a dialog, which outlives it, at the screen's resolution.
class DialogMeasure : public TextMeasure {
public:
    explicit DialogMeasure(HWND dialog);
    ~DialogMeasure() override;
    DialogMeasure(const DialogMeasure&) = delete;
    DialogMeasure& operator=(const DialogMeasure&) = delete;

    int unit_width() const override { return unit_width_; }
    int unit_height() const override { return unit_height_; }
    int width(std::string_view text) const override;
    int height(std::string_view text, int width) const override;

private:
    HDC device_;
    HGDIOBJ previous_;
    int unit_width_ = 0, unit_height_ = 0;
};

/// Keeps a window from input, as a modal dialog does to its owner. Null, or switched off already: nothing.
class DisabledWindow {
public:
    explicit DisabledWindow(HWND window) : window_(window && IsWindowEnabled(window) ? window : nullptr) {
        if (window_) EnableWindow(window_, FALSE);
    }
    ~DisabledWindow() {
        if (window_ && IsWindow(window_)) EnableWindow(window_, TRUE);
    }
    DisabledWindow(const DisabledWindow&) = delete;
    DisabledWindow& operator=(const DisabledWindow&) = delete;

private:
    HWND window_;
};

}  // namespace prot
