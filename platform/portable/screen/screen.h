#pragma once

#include <optional>

#include "platform/portable/screen/key.h"
#include "platform/portable/screen/picture.h"

namespace prot {

/// A terminal whose whole screen shows windows, the last one opened in front. It is taken from the terminal's
/// other output when the first window opens, and given back when the last one closes.
class Screen {
public:
    virtual ~Screen() = default;

    /// Whether windows are on view.
    virtual bool is_open() const = 0;

    /// False: the terminal cannot show windows, or not any more; then nothing has changed. `window` lives
    /// until it is closed.
    virtual bool open(Window& window) = 0;

    /// Closes the window in front.
    virtual void close() = 0;

    /// Draws all windows and waits for a key. Nothing when the terminal is gone.
    virtual std::optional<Key> next_key() = 0;
};

/// Keeps a window open while it lives.
class OpenWindow {
public:
    OpenWindow(Screen& screen, Window& window) : screen_(screen), open_(screen.open(window)) {}
    ~OpenWindow() {
        if (open_) screen_.close();
    }
    OpenWindow(const OpenWindow&) = delete;
    OpenWindow& operator=(const OpenWindow&) = delete;

    bool is_open() const { return open_; }

private:
    Screen& screen_;
    bool open_;
};

}  // namespace prot
