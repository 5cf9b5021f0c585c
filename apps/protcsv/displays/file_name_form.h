#pragma once

#include <optional>
#include <string>

#include "platform/forms/form.h"

namespace prot {

/// Asks for the name of the file to be written, by a form of one text field. Nothing when the person cancels.
std::optional<std::string> ask_file_name(FormDisplay& display, const std::string& suggestion);

}  // namespace prot
