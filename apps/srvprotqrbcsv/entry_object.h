#pragma once

#include <srvprotqrbcsv.h>

#include "apps/srvprotqrbcsv/exporter_object.h"

namespace prot {

/// The class ProtCsvClass as clients see it. Each call is a run of its own, also one that a host makes from
/// within another's progress.
class EntryObject : public ExporterObject<_ProtCsvClass> {
    void run(const ExportSettings& settings, const ExportCall& call) override;
};

}  // namespace prot
