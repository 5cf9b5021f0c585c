#pragma once

#include <cstdint>
#include <memory>

#include "apps/protcsv/sample/sample_random.h"
#include "apps/protcsv/sample/sample_sections.h"

namespace prot::sample {

/// Clients, their fiscal years and open items. rows: how many changes will be asked for.
std::unique_ptr<Section> create_open_items(Random random, std::int64_t rows);

}  // namespace prot::sample
