#pragma once

#include <oaidl.h>

#include <memory>

#include "platform/progress_parent.h"

namespace prot {

/// The host's progress object, reached by name; null for null. A member is asked for when it is first needed:
/// one that is missing is then automation error 438, which names it.
std::unique_ptr<ProgressParent> host_progress_parent(IDispatch* object);

}  // namespace prot
