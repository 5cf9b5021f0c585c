#include "core/ProtCsvClass.h"

#include <algorithm>

#include "core/ZQErrorHandling.h"
#include "core/event_names.h"

namespace prot {

namespace {

/// Names the exporter while it runs.
class Running {
public:
    Running(SectionExporter*& place, SectionExporter& exporter) : place_(place), before_(place) {
        place_ = &exporter;
    }
    ~Running() { place_ = before_; }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

private:
    SectionExporter*& place_;
    SectionExporter* before_;
};

}  // namespace

void ProtCsvClass::gCSVAusgabe(Database& oDBU, std::int32_t lSection, const std::string& sUser, Date dtVon,
                               Date dtBis, std::int32_t lAktion, Value& vPara) try {
    const auto section = std::ranges::find(sections_, lSection, &Section::number);
    const auto exporter = section == sections_.end() ? nullptr : section->create(environment_);
    fill_event_names();
    if (!exporter) return;
    exporter->poParent = poParent;
    exporter->psCommandline = psCommandline;
    exporter->pbLoeschen = pbLoeschen;
    const Running running(running_, *exporter);
    exporter->gCSVAusgabe(oDBU, lSection, sUser, dtVon, dtBis, lAktion, vPara);
} catch (...) {
    // Scripts look for "gCSVFile" in the source chain; the name is deliberate.
    leave("ProtCsvClass", "gCSVFile");
}

void ProtCsvClass::export_selection(Database& oDBU, std::int32_t lSection, const std::string& sUser,
                                    Date dtVon, Date dtBis, std::int32_t lAktion) {
    if (running_ != nullptr) running_->export_selection(oDBU, lSection, sUser, dtVon, dtBis, lAktion);
}

}  // namespace prot
