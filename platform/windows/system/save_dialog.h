#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/message_boxes.h"

namespace prot {

/// Where a person wants a CSV file to be: the system's Save dialog, over the active window of the calling
/// thread. It asks before it takes the name of a file that exists.
class SaveDialog {
public:
    /// `boxes` outlives the dialog. `refused` is told when no dialog can be shown; the answer is that of a
    /// person who cancels.
    SaveDialog(MessageBoxes& boxes, std::function<void()> refused)
        : boxes_(boxes), refused_(std::move(refused)) {}

    /// The whole path of the file; nothing when the person cancels. `suggestion`: the proposed name, with or
    /// without a folder. `folder`: where the dialog opens when the suggestion names none; empty: where the
    /// system likes. A file that cannot be replaced, because another program has it open or it is protected,
    /// is met with a message, and the person is asked again.
    std::optional<std::string> ask(const std::string& suggestion, const std::string& folder);

private:
    MessageBoxes& boxes_;
    std::function<void()> refused_;
};

/// Why an existing file cannot be replaced, as a message; empty when it can be, and when there is no such
/// file.
std::string reason_not_to_replace(const std::string& path);

}  // namespace prot
