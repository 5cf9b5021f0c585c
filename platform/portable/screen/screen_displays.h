#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/error_display.h"
#include "platform/help_display.h"
#include "platform/portable/screen/screen.h"
#include "platform/portable/screen/screen_forms.h"
#include "platform/portable/terminal/terminal.h"
#include "platform/portable/terminal/terminal_message_boxes.h"

/// Messages that come up while a form has the screen: windows in front of it. At any other time they are left
/// to the displays for the terminal's lines.
namespace prot {

/// A question that the run was told the answer to beforehand is not shown. One behind a form of the run has a
/// screen of its own.
class ScreenMessageBoxes : public MessageBoxes {
public:
    ScreenMessageBoxes(Screen& screen, const ScreenForms& forms, TerminalMessageBoxes& plain)
        : screen_(screen), forms_(forms), plain_(plain) {}

    BoxAnswer show(std::string_view text, BoxStyle style, std::string_view title) override;

private:
    bool has_screen(BoxStyle style) const;

    Screen& screen_;
    const ScreenForms& forms_;
    TerminalMessageBoxes& plain_;
};

class ScreenErrorDisplay : public ErrorDisplay {
public:
    ScreenErrorDisplay(Screen& screen, Terminal& terminal) : screen_(screen), terminal_(terminal) {}

    void ZQ_gShowError(std::int32_t lNummer, std::string_view sQuelle,
                       std::string_view sBeschreibung) override;

private:
    Screen& screen_;
    Terminal& terminal_;
};

/// The text of a help topic; nothing when there is none.
using TopicText =
    std::function<std::optional<std::string>(std::string_view map_file, std::string_view help_id)>;

class ScreenHelpDisplay : public HelpDisplay {
public:
    ScreenHelpDisplay(Screen& screen, std::unique_ptr<HelpDisplay> plain, TopicText topic_text)
        : screen_(screen), plain_(std::move(plain)), topic_text_(std::move(topic_text)) {}

    bool show_topic(std::string_view map_file, std::string_view help_id) override;

private:
    Screen& screen_;
    std::unique_ptr<HelpDisplay> plain_;
    TopicText topic_text_;
};

}  // namespace prot
