#pragma once

#include <memory>

#include "platform/error_display.h"
#include "platform/form.h"
#include "platform/help_display.h"
#include "platform/message_boxes.h"
#include "platform/portable/terminal_message_boxes.h"

namespace prot {

/// The displays of a run whose forms take the whole terminal.
class FullScreen {
public:
    virtual ~FullScreen() = default;

    virtual FormDisplay& forms() = 0;
    virtual MessageBoxes& message_boxes() = 0;
    virtual std::unique_ptr<ErrorDisplay> create_error_display() = 0;
    virtual std::unique_ptr<HelpDisplay> create_help_display() = 0;
};

/// The displays that are used while no form has the terminal. They outlive the full screen.
struct PlainDisplays {
    Terminal& terminal;
    FormDisplay& forms;
    TerminalMessageBoxes& message_boxes;
};

/// Null: this system's terminals, or the one at hand, cannot show forms, or have no room for them.
std::unique_ptr<FullScreen> full_screen_if_usable(const PlainDisplays& plain);

}  // namespace prot
