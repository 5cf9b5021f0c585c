#pragma once

#include <span>

#include "apps/protcsv/sample/sample_item_desk.h"
#include "apps/protcsv/sample/sample_story.h"

namespace prot::sample {

std::span<const Step<ItemDesk>> item_story();

}  // namespace prot::sample
