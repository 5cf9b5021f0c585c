#include "apps/protcsv/full_screen.h"

namespace prot {

std::unique_ptr<FullScreen> full_screen_if_usable(const PlainDisplays& /*plain*/) { return nullptr; }

}  // namespace prot
