#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/error_display.h"
#include "platform/forms/form.h"
#include "platform/help_display.h"
#include "platform/message_boxes.h"
#include "platform/portable/terminal/terminal_message_boxes.h"
#include "platform/progress_parent.h"

namespace prot {

/// The displays of a run that is more than lines on a terminal: forms that take the whole of it, or windows
/// of the system.
class FullScreen {
public:
    virtual ~FullScreen() = default;

    virtual FormDisplay& forms() = 0;
    virtual MessageBoxes& message_boxes() = 0;
    virtual std::unique_ptr<ErrorDisplay> create_error_display() = 0;
    virtual std::unique_ptr<HelpDisplay> create_help_display() = 0;

    /// The person's choice of a file name; nothing when the person cancels. folder: where relative names lie.
    virtual std::optional<std::string> ask_file_name(const std::string& suggestion,
                                                     const std::string& folder) = 0;
    /// Presents the finished file.
    virtual void show_file(const std::string& path) = 0;
    /// Shows how far the run is; null: the terminal's lines do that.
    virtual ProgressParent* progress() = 0;
    /// Says what the run leaves to be said at its end.
    virtual void tell(std::string_view text) = 0;
};

/// The displays that are used while no form has the terminal. They outlive the full screen.
struct PlainDisplays {
    Terminal& terminal;
    FormDisplay& forms;
    TerminalMessageBoxes& message_boxes;
};

/// Null: the terminal at hand cannot show forms, or has no room for them, or there is no desktop for windows.
std::unique_ptr<FullScreen> full_screen_if_usable(const PlainDisplays& plain);

}  // namespace prot
