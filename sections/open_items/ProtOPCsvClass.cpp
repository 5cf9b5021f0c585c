#include "sections/open_items/ProtOPCsvClass.h"

#include "sections/open_items/ProtOPFrmFilter.h"
#include "sections/open_items/item_lines.h"
#include "sections/open_items/item_selection.h"

namespace prot::open_items {

ProtOPCsvClass::ProtOPCsvClass(Environment& environment) : SectionRun(environment, owner) {}

bool ProtOPCsvClass::get_filter(Database& oDBU, std::int32_t /*lSection*/, std::string& filter_text) {
    ProtOPFrmFilter form(environment(), pbLoeschen);
    if (!form.gbGetFilter(oDBU, psCommandline)) return false;
    where_ = form.sWhere();
    filter_text = form.sFilter();
    return true;
}

SectionRun::Names ProtOPCsvClass::names() const {
    return {.word = "OffenePosten", .captions = item_captions};
}

std::string ProtOPCsvClass::msWHERE() const { return open_items::msWHERE(where_); }

std::unique_ptr<SectionLines> ProtOPCsvClass::lines(Run& run) const {
    return std::make_unique<ItemLines>(run);
}

std::unique_ptr<SectionExporter> create_exporter(Environment& environment) {
    return std::make_unique<ProtOPCsvClass>(environment);
}

}  // namespace prot::open_items
