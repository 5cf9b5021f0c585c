#include "apps/protcsv/sample/sample_sections.h"

namespace prot::sample {
namespace {

// clang-format off
constexpr SectionKind kinds[] = {
    {.number =  6, .stream = 1, .usual_rows = 140, .create = create_open_items},
    {.number =  9, .stream = 2, .usual_rows = 150, .create = create_customers},
    {.number =  8, .stream = 3, .usual_rows = 150, .create = create_suppliers},
    {.number = 10, .stream = 4, .usual_rows = 150, .create = create_report_frameworks},
    {.number = 15, .stream = 0, .usual_rows = 120, .create = create_exchange_rates},
};
// clang-format on

}  // namespace

std::span<const SectionKind> section_kinds() { return kinds; }

}  // namespace prot::sample
