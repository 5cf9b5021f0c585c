#include "apps/srvprotqrbcsv/entry_object.h"

#include <algorithm>

#include "apps/srvprotqrbcsv/server_host.h"
#include "core/ProtCsvClass.h"
#include "core/event_names.h"
#include "sections/section_table.h"

namespace prot {

namespace {

/// A section without exporter does nothing but what every call does, so that a host need not even have a
/// database object for it.
bool has_exporter(std::int32_t section) {
    return std::ranges::find(section_table(), section, &Section::number) != section_table().end();
}

// Scripts look for "gCSVFile" in the source chain; the name is deliberate.
constexpr Owner owner = {"ProtCsvClass", "gCSVFile"};

}  // namespace

void EntryObject::run(const ExportSettings& settings, const ExportCall& call) {
    if (!has_exporter(call.lSection)) return fill_event_names();
    ServerHost host;
    ProtCsvClass entry(host.environment(), section_table());
    run_export(entry, owner, host, settings, call);
}

}  // namespace prot
