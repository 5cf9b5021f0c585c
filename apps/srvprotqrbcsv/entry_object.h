#pragma once

#include <srvprotqrbcsv.h>

#include <string>

#include "apps/srvprotqrbcsv/automation_object.h"
#include "platform/windows/com/com_ptr.h"

namespace prot {

/// The class ProtCsvClass as clients see it. Each call is a run of its own, also one that a host makes from
/// within another's progress.
class EntryObject : public AutomationObject<_ProtCsvClass> {
public:
    HRESULT STDMETHODCALLTYPE get_poParent(IDispatch** value) noexcept override;
    HRESULT STDMETHODCALLTYPE put_poParent(IDispatch* value) noexcept override;
    HRESULT STDMETHODCALLTYPE putref_poParent(IDispatch* value) noexcept override;
    HRESULT STDMETHODCALLTYPE put_pbLoeschen(VARIANT_BOOL value) noexcept override;
    HRESULT STDMETHODCALLTYPE put_psCommandline(BSTR value) noexcept override;
    HRESULT STDMETHODCALLTYPE gCSVAusgabe(IDispatch* oDBU, long lSection, BSTR sUser, DATE dtVon, DATE dtBis,
                                          long lAktion, VARIANT* vPara) noexcept override;

private:
    ComPtr<IDispatch> poParent_;
    std::string psCommandline_;
    bool pbLoeschen_ = false;
};

}  // namespace prot
