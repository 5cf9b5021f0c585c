#pragma once

#include <optional>
#include <string>

#include "platform/forms/form.h"

namespace prot {

/// Asks for the name of the file to be written, by a form of one text field. Nothing when the person cancels.
/// notice: stands above the field, such as why an earlier name was refused.
std::optional<std::string> ask_file_name(FormDisplay& display, const std::string& suggestion,
                                         const std::string& notice = {});

}  // namespace prot
