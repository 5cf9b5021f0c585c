#include "core/ProtCsvClass.h"

#include <algorithm>

#include "core/ZQErrorHandling.h"
#include "core/event_names.h"

namespace prot {

void ProtCsvClass::gCSVAusgabe(Database& oDBU, std::int32_t lSection, const std::string& sUser, Date dtVon,
                               Date dtBis, std::int32_t lAktion, Value& vPara) try {
    const auto section = std::ranges::find(sections_, lSection, &Section::number);
    const auto exporter = section == sections_.end() ? nullptr : section->create(environment_);
    fill_event_names();
    if (!exporter) return;
    exporter->poParent = poParent;
    exporter->psCommandline = psCommandline;
    exporter->pbLoeschen = pbLoeschen;
    exporter->gCSVAusgabe(oDBU, lSection, sUser, dtVon, dtBis, lAktion, vPara);
} catch (...) {
    // Scripts look for "gCSVFile" in the source chain; the name is deliberate.
    leave("ProtCsvClass", "gCSVFile");
}

}  // namespace prot
