#include "apps/protcsv/deletion/deletion_boxes.h"

#include "platform/automation/error.h"

namespace prot {

BoxAnswer DeletionBoxes::show(std::string_view text, BoxStyle style, std::string_view title) {
    const bool question = is_question(style);
    if (silent_) return question ? BoxAnswer::no : BoxAnswer::ok;
    if (!question) return boxes_.show(text, style, title);
    std::string whole = subject_();
    whole.append(line_break).append(line_break).append(trial_ ? trial_() : std::string(text));
    if (!trial_) return boxes_.show(whole, style, title);
    boxes_.show(whole, BoxStyle::information, title);
    return BoxAnswer::no;
}

}  // namespace prot
