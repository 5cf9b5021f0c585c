#pragma once

#include <string_view>

namespace prot {

/// What a box looks like and asks. The numbers are those of the Windows message box.
enum class BoxStyle {
    plain = 0,
    question_yes_no = 36,
    exclamation = 48,
    information = 64,
    question_default_no = 292,  ///< a hasty Enter says No
};

inline bool is_question(BoxStyle style) {
    return style == BoxStyle::question_yes_no || style == BoxStyle::question_default_no;
}
enum class BoxAnswer { ok = 1, yes = 6, no = 7 };

/// Modal message boxes. Line breaks in `text` are CR LF.
class MessageBoxes {
public:
    virtual ~MessageBoxes() = default;

    /// Shows the box and returns the button pressed; ok for every style but the question.
    virtual BoxAnswer show(std::string_view text, BoxStyle style, std::string_view title) = 0;
};

}  // namespace prot
