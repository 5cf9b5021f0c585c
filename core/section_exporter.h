#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/automation/value.h"
#include "platform/database.h"
#include "platform/progress_parent.h"

namespace prot {

/// The exporter of one log section. The entry class sets the three members, calls gCSVAusgabe once and
/// releases it.
class SectionExporter {
public:
    virtual ~SectionExporter() = default;

    ProgressParent* poParent = nullptr;  ///< the host's progress object, or null
    std::string psCommandline;           ///< parameter text; empty: interactive run
    bool pbLoeschen = false;             ///< delete the selected log records instead of exporting them

    /// Exports or deletes. sUser: application user, empty for all. dtVon, dtBis: first and last day, 0 for
    /// open. lAktion: event mask, 1 created, 2 changed, 4 deleted. vPara: spare, passed through.
    virtual void gCSVAusgabe(Database& oDBU, std::int32_t lSection, const std::string& sUser, Date dtVon,
                             Date dtBis, std::int32_t lAktion, Value& vPara) = 0;

    /// While gCSVAusgabe deletes: exports what it selects, by the same arguments, asking for no filter. For a
    /// host that keeps what goes. An exporter that writes no file has nothing to do.
    virtual void export_selection(Database& /*oDBU*/, std::int32_t /*lSection*/, const std::string& /*sUser*/,
                                  Date /*dtVon*/, Date /*dtBis*/, std::int32_t /*lAktion*/) {}

    /// Only reads psCommandline, as gCSVAusgabe would; the environment's notices hear of each item. Returns
    /// what the file's first line would say. Nothing when a person would be asked, or an error was shown. For
    /// a host that looks at a parameter text before the run; an exporter so used is not run.
    virtual std::optional<std::string> read_filter(Database& /*oDBU*/, std::int32_t /*lSection*/) {
        return std::nullopt;
    }
};

}  // namespace prot
