#include "tests/support/default_signals.h"

namespace prot::test {

void restore_default_signals() {}  // a Windows process inherits none

}  // namespace prot::test
