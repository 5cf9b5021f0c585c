#include "platform/portable/screen/text_window.h"

#include <algorithm>

#include "platform/automation/letter_case.h"
#include "platform/forms/form.h"
#include "platform/portable/screen/columns.h"

namespace prot {

namespace {

constexpr int widest_text = 72;
constexpr int margin = 1;
constexpr int between_buttons = 3;
constexpr int beside_text =
    5;  // rows: an empty line above and below the text, the buttons, an empty line each
constexpr int bar_width = 2;

std::string on_screen(const std::string& button) { return "< " + without_access_key(button) + " >"; }

int width_of_buttons(const std::vector<std::string>& buttons) {
    int width = 0;
    for (const std::string& button : buttons) width += columns(on_screen(button)) + between_buttons;
    return std::max(width - between_buttons, 0);
}

int widest(const std::vector<std::string>& lines) {
    int width = 0;
    for (const std::string& line : lines) width = std::max(width, columns(line));
    return width;
}

}  // namespace

Picture TextWindow::picture(Size screen) {
    const Size largest = largest_window(screen);
    const int text_width = std::max(std::min(widest_text, largest.columns - 2 * margin - bar_width), 1);
    const std::vector<std::string> lines = wrapped(settings_.text, text_width);
    lines_ = static_cast<int>(lines.size());
    rows_ = std::clamp(largest.rows - beside_text + 1, 1, lines_);
    first_ = std::clamp(first_, 0, lines_ - rows_);
    const bool scrolls = lines_ > rows_;

    Picture picture;
    picture.title = settings_.title;
    const int content =
        std::max({widest(lines) + (scrolls ? bar_width : 0), width_of_buttons(settings_.buttons),
                  std::min(columns(settings_.title) + 2, text_width)});
    picture.size = {content + 2 * margin, rows_ + beside_text - 1};
    picture.help_line = scrolls ? "↑ ↓ Bild↑ Bild↓ Blättern   Eingabe " : "Eingabe ";
    picture.help_line += without_access_key(settings_.buttons[focus_]);
    for (int i = 0; i < rows_; ++i)
        picture.pieces.push_back(
            {{margin, 1 + i}, lines[static_cast<std::size_t>(first_) + static_cast<std::size_t>(i)]});
    if (scrolls)
        picture.bars.push_back({{picture.size.columns - 1 - margin, 1}, rows_, first_, lines_ - rows_});
    draw_buttons(picture, rows_ + 2);
    return picture;
}

void TextWindow::draw_buttons(Picture& picture, int row) const {
    int column = (picture.size.columns - width_of_buttons(settings_.buttons)) / 2;
    for (std::size_t i = 0; i < settings_.buttons.size(); ++i) {
        const std::string text = on_screen(settings_.buttons[i]);
        picture.pieces.push_back({{column, row}, text, i == focus_ ? Style::marked : Style::text});
        if (i == focus_) picture.cursor = {column + 2, row};
        column += columns(text) + between_buttons;
    }
}

std::optional<std::size_t> TextWindow::press(const Key& key) {
    const std::size_t count = settings_.buttons.size();
    if (key.kind == Key::Kind::character && !key.control) {
        for (std::size_t i = 0; i < count; ++i)
            if (access_key(settings_.buttons[i]) == to_lower(key.character)) return i;
    }
    if (key.is(Key::Kind::enter) || key.types(U' ')) return focus_;
    if (key.is(Key::Kind::escape)) return settings_.escape_button;
    if (key.is(Key::Kind::left) || (key.is(Key::Kind::tab) && key.shift))
        focus_ = (focus_ + count - 1) % count;
    else if (key.is(Key::Kind::right) || key.is(Key::Kind::tab))
        focus_ = (focus_ + 1) % count;
    else if (key.plain())
        scroll(key);
    return std::nullopt;
}

void TextWindow::scroll(const Key& key) {
    switch (key.kind) {
        case Key::Kind::up:
            --first_;
            break;
        case Key::Kind::down:
            ++first_;
            break;
        case Key::Kind::page_up:
            first_ -= rows_;
            break;
        case Key::Kind::page_down:
            first_ += rows_;
            break;
        case Key::Kind::home:
            first_ = 0;
            break;
        case Key::Kind::end:
            first_ = lines_;
            break;
        default:
            return;
    }
    first_ = std::clamp(first_, 0, lines_ - rows_);
}

std::optional<std::size_t> show_text_window(Screen& screen, const TextWindowSettings& settings) {
    TextWindow window(settings);
    const OpenWindow open(screen, window);
    if (!open.is_open()) return std::nullopt;
    while (const std::optional<Key> key = screen.next_key())
        if (const std::optional<std::size_t> button = window.press(*key)) return button;
    return settings.escape_button;
}

}  // namespace prot
