#pragma once

#include <optional>
#include <utility>

#include "platform/automation/error.h"

namespace prot {

/// Remembers that the host's object is gone (its process ended, its proxy is disconnected): from then on
/// every question is answered with that error.
class HostConnection {
public:
    /// What `question` answers. Its errors stay as they are.
    template <class Question>
    auto ask(Question question) {
        require();
        try {
            return question();
        } catch (const AutomationError& error) {
            if (is_gone(error.number())) lost_ = error;
            throw;
        }
    }

    /// Raises the error that the object was lost with, if it was.
    void require() const {
        if (lost_) throw *lost_;
    }

private:
    static bool is_gone(std::int32_t number);

    std::optional<AutomationError> lost_;
};

}  // namespace prot
