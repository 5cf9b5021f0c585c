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

    /// While it lives nothing is shown, and every question answered no: an export into an archive has nobody
    /// to talk to.
    class Silence {
    public:
        explicit Silence(DeletionBoxes& boxes) : boxes_(boxes) { boxes_.silent_ = true; }
        ~Silence() { boxes_.silent_ = false; }
        Silence(const Silence&) = delete;
        Silence& operator=(const Silence&) = delete;

    private:
        DeletionBoxes& boxes_;
    };

private:
    MessageBoxes& boxes_;
    const Text subject_, trial_;
    bool silent_ = false;
};

}  // namespace prot
