#pragma once

#include <string>
#include <string_view>

#include "platform/portable/screen/key.h"

namespace prot {

/// A line of text under a person's hands.
class TextLine {
public:
    /// Replaces the text; the cursor goes behind it.
    void set(std::string_view text);
    std::string text() const;

    /// The next character that is typed replaces the whole text.
    void select_all() { selected_ = !text_.empty(); }
    bool selected() const { return selected_; }

    /// Types, deletes or moves the cursor. `longest`: most characters that fit. Whether the text changed.
    bool press(const Key& key, std::size_t longest);

    struct View {
        std::string text;
        int cursor = 0;  ///< column
    };
    /// The part of the text around the cursor that fits into `width` columns.
    View view(int width) const;

private:
    bool type(char32_t character, std::size_t longest);
    bool remove_at(std::size_t position);
    bool remove_all();
    void move_to(std::size_t position);

    std::u32string text_;
    std::size_t cursor_ = 0;
    bool selected_ = false;
};

}  // namespace prot
