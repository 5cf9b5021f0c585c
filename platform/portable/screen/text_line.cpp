#include "platform/portable/screen/text_line.h"

#include "platform/automation/utf8.h"
#include "platform/portable/screen/columns.h"

namespace prot {

void TextLine::set(std::string_view text) {
    text_ = decode_utf8(text);
    cursor_ = text_.size();
    selected_ = false;
}

std::string TextLine::text() const { return encode_utf8(text_); }

bool TextLine::press(const Key& key, std::size_t longest) {
    if (!key.plain()) return false;
    switch (key.kind) {
        case Key::Kind::character:
            return type(key.character, longest);
        case Key::Kind::backspace:
            return selected_ ? remove_all() : cursor_ > 0 && remove_at(--cursor_);
        case Key::Kind::remove:
            return selected_ ? remove_all() : remove_at(cursor_);
        case Key::Kind::home:
            move_to(0);
            return false;
        case Key::Kind::end:
            move_to(text_.size());
            return false;
        case Key::Kind::left:
            move_to(selected_ || cursor_ == 0 ? 0 : cursor_ - 1);
            return false;
        case Key::Kind::right:
            move_to(selected_ || cursor_ == text_.size() ? text_.size() : cursor_ + 1);
            return false;
        default:
            return false;
    }
}

bool TextLine::type(char32_t character, std::size_t longest) {
    if (selected_) remove_all();
    if (text_.size() >= longest) return false;
    text_.insert(cursor_++, 1, character);
    return true;
}

bool TextLine::remove_at(std::size_t position) {
    if (position >= text_.size()) return false;
    text_.erase(position, 1);
    return true;
}

bool TextLine::remove_all() {
    set({});
    return true;
}

void TextLine::move_to(std::size_t position) {
    cursor_ = position;
    selected_ = false;
}

TextLine::View TextLine::view(int width) const {
    // The cursor may stand behind the last character, so it needs a column of its own.
    std::size_t first = cursor_;
    int before = 0;
    while (first > 0 && before + columns(text_[first - 1]) < width) before += columns(text_[--first]);
    std::size_t end = first;
    for (int used = 0; end < text_.size() && (used += columns(text_[end])) <= width;) ++end;
    return {printable(encode_utf8(std::u32string_view(text_).substr(first, end - first))), before};
}

}  // namespace prot
