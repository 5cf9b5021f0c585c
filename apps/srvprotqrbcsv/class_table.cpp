#include "apps/srvprotqrbcsv/class_table.h"

#include <srvprotqrbcsv.h>

#include "apps/srvprotqrbcsv/entry_object.h"
#include "apps/srvprotqrbcsv/rate_export_object.h"

namespace prot {

namespace {

template <class Object>
IUnknown* make() {
    return static_cast<IDispatch*>(new Object);
}

// clang-format off
const AutomationClass classes[] = {
    {CLSID_ProtCsvClass, IID__ProtCsvClass, L"ProtCsvClass", L"_ProtCsvClass", L"Stammdatenprotokollierung", make<EntryObject>},
    {CLSID_CProtDevCsv,  IID__CProtDevCsv,  L"CProtDevCsv",  L"_CProtDevCsv",  L"Stammdatenprotokollierung, Devisenkurse", make<RateExportObject>},
};
// clang-format on

}  // namespace

std::span<const AutomationClass> automation_classes() { return classes; }

}  // namespace prot
