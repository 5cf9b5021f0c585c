#pragma once

namespace prot {

enum class Pointer { standard = 0, hourglass = 11 };

/// The mouse pointer of the whole screen.
class ScreenPointer {
public:
    virtual ~ScreenPointer() = default;
    virtual void set(Pointer pointer) = 0;
};

}  // namespace prot
