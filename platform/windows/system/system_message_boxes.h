#pragma once

#include <functional>

#include "platform/automation/error.h"
#include "platform/message_boxes.h"

namespace prot {

/// Message boxes of the system, owned by the active window of the calling thread. A box that nobody could
/// see, because the process has no interactive desktop, is not opened: `refused` hears of it as an error, and
/// the answer is no, or ok where there is no question.
class SystemMessageBoxes : public MessageBoxes {
public:
    explicit SystemMessageBoxes(std::function<void(AutomationError)> refused)
        : refused_(std::move(refused)) {}

    BoxAnswer show(std::string_view text, BoxStyle style, std::string_view title) override;

private:
    std::function<void(AutomationError)> refused_;
};

/// Whether windows of this process appear on a desktop that a person can see.
bool has_interactive_desktop() noexcept;

}  // namespace prot
