#include "platform/windows/system/system_pointer.h"

#include <windows.h>

namespace prot {

void SystemPointer::set(Pointer pointer) {
    hourglass_ = pointer == Pointer::hourglass;
    SetCursor(LoadCursorW(nullptr, hourglass_ ? IDC_WAIT : IDC_ARROW));
}

void SystemPointer::restore() noexcept {
    if (hourglass_) set(Pointer::standard);
}

}  // namespace prot
