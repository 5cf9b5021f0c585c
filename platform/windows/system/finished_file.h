#pragma once

#include <optional>
#include <string>

#include "platform/message_boxes.h"

namespace prot {

/// Opens a file with the program that the system has registered for it. When that fails: its whole path and
/// the system's reason, for a person.
std::optional<std::string> open_with_registered_program(const std::string& path);

/// Opens a finished file with the program that the system has registered for it. When that fails, a box says
/// so and names the path: the file is there all the same.
void open_finished_file(const std::string& path, MessageBoxes& boxes);

}  // namespace prot
