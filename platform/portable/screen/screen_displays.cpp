#include "platform/portable/screen/screen_displays.h"

#include "platform/portable/screen/text_window.h"
#include "platform/portable/terminal/terminal_error_display.h"
#include "platform/portable/terminal/terminal_help_display.h"

namespace prot {

namespace {

enum QuestionButton : std::size_t { yes_button, no_button };

TextWindowSettings box_settings(std::string_view text, BoxStyle style, std::string_view title) {
    if (is_question(style))
        // No is what a hasty Enter says, as in a question on the terminal's lines.
        return {std::string(title), std::string(text), {"&Ja", "&Nein"}, no_button, no_button};
    return {std::string(title), std::string(text), {"OK"}};
}

}  // namespace

BoxAnswer ScreenMessageBoxes::show(std::string_view text, BoxStyle style, std::string_view title) {
    const bool question = is_question(style);
    if (!has_screen(style)) return plain_.show(text, style, title);
    if (question && plain_.answers_yes()) return plain_.note(BoxAnswer::yes, title);
    const std::optional<std::size_t> button = show_text_window(screen_, box_settings(text, style, title));
    if (!button && !screen_.is_open()) return plain_.show(text, style, title);
    if (!question) return plain_.note(BoxAnswer::ok, title);
    return plain_.note(button == yes_button ? BoxAnswer::yes : BoxAnswer::no, title);
}

bool ScreenMessageBoxes::has_screen(BoxStyle style) const {
    return screen_.is_open() || (is_question(style) && forms_.have_been_shown());
}

void ScreenErrorDisplay::ZQ_gShowError(std::int32_t lNummer, std::string_view sQuelle,
                                       std::string_view sBeschreibung) {
    if (!screen_.is_open()) {
        TerminalErrorDisplay(terminal_).ZQ_gShowError(lNummer, sQuelle, sBeschreibung);
        return;
    }
    terminal_.note(Outcome::failed);
    show_text_window(
        screen_,
        {std::string(problem_report_title), problem_report_text(lNummer, sQuelle, sBeschreibung), {"OK"}});
}

bool ScreenHelpDisplay::show_topic(std::string_view map_file, std::string_view help_id) {
    if (!screen_.is_open()) return plain_->show_topic(map_file, help_id);
    const std::optional<std::string> text = topic_text_(map_file, help_id);
    show_text_window(screen_,
                     {"Hilfe", text.value_or(missing_topic_text(map_file, help_id)), {"&Schließen"}});
    return text.has_value();
}

}  // namespace prot
