#include "apps/srvprotqrbcsv/entry_object.h"

#include <algorithm>

#include "apps/srvprotqrbcsv/export_call.h"
#include "apps/srvprotqrbcsv/report_errors.h"
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

HRESULT EntryObject::get_poParent(IDispatch** value) noexcept {
    if (!value) return E_POINTER;
    *value = ComPtr<IDispatch>(poParent_).release();
    return S_OK;
}

HRESULT EntryObject::put_poParent(IDispatch* value) noexcept { return putref_poParent(value); }

HRESULT EntryObject::putref_poParent(IDispatch* value) noexcept {
    poParent_ = ComPtr<IDispatch>::share(value);
    return S_OK;
}

HRESULT EntryObject::put_pbLoeschen(VARIANT_BOOL value) noexcept {
    pbLoeschen_ = value != VARIANT_FALSE;
    return S_OK;
}

HRESULT EntryObject::put_psCommandline(BSTR value) noexcept {
    return report_errors(__uuidof(_ProtCsvClass), [&] { psCommandline_ = text_of(value); });
}

HRESULT EntryObject::gCSVAusgabe(IDispatch* oDBU, long lSection, BSTR sUser, DATE dtVon, DATE dtBis,
                                 long lAktion, VARIANT* /*vPara*/) noexcept {
    const auto self = ComPtr<IDispatch>::share(this);
    return report_errors(__uuidof(_ProtCsvClass), [&] {
        if (!has_exporter(lSection)) {
            fill_event_names();
            return;
        }
        ServerHost host;
        ProtCsvClass entry(host.environment(), section_table());
        entry.psCommandline = psCommandline_;
        entry.pbLoeschen = pbLoeschen_;
        run_export(entry, owner, host, ComPtr<IDispatch>(poParent_),
                   {oDBU, lSection, sUser, dtVon, dtBis, lAktion});
    });
}

}  // namespace prot
