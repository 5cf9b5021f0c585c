#pragma once

#include <srvprotqrbcsv.h>

#include <string>

#include "apps/srvprotqrbcsv/automation_object.h"
#include "apps/srvprotqrbcsv/export_call.h"
#include "apps/srvprotqrbcsv/server_host.h"
#include "platform/windows/com/com_ptr.h"
#include "sections/exchange_rates/CProtDevCsv.h"

namespace prot {

/// The class CProtDevCsv as clients see it: one exporter of the exchange rates for all its calls. A call from
/// within its own progress is an error, because the exporter has one file at a time.
class RateExportObject : public AutomationObject<_CProtDevCsv> {
public:
    RateExportObject();

    HRESULT STDMETHODCALLTYPE get_poParent(IDispatch** value) noexcept override;
    HRESULT STDMETHODCALLTYPE put_poParent(IDispatch* value) noexcept override;
    HRESULT STDMETHODCALLTYPE putref_poParent(IDispatch* value) noexcept override;
    HRESULT STDMETHODCALLTYPE put_pbLoeschen(VARIANT_BOOL value) noexcept override;
    HRESULT STDMETHODCALLTYPE put_psCommandline(BSTR value) noexcept override;
    HRESULT STDMETHODCALLTYPE gCSVAusgabe(IDispatch* oDBU, long lSection, BSTR sUser, DATE dtVon, DATE dtBis,
                                          long lAktion, VARIANT* vPara) noexcept override;
    HRESULT STDMETHODCALLTYPE get_gCSVFile(BSTR* value) noexcept override;

private:
    void run(const ExportCall& call);

    ComPtr<IDispatch> poParent_;
    ServerHost host_;
    exchange_rates::CProtDevCsv exporter_;
    std::string psCommandline_;
    bool pbLoeschen_ = false;
    bool running_ = false;
};

}  // namespace prot
