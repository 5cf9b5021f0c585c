#include "platform/portable/terminal/terminal_message_boxes.h"

#include "platform/automation/letter_case.h"
#include "platform/portable/terminal/terminal_error_display.h"

namespace prot {

namespace {

bool is_yes(std::string_view answer) { return answer == "ja" || answer == "j"; }
bool is_no(std::string_view answer) { return answer.empty() || answer == "nein" || answer == "n"; }

}  // namespace

BoxAnswer TerminalMessageBoxes::show(std::string_view text, BoxStyle style, std::string_view title) {
    terminal_.write("[" + std::string(title) + "] " + std::string(text) + '\n');
    return note(is_question(style) ? ask() : BoxAnswer::ok, title);
}

BoxAnswer TerminalMessageBoxes::note(BoxAnswer answer, std::string_view title) {
    if (title == problem_report_title) terminal_.note(Outcome::failed);
    if (answer == BoxAnswer::no) terminal_.note(Outcome::cancelled);
    shown_ = true;
    return answer;
}

BoxAnswer TerminalMessageBoxes::ask() {
    if (answer_yes_) {
        terminal_.write("Ja\n");
        return BoxAnswer::yes;
    }
    if (!terminal_.has_keyboard()) {
        left_unanswered_ = true;
        terminal_.write("Nein\n");
        return BoxAnswer::no;
    }
    for (;;) {
        const std::string answer =
            to_lower(std::string_view(terminal_.ask_person("Ja/Nein [Nein]: ").value_or("")));
        if (is_yes(answer)) return BoxAnswer::yes;
        if (is_no(answer)) return BoxAnswer::no;
    }
}

}  // namespace prot
