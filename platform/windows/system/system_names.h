#pragma once

#include <string>
#include <string_view>

namespace prot {

/// The environment variable's text; empty when it is not set.
std::string environment_text(std::string_view name);

/// The name of this computer; empty when it cannot be told.
std::string computer_name();

}  // namespace prot
