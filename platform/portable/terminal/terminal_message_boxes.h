#pragma once

#include "platform/message_boxes.h"
#include "platform/portable/terminal/terminal.h"

namespace prot {

/// Message boxes as lines `[title] text`. A question is answered yes when the run was told so beforehand,
/// else by the person at the keyboard, else no; prepared answers never answer it. An answer of no marks the
/// run as cancelled, a box titled "Problembericht" marks it as failed.
class TerminalMessageBoxes : public MessageBoxes {
public:
    TerminalMessageBoxes(Terminal& terminal, bool answer_yes)
        : terminal_(terminal), answer_yes_(answer_yes) {}

    BoxAnswer show(std::string_view text, BoxStyle style, std::string_view title) override;

    /// Marks the run by a box that was shown elsewhere, with its answer, which is returned.
    BoxAnswer note(BoxAnswer answer, std::string_view title);

    /// Whether the run was told beforehand to answer yes.
    bool answers_yes() const { return answer_yes_; }

    /// Whether a question was answered no because nobody was there to be asked.
    bool left_unanswered() const { return left_unanswered_; }

    /// Whether a box was shown to its end.
    bool shown() const { return shown_; }

private:
    BoxAnswer ask();

    Terminal& terminal_;
    bool answer_yes_;
    bool left_unanswered_ = false;
    bool shown_ = false;
};

}  // namespace prot
