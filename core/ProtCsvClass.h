#pragma once

#include <cstdint>
#include <string>

#include "core/section_table.h"
#include "platform/environment.h"

namespace prot {

/// The entry class: picks the exporter of a log section and runs it. One instance serves any number of calls
/// and keeps its three settings between them.
class ProtCsvClass {
public:
    ProtCsvClass(Environment& environment, SectionTable sections)
        : environment_(environment), sections_(sections) {}

    ProgressParent* poParent = nullptr;  ///< the host's progress object, or null
    std::string psCommandline;           ///< parameter text; empty: interactive run
    bool pbLoeschen = false;             ///< delete the selected log records instead of exporting them

    /// Runs the exporter of lSection with the seven arguments (see SectionExporter). A section number without
    /// exporter does nothing and reports nothing. Errors reach the caller with the chain of procedures as
    /// their source.
    void gCSVAusgabe(Database& oDBU, std::int32_t lSection, const std::string& sUser, Date dtVon, Date dtBis,
                     std::int32_t lAktion, Value& vPara);

    /// While gCSVAusgabe deletes: see SectionExporter::export_selection. The same arguments.
    void export_selection(Database& oDBU, std::int32_t lSection, const std::string& sUser, Date dtVon,
                          Date dtBis, std::int32_t lAktion);

private:
    Environment& environment_;
    SectionTable sections_;
    SectionExporter* running_ = nullptr;
};

}  // namespace prot
