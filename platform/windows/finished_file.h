#pragma once

#include <string>

#include "platform/message_boxes.h"

namespace prot {

/// Opens a finished file with the program that the system has registered for it. When that fails, a box says
/// so and names the path: the file is there all the same.
void open_finished_file(const std::string& path, MessageBoxes& boxes);

}  // namespace prot
