#include "sections/open_items/ProtOPCsvClass.h"

#include "sections/open_items/ProtOPFrmFilter.h"
#include "sections/open_items/item_lines.h"
#include "sections/open_items/item_selection.h"

namespace prot::open_items {

ProtOPCsvClass::ProtOPCsvClass(Environment& environment)
    : SectionRun(environment, {owner, "OffenePosten", item_captions}) {}

bool ProtOPCsvClass::get_filter(Database& oDBU, std::string& condition, std::string& filter_text) {
    return ProtOPFrmFilter(environment())
        .gbGetFilter(condition, filter_text, pbLoeschen, oDBU, psCommandline);
}

std::string ProtOPCsvClass::msWHERE(std::string_view condition) const {
    return open_items::msWHERE(condition);
}

std::unique_ptr<SectionLines> ProtOPCsvClass::lines(Run& run) const {
    return std::make_unique<ItemLines>(run);
}

std::unique_ptr<SectionExporter> create_exporter(Environment& environment) {
    return std::make_unique<ProtOPCsvClass>(environment);
}

}  // namespace prot::open_items
