#include "apps/protcsv/sample_sections.h"

#include "apps/protcsv/sample_exchange_rates.h"

namespace prot::sample {
namespace {

constexpr SectionKind kinds[] = {
    {120, create_exchange_rates},
};

}  // namespace

std::span<const SectionKind> section_kinds() { return kinds; }

}  // namespace prot::sample
