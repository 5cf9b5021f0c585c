#include "apps/srvprotqrbcsv/rate_export_object.h"

#include "apps/srvprotqrbcsv/report_errors.h"
#include "platform/windows/com/bstr.h"

namespace prot {

namespace {

constexpr Owner owner = {"CProtDevCsv", "gCSVAusgabe"};

/// True for as long as it lives.
class Flag {
public:
    explicit Flag(bool& flag) : flag_(flag) { flag_ = true; }
    ~Flag() { flag_ = false; }
    Flag(const Flag&) = delete;
    Flag& operator=(const Flag&) = delete;

private:
    bool& flag_;
};

}  // namespace

RateExportObject::RateExportObject() : exporter_(host_.environment()) {}

HRESULT RateExportObject::get_poParent(IDispatch** value) noexcept {
    if (!value) return E_POINTER;
    *value = ComPtr<IDispatch>(poParent_).release();
    return S_OK;
}

HRESULT RateExportObject::put_poParent(IDispatch* value) noexcept { return putref_poParent(value); }

HRESULT RateExportObject::putref_poParent(IDispatch* value) noexcept {
    poParent_ = ComPtr<IDispatch>::share(value);
    return S_OK;
}

HRESULT RateExportObject::put_pbLoeschen(VARIANT_BOOL value) noexcept {
    pbLoeschen_ = value != VARIANT_FALSE;
    return S_OK;
}

HRESULT RateExportObject::put_psCommandline(BSTR value) noexcept {
    return report_errors(__uuidof(_CProtDevCsv), [&] { psCommandline_ = text_of(value); });
}

HRESULT RateExportObject::gCSVAusgabe(IDispatch* oDBU, long lSection, BSTR sUser, DATE dtVon, DATE dtBis,
                                      long lAktion, VARIANT* /*vPara*/) noexcept {
    const auto self = ComPtr<IDispatch>::share(this);
    return report_errors(__uuidof(_CProtDevCsv), [&] {
        run({oDBU, lSection, sUser, dtVon, dtBis, lAktion});
    });
}

void RateExportObject::run(const ExportCall& call) {
    if (running_)
        named_after(owner, [] {
            throw AutomationError(ErrorNumber::internal,
                                  "Dieses Objekt exportiert gerade; ein zweiter Lauf braucht ein eigenes.");
        });
    const Flag running(running_);
    // A host may change its settings from within the run; they are for the next one.
    exporter_.psCommandline = psCommandline_;
    exporter_.pbLoeschen = pbLoeschen_;
    run_export(exporter_, owner, host_, ComPtr<IDispatch>(poParent_), call);
}

HRESULT RateExportObject::get_gCSVFile(BSTR* value) noexcept {
    if (!value) return E_POINTER;
    *value = nullptr;
    return report_errors(__uuidof(_CProtDevCsv), [&] { *value = Bstr(exporter_.gCSVFile).release(); });
}

}  // namespace prot
