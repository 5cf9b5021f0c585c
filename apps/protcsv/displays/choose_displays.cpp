#include "apps/protcsv/displays/choose_displays.h"

#include "apps/protcsv/displays/line_displays.h"

namespace prot {

std::unique_ptr<Displays> choose_displays(const DisplayMeans& means, const MakeDisplays& full_screen) {
    if (means.full_screen)
        if (std::unique_ptr<Displays> displays = full_screen(means)) return displays;
    return std::make_unique<LineDisplays>(means);
}

}  // namespace prot
