#pragma once

#include <functional>
#include <memory>

#include "apps/protcsv/displays/displays.h"
#include "platform/portable/terminal/terminal_message_boxes.h"

namespace prot {

/// What the displays of a run work with; it outlives them.
struct DisplayMeans {
    Terminal& terminal;                   ///< keeps the run's outcome
    TerminalMessageBoxes& message_boxes;  ///< keeps what the run's boxes were answered
    bool full_screen = false;             ///< forms may take the whole terminal, or windows of their own
    bool status_line = false;             ///< the terminal can replace a line
};

/// Makes displays; null: they cannot be had.
using MakeDisplays = std::function<std::unique_ptr<Displays>(const DisplayMeans& means)>;

/// Forms on the whole terminal, or windows. Null: the terminal at hand cannot show forms or has no room for
/// them, or there is no desktop for windows.
std::unique_ptr<Displays> full_screen_if_usable(const DisplayMeans& means);

/// The displays of a run: the largest that it may have and that can be had.
std::unique_ptr<Displays> choose_displays(const DisplayMeans& means,
                                          const MakeDisplays& full_screen = full_screen_if_usable);

}  // namespace prot
