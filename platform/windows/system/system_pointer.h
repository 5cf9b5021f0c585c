#pragma once

#include "platform/screen_pointer.h"

namespace prot {

/// The system's mouse pointer: the hourglass or the arrow.
class SystemPointer : public ScreenPointer {
public:
    void set(Pointer pointer) override;

    /// The arrow, when the hourglass was left.
    void restore() noexcept;

private:
    bool hourglass_ = false;
};

}  // namespace prot
