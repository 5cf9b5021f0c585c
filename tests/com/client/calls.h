#pragma once

#include <oaidl.h>
#include <srvprotqrbcsv.h>

#include <string>
#include <utility>
#include <vector>

#include "platform/windows/com/variant.h"

/// Calls as clients make them: by virtual function and by name.
namespace prot::test {

/// What a call answered. number, source, description: of its error, from the exception or from the thread's
/// error information, whichever the way of calling gives.
struct Outcome {
    HRESULT result = S_OK;
    Variant value;
    HRESULT number = S_OK;
    std::string source, description;
    UINT bad_argument = ~0U;  ///< counted from the last one
};

/// One IDispatch::Invoke. arguments: in the order of the signature.
struct Invocation {
    DISPID member;
    WORD flags = DISPATCH_METHOD;
    std::vector<VARIANT> arguments;
    std::vector<std::pair<DISPID, VARIANT>> named = {};
};
Outcome invoke(IDispatch& object, const Invocation& invocation);

/// The id of a member; DISPID_UNKNOWN when there is none.
DISPID id_of(IDispatch& object, const wchar_t* member);

Outcome call(IDispatch& object, const wchar_t* member, std::vector<VARIANT> arguments);
Outcome put(IDispatch& object, const wchar_t* member, VARIANT value, WORD kind = DISPATCH_PROPERTYPUT);
Outcome get(IDispatch& object, const wchar_t* member);

/// The seven arguments of gCSVAusgabe for everything in section 15, without vPara.
std::vector<VARIANT> export_arguments(VARIANT database);
/// gCSVAusgabe with them.
Outcome export_by_name(IDispatch& exporter, IDispatch* database);

/// Takes the thread's error information.
Outcome error_information(HRESULT result);

/// gCSVAusgabe by virtual function.
template <class Exporter>
Outcome export_by_function(Exporter& exporter, IDispatch* database, long section = 15) {
    SetErrorInfo(0, nullptr);
    return error_information(exporter.gCSVAusgabe(database, section, nullptr, 0, 0, 7, nullptr));
}

}  // namespace prot::test
