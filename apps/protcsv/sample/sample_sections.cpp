#include "apps/protcsv/sample/sample_sections.h"

namespace prot::sample {
namespace {

constexpr SectionKind kinds[] = {
    {15, 120, create_exchange_rates},
    {6, 140, create_open_items},
};

}  // namespace

std::span<const SectionKind> section_kinds() { return kinds; }

}  // namespace prot::sample
