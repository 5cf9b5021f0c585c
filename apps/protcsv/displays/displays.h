#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/error_display.h"
#include "platform/forms/form.h"
#include "platform/help_display.h"
#include "platform/message_boxes.h"
#include "platform/progress_parent.h"

namespace prot {

/// What is told at the end of a run: something to know, or something that is missing.
enum class Telling { notice, warning };

/// All that a run shows to a person and asks of one. There are three kinds: lines on a terminal, forms that
/// take the whole of it, windows of the system. A run gets one (choose_displays) and never asks which.
class Displays {
public:
    virtual ~Displays() = default;

    virtual FormDisplay& forms() = 0;
    virtual MessageBoxes& message_boxes() = 0;
    virtual std::unique_ptr<ErrorDisplay> create_error_display() = 0;
    virtual std::unique_ptr<HelpDisplay> create_help_display() = 0;

    /// Shows how far an export is, and goes when it is destroyed; null: nobody would see it.
    virtual std::unique_ptr<ProgressParent> create_progress() = 0;

    /// The person's choice of a file name, empty to take the suggestion; nothing when the person cancels.
    /// folder: where relative names lie.
    virtual std::optional<std::string> ask_file_name(const std::string& suggestion,
                                                     const std::string& folder) = 0;
    /// Whether the file that lies under the chosen name may be replaced; false: the question comes again. A
    /// display whose own question asks that already has nothing to ask.
    virtual bool may_replace(const std::string& /*path*/) { return true; }
    /// Says why no file can be made under the name that was chosen; the question comes again.
    /// False, and nothing is said, when no person could name another.
    virtual bool refuse_file_name(std::string_view why) = 0;
    /// Presents the finished file.
    virtual void show_file(const std::string& path) = 0;
    /// Says what a run leaves to be said at its end.
    virtual void tell(Telling kind, std::string_view text) = 0;
};

}  // namespace prot
