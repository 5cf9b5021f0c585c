#pragma once

#include <oaidl.h>

#include <string_view>

#include "platform/windows/com/com_ptr.h"

namespace prot {

/// Asks the help component `component` to show topic `help_id` of `map_file`, by its first own member or by
/// gShowHelp (see suite_components.h). False when the component answers False.
bool show_help(const ComPtr<IDispatch>& component, std::string_view map_file, std::string_view help_id);

}  // namespace prot
