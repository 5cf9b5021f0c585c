#include "tests/com/client/calls.h"

#include "platform/windows/com/bstr.h"
#include "platform/windows/com/com_ptr.h"
#include "tests/com/client/variants.h"

namespace prot::test {

Outcome invoke(IDispatch& object, const Invocation& invocation) {
    std::vector<VARIANT> arguments;
    std::vector<DISPID> names;
    for (const auto& [id, value] : invocation.named) {
        names.push_back(id);
        arguments.push_back(value);
    }
    arguments.insert(arguments.end(), invocation.arguments.rbegin(), invocation.arguments.rend());
    DISPPARAMS parameters = {arguments.data(), names.data(), static_cast<UINT>(arguments.size()),
                             static_cast<UINT>(names.size())};
    Outcome outcome;
    EXCEPINFO exception = {};
    outcome.result = object.Invoke(invocation.member, IID_NULL, LOCALE_USER_DEFAULT, invocation.flags,
                                   &parameters, outcome.value.receive(), &exception, &outcome.bad_argument);
    if (exception.pfnDeferredFillIn) exception.pfnDeferredFillIn(&exception);
    outcome.number = exception.wCode ? static_cast<HRESULT>(0x800A0000U + exception.wCode) : exception.scode;
    outcome.source = Bstr::adopt(exception.bstrSource).text();
    outcome.description = Bstr::adopt(exception.bstrDescription).text();
    SysFreeString(exception.bstrHelpFile);
    return outcome;
}

DISPID id_of(IDispatch& object, const wchar_t* member) {
    auto name = const_cast<LPOLESTR>(member);
    DISPID id = DISPID_UNKNOWN;
    object.GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
    return id;
}

Outcome call(IDispatch& object, const wchar_t* member, std::vector<VARIANT> arguments) {
    return invoke(object, {id_of(object, member), DISPATCH_METHOD, std::move(arguments)});
}

Outcome put(IDispatch& object, const wchar_t* member, VARIANT value, WORD kind) {
    return invoke(object, {id_of(object, member), kind, {}, {{DISPID_PROPERTYPUT, value}}});
}

Outcome get(IDispatch& object, const wchar_t* member) {
    return invoke(object, {id_of(object, member), DISPATCH_PROPERTYGET, {}});
}

std::vector<VARIANT> export_arguments(VARIANT database) {
    VARIANT no_user = empty();
    no_user.vt = VT_BSTR;
    no_user.bstrVal = nullptr;
    return {database, number(15), no_user, date(0), date(0), number(7)};
}

Outcome export_by_name(IDispatch& exporter, IDispatch* database) {
    return call(exporter, L"gCSVAusgabe", export_arguments(object(database)));
}

Outcome error_information(HRESULT result) {
    Outcome outcome;
    outcome.result = outcome.number = result;
    ComPtr<IErrorInfo> information;
    if (GetErrorInfo(0, information.receive()) != S_OK) return outcome;
    Bstr source, description;
    information->GetSource(source.receive());
    information->GetDescription(description.receive());
    outcome.source = source.text();
    outcome.description = description.text();
    return outcome;
}

}  // namespace prot::test
