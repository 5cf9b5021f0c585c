#pragma once

#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/automation/utf8.h"
#include "platform/portable/screen/screen.h"

namespace prot::test {

inline Key key(Key::Kind kind) { return {kind}; }
inline Key letter(char32_t c) { return {Key::Kind::character, c}; }
inline Key alt(char32_t c) { return {.kind = Key::Kind::character, .character = c, .alt = true}; }
inline Key back_tab() { return {.kind = Key::Kind::tab, .shift = true}; }
inline Key function_key(char32_t number) { return {Key::Kind::function, number}; }

/// The picture's lines, without trailing blanks; a scroll bar shows as #.
inline std::vector<std::string> as_text(const Picture& picture) {
    std::vector<std::u32string> lines(static_cast<std::size_t>(picture.size.rows),
                                      std::u32string(static_cast<std::size_t>(picture.size.columns), U' '));
    for (const Piece& piece : picture.pieces) {
        const std::u32string text = decode_utf8(piece.text);
        lines.at(static_cast<std::size_t>(piece.at.row))
            .replace(static_cast<std::size_t>(piece.at.column), text.size(), text);
    }
    for (const ScrollBar& bar : picture.bars)
        for (int i = 0; i < bar.height; ++i)
            lines.at(static_cast<std::size_t>(bar.at.row + i)).at(static_cast<std::size_t>(bar.at.column)) =
                U'#';
    std::vector<std::string> texts;
    for (std::u32string& line : lines) {
        line.erase(line.find_last_not_of(U' ') + 1);
        texts.push_back(encode_utf8(line));
    }
    return texts;
}

/// A screen whose keys are laid out beforehand, and which keeps what was on view before each of them. After
/// the last key the terminal is gone.
class ScriptedScreen : public Screen {
public:
    std::deque<Key> keys;
    std::vector<std::vector<std::string>> seen;  ///< the window in front
    std::vector<std::string> titles;
    Size size{80, 24};
    bool usable = true;

    bool is_open() const override { return !windows_.empty(); }
    bool open(Window& window) override {
        if (usable) windows_.push_back(&window);
        return usable;
    }
    void close() override { windows_.pop_back(); }
    std::optional<Key> next_key() override {
        const Picture picture = windows_.back()->picture(size);
        seen.push_back(as_text(picture));
        titles.push_back(picture.title);
        if (keys.empty()) return std::nullopt;
        const Key next = keys.front();
        keys.pop_front();
        return next;
    }

private:
    std::vector<Window*> windows_;
};

}  // namespace prot::test
