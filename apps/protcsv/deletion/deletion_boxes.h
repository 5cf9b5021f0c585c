#pragma once

#include <functional>
#include <string>

#include "platform/message_boxes.h"

namespace prot {

/// The boxes of a run that deletes. Its question begins with what would go.
class DeletionBoxes : public MessageBoxes {
public:
    using Text = std::function<std::string()>;

    /// subject: what would go, line by line; asked for when the question comes. trial: what is said instead
    /// of the question, which is then answered no; null: it is asked.
    DeletionBoxes(MessageBoxes& boxes, Text subject, Text trial)
        : boxes_(boxes), subject_(std::move(subject)), trial_(std::move(trial)) {}

    BoxAnswer show(std::string_view text, BoxStyle style, std::string_view title) override;

    /// While it is silent nothing is shown, and every question answered no: an export into an archive has
    /// nobody to talk to.
    void set_silent(bool silent) { silent_ = silent; }

private:
    MessageBoxes& boxes_;
    const Text subject_, trial_;
    bool silent_ = false;
};

}  // namespace prot
