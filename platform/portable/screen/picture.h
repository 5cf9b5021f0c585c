#pragma once

#include <optional>
#include <string>
#include <vector>

/// What a window shows, as data: it can be looked at without a terminal.
namespace prot {

struct Size {
    int columns = 0, rows = 0;

    bool operator==(const Size&) const = default;
};

/// The smallest screen that forms are shown on.
inline constexpr Size smallest_screen{80, 24};

/// A position inside a window, its upper left corner being (0, 0).
struct Position {
    int column = 0, row = 0;
};

enum class Style {
    text,
    access,    ///< the letter that leads to a field together with Alt
    disabled,  ///< on view, but out of reach
    entry,     ///< what a person may type over
    marked,    ///< what has the focus: selected text, a button, an option
    chosen,    ///< the selected line of the list that has the focus
};

/// Text on one line; it holds no control characters.
struct Piece {
    Position at;
    std::string text;
    Style style = Style::text;
};

struct ScrollBar {
    Position at;
    int height = 0;
    int position = 0, total = 0;  ///< how far along the content is, 0 to total
};

struct Picture {
    std::string title;
    Size size{};            ///< without the window's frame
    std::string help_line;  ///< the keys that do something, for the last line of the screen
    std::vector<Piece> pieces;
    std::vector<ScrollBar> bars;
    Position cursor{};
};

/// A window on the screen.
class Window {
public:
    virtual ~Window() = default;

    /// What it shows on a screen of this size. Asked for before every key.
    virtual Picture picture(Size screen) = 0;
};

/// The largest window that a screen has room for: frame, shadow and the help line are taken off.
inline Size largest_window(Size screen) { return {screen.columns - 4, screen.rows - 4}; }

}  // namespace prot
