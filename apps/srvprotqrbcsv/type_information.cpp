#include "apps/srvprotqrbcsv/type_information.h"

#include <new>
#include <string>
#include <vector>

#include "apps/srvprotqrbcsv/module.h"
#include "platform/windows/bstr.h"
#include "platform/windows/com_error.h"
#include "platform/windows/com_ptr.h"
#include "platform/windows/wide_text.h"

namespace prot {

namespace {

struct Misuse {
    HRESULT result;
    const char* text;
};
constexpr Misuse misuses[] = {
    {DISP_E_TYPEMISMATCH, "hat einen Typ, der hier nicht passt"},
    {DISP_E_OVERFLOW, "liegt außerhalb des Wertebereichs"},
    {DISP_E_PARAMNOTOPTIONAL, "fehlt"},
    {DISP_E_BADPARAMCOUNT, "Anzahl der Argumente stimmt nicht"},
};

const Misuse* misuse_of(HRESULT result) {
    for (const Misuse& misuse : misuses)
        if (misuse.result == result) return &misuse;
    return nullptr;
}

/// The names of a member and of its arguments.
std::vector<std::string> names_of(ITypeInfo& type, DISPID member) {
    constexpr UINT most = 16;
    BSTR names[most] = {};
    UINT count = 0;
    type.GetNames(member, names, most, &count);
    std::vector<Bstr> owners;
    for (UINT i = 0; i < count; ++i) owners.push_back(Bstr::adopt(names[i]));
    std::vector<std::string> texts;
    for (const Bstr& name : owners) texts.push_back(name.text());
    return texts;
}

std::string interface_name(ITypeInfo& type) {
    Bstr name;
    type.GetDocumentation(MEMBERID_NIL, name.receive(), nullptr, nullptr, nullptr);
    const std::string text = name.text();
    return text.starts_with('_') ? text.substr(1) : text;
}

/// "ProtCsvClass.gCSVAusgabe: Argument 3 (sUser) …". `bad` counts from the last argument.
std::string describe(ITypeInfo& type, const Invocation& call, const Misuse& misuse, UINT bad) {
    const std::vector<std::string> names = names_of(type, call.member);
    std::string text = interface_name(type) + "." + (names.empty() ? "?" : names.front()) + ": ";
    if (misuse.result == DISP_E_BADPARAMCOUNT) return text + "Die " + misuse.text + ".";
    const UINT given = call.arguments->cArgs;
    const std::size_t position = bad < given ? given - bad : 0;
    if (call.arguments->cNamedArgs > 0 && position < 2)
        text += "Der Wert ";
    else if (position > 0 && position < names.size())
        text += "Argument " + std::to_string(position) + " (" + names[position] + ") ";
    else
        text += "Ein Argument ";
    return text + misuse.text + ".";
}

HRESULT as_exception(ITypeInfo& type, const Invocation& call, const Misuse& misuse, UINT bad) {
    if (!call.exception) return misuse.result;
    *call.exception = EXCEPINFO();
    call.exception->scode = misuse.result;
    call.exception->bstrSource = Bstr("srvProtQRBCsv").release();
    call.exception->bstrDescription = Bstr(describe(type, call, misuse, bad)).release();
    return DISP_E_EXCEPTION;
}

const VARIANT& dereferenced(const VARIANT& variant) {
    return variant.vt == (VT_BYREF | VT_VARIANT) && variant.pvarVal ? *variant.pvarVal : variant;
}

/// Whether `call` puts "no object" to a property. Script languages have no Nothing; theirs is Null or Empty.
bool puts_nothing(ITypeInfo& type, const Invocation& call) {
    if ((call.flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) == 0 || call.arguments->cArgs != 1)
        return false;
    const VARTYPE given = dereferenced(call.arguments->rgvarg[0]).vt;
    if (given != VT_NULL && given != VT_EMPTY) return false;
    TYPEATTR* attributes = nullptr;
    if (FAILED(type.GetTypeAttr(&attributes))) return false;
    bool is_object = false;
    for (UINT i = 0; i < attributes->cFuncs; ++i) {
        FUNCDESC* function = nullptr;
        if (FAILED(type.GetFuncDesc(i, &function))) continue;
        is_object |= function->memid == call.member && function->invkind != INVOKE_PROPERTYGET &&
                     function->cParams == 1 &&
                     (function->lprgelemdescParam[0].tdesc.vt == VT_DISPATCH ||
                      function->lprgelemdescParam[0].tdesc.vt == VT_PTR);
        type.ReleaseFuncDesc(function);
    }
    type.ReleaseTypeAttr(attributes);
    return is_object;
}

HRESULT checked_invoke(REFIID iid, IDispatch* object, const Invocation& call) {
    ComPtr<ITypeInfo> type;
    HRESULT result = type_information(iid, type.receive());
    if (FAILED(result)) return result;
    VARIANT nothing;
    VariantInit(&nothing);
    nothing.vt = VT_DISPATCH;
    DISPPARAMS arguments = *call.arguments;
    if (puts_nothing(*type.borrow(), call)) arguments.rgvarg = &nothing;
    UINT bad = ~0U;
    // An earlier error must not pass for one of this call.
    SetErrorInfo(0, nullptr);
    EXCEPINFO unwanted = {};
    EXCEPINFO* const exception = call.exception ? call.exception : &unwanted;
    result = type->Invoke(object, call.member, call.flags, &arguments, call.result, exception, &bad);
    if (!call.exception && result == DISP_E_EXCEPTION) error_of_invoke(result, unwanted);
    if (call.bad_argument && bad != ~0U) *call.bad_argument = bad;
    const Misuse* misuse = misuse_of(result);
    return misuse ? as_exception(*type.borrow(), call, *misuse, bad) : result;
}

}  // namespace

HRESULT type_information(REFIID iid, ITypeInfo** info) noexcept try {
    ComPtr<ITypeLib> library;
    const HRESULT result = LoadTypeLibEx(module::path().c_str(), REGKIND_NONE, library.receive());
    return SUCCEEDED(result) ? library->GetTypeInfoOfGuid(iid, info) : result;
} catch (...) {
    return E_OUTOFMEMORY;
}

HRESULT ids_of_names(REFIID iid, LPOLESTR* names, UINT count, DISPID* ids) noexcept {
    ComPtr<ITypeInfo> type;
    const HRESULT result = type_information(iid, type.receive());
    return SUCCEEDED(result) ? DispGetIDsOfNames(type.borrow(), names, count, ids) : result;
}

HRESULT invoke(REFIID iid, IDispatch* object, const Invocation& call) noexcept try {
    if (!call.arguments) return E_INVALIDARG;
    return checked_invoke(iid, object, call);
} catch (...) {
    return E_OUTOFMEMORY;
}

}  // namespace prot
