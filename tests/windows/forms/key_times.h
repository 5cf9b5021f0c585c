#pragma once

#include <functional>
#include <string>

#include "platform/forms/form.h"

namespace prot::demo {

/// Types into the picker of `form`, once its window stands, and tells the log how long the slowest key took
/// from its message until the window is drawn, in milliseconds: "slowest key: 12". Closes the window then.
void show_and_type(Form& form, const std::function<void()>& show, std::function<void(std::string)> log);

}  // namespace prot::demo
