#pragma once

#include "apps/srvprotqrbcsv/automation_object.h"
#include "apps/srvprotqrbcsv/export_call.h"
#include "apps/srvprotqrbcsv/report_errors.h"

namespace prot {

/// What clients see of every class that exports: its settings, and gCSVAusgabe, which runs by them.
template <class Interface>
class ExporterObject : public AutomationObject<Interface> {
public:
    HRESULT STDMETHODCALLTYPE get_poParent(IDispatch** value) noexcept override {
        if (!value) return E_POINTER;
        *value = ComPtr<IDispatch>(settings_.poParent).release();
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE put_poParent(IDispatch* value) noexcept override {
        return putref_poParent(value);
    }
    HRESULT STDMETHODCALLTYPE putref_poParent(IDispatch* value) noexcept override {
        settings_.poParent = ComPtr<IDispatch>::share(value);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE put_pbLoeschen(VARIANT_BOOL value) noexcept override {
        settings_.pbLoeschen = value != VARIANT_FALSE;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE put_psCommandline(BSTR value) noexcept override {
        return report_errors(__uuidof(Interface), [&] { settings_.psCommandline = text_of(value); });
    }
    HRESULT STDMETHODCALLTYPE gCSVAusgabe(IDispatch* oDBU, long lSection, BSTR sUser, DATE dtVon, DATE dtBis,
                                          long lAktion, VARIANT* /*vPara*/) noexcept override {
        const auto self = ComPtr<IDispatch>::share(this);
        return report_errors(__uuidof(Interface), [&] {
            // A host may change its settings from within the run; they are for the next one.
            const ExportSettings settings = settings_;
            run(settings, {oDBU, lSection, sUser, dtVon, dtBis, lAktion});
        });
    }

private:
    virtual void run(const ExportSettings& settings, const ExportCall& call) = 0;

    ExportSettings settings_;
};

}  // namespace prot
