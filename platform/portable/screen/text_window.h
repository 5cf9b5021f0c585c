#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/portable/screen/picture.h"
#include "platform/portable/screen/screen.h"

namespace prot {

/// A text to read, with buttons below; it scrolls when it is longer than the screen.
struct TextWindowSettings {
    std::string title;
    std::string text;                  ///< LF or CR LF between lines
    std::vector<std::string> buttons;  ///< with & before the letter that presses them
    std::size_t first_button = 0;      ///< the one that has the focus when the window opens
    std::size_t escape_button = 0;     ///< the one that Esc presses, and the end of the terminal
};

/// Shows the window until a button is pressed, and returns that. Nothing when it could not be shown.
std::optional<std::size_t> show_text_window(Screen& screen, const TextWindowSettings& settings);

/// The window itself.
class TextWindow : public Window {
public:
    explicit TextWindow(const TextWindowSettings& settings)
        : settings_(settings), focus_(settings.first_button) {}

    Picture picture(Size screen) override;

    /// The button that the key presses; nothing when it does something else.
    std::optional<std::size_t> press(const Key& key);

private:
    void draw_buttons(Picture& picture, int row) const;
    void scroll(const Key& key);

    const TextWindowSettings& settings_;
    std::size_t focus_;
    int first_ = 0;  // line of the text that is on view first
    int lines_ = 0, rows_ = 0;
};

}  // namespace prot
