#pragma once

#include <srvprotqrbcsv.h>

#include "apps/srvprotqrbcsv/exporter_object.h"
#include "apps/srvprotqrbcsv/server_host.h"
#include "sections/exchange_rates/CProtDevCsv.h"

namespace prot {

/// The class CProtDevCsv as clients see it: one exporter of the exchange rates for all its calls. A call from
/// within its own progress is an error, because the exporter has one file at a time.
class RateExportObject : public ExporterObject<_CProtDevCsv> {
public:
    RateExportObject();

    HRESULT STDMETHODCALLTYPE get_gCSVFile(BSTR* value) noexcept override;

private:
    void run(const ExportSettings& settings, const ExportCall& call) override;

    ServerHost host_;
    exchange_rates::CProtDevCsv exporter_;
    bool running_ = false;
};

}  // namespace prot
