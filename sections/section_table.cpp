#include "sections/section_table.h"

#include "sections/customers_suppliers/ProtKLCsvClass.h"
#include "sections/exchange_rates/CProtDevCsv.h"
#include "sections/open_items/ProtOPCsvClass.h"
#include "sections/report_frameworks/ProtAuswCsvClass.h"

namespace prot {

namespace {

// clang-format off
constexpr Section sections[] = {
    {6, "open-items", "Offene Posten", open_items::create_exporter},
    {8, "suppliers", "Lieferanten", customers_suppliers::create_exporter},
    {9, "customers", "Kunden", customers_suppliers::create_exporter},
    {10, "report-frameworks", "Auswertungsrahmen", report_frameworks::create_exporter},
    {15, "exchange-rates", "Devisenkurse", exchange_rates::create_exporter},
};
// clang-format on

}  // namespace

SectionTable section_table() { return sections; }

}  // namespace prot
