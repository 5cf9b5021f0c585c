#pragma once

#include <memory>

#include "apps/protcsv/displays/choose_displays.h"
#include "platform/portable/screen/screen.h"

namespace prot {

/// Forms that take the whole terminal, drawn on `screen`. Not on Windows.
std::unique_ptr<Displays> whole_terminal(const DisplayMeans& means, std::unique_ptr<Screen> screen);

}  // namespace prot
