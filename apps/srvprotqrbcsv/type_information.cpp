#include "apps/srvprotqrbcsv/type_information.h"

#include <algorithm>
#include <new>
#include <string>
#include <vector>

#include "apps/srvprotqrbcsv/module.h"
#include "platform/windows/com/bstr.h"
#include "platform/windows/com/com_error.h"
#include "platform/windows/com/com_ptr.h"
#include "platform/windows/text/wide_text.h"

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

constexpr WORD any_put = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;
constexpr UINT no_argument = ~0U;

/// Whether `look` answers true for one of the functions by which a client calls `member`.
template <class Look>
bool any_function(ITypeInfo& type, DISPID member, Look look) {
    TYPEATTR* attributes = nullptr;
    if (FAILED(type.GetTypeAttr(&attributes))) return false;
    bool found = false;
    for (UINT i = 0; i < attributes->cFuncs && !found; ++i) {
        FUNCDESC* function = nullptr;
        if (FAILED(type.GetFuncDesc(i, &function))) continue;
        found = function->memid == member && look(*function);
        type.ReleaseFuncDesc(function);
    }
    type.ReleaseTypeAttr(attributes);
    return found;
}

const VARIANT& dereferenced(const VARIANT& variant) {
    return variant.vt == (VT_BYREF | VT_VARIANT) && variant.pvarVal ? *variant.pvarVal : variant;
}

/// The place in the signature, from 0, of the argument that the call has at `index`.
std::size_t place_of(const DISPPARAMS& arguments, UINT index) {
    if (index >= arguments.cNamedArgs) return arguments.cArgs - 1 - index;
    const DISPID named = arguments.rgdispidNamedArgs[index];
    return named == DISPID_PROPERTYPUT ? 0 : static_cast<USHORT>(named);
}

bool converts(const VARIANT& argument, const TYPEDESC& declared) {
    if (declared.vt == VT_PTR && declared.lptdesc->vt == VT_VARIANT) return true;
    VARIANT converted;
    VariantInit(&converted);
    const VARTYPE wanted = declared.vt == VT_PTR ? VARTYPE{VT_DISPATCH} : declared.vt;
    const bool fits =
        SUCCEEDED(VariantChangeType(&converted, const_cast<VARIANT*>(&dereferenced(argument)), 0, wanted));
    VariantClear(&converted);
    return fits;
}

/// The index of the first argument that does not convert to its declared type. Not every system's own call
/// tells.
UINT unfit_argument(ITypeInfo& type, const Invocation& call) {
    const DISPPARAMS& arguments = *call.arguments;
    UINT unfit = no_argument;
    any_function(type, call.member, [&](const FUNCDESC& function) {
        if ((function.invkind & call.flags) == 0) return false;
        for (UINT index = arguments.cArgs; index-- > 0;) {
            const std::size_t place = place_of(arguments, index);
            if (place < static_cast<std::size_t>(function.cParams) &&
                !converts(arguments.rgvarg[index], function.lprgelemdescParam[place].tdesc))
                unfit = unfit == no_argument || place < place_of(arguments, unfit) ? index : unfit;
        }
        return true;
    });
    return unfit;
}

/// Not every system's own call counts them.
bool has_too_many_arguments(ITypeInfo& type, const Invocation& call) {
    return any_function(type, call.member, [&call](const FUNCDESC& function) {
        return (function.invkind & call.flags) != 0 &&
               call.arguments->cArgs > static_cast<UINT>(function.cParams);
    });
}

/// "ProtCsvClass.gCSVAusgabe: Argument 3 (sUser) …". `bad` is the argument's index in the call.
std::string describe(ITypeInfo& type, const Invocation& call, const Misuse& misuse, UINT bad) {
    const std::vector<std::string> names = names_of(type, call.member);
    std::string text = interface_name(type) + "." + (names.empty() ? "?" : names.front()) + ": ";
    if (misuse.result == DISP_E_BADPARAMCOUNT) return text + "Die " + misuse.text + ".";
    const std::size_t number =
        bad < call.arguments->cArgs ? place_of(*call.arguments, bad) + 1 : names.size();
    if (call.flags & any_put)
        text += "Der Wert ";
    else if (number < names.size())
        text += "Argument " + std::to_string(number) + " (" + names[number] + ") ";
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

/// Whether `call` puts "no object" to a property. Script languages have no Nothing; theirs is Null or Empty.
bool puts_nothing(ITypeInfo& type, const Invocation& call) {
    if ((call.flags & any_put) == 0 || call.arguments->cArgs != 1) return false;
    const VARTYPE given = dereferenced(call.arguments->rgvarg[0]).vt;
    if (given != VT_NULL && given != VT_EMPTY) return false;
    return any_function(type, call.member, [](const FUNCDESC& function) {
        const VARTYPE declared =
            function.cParams == 1 ? function.lprgelemdescParam[0].tdesc.vt : VARTYPE{VT_EMPTY};
        return function.invkind != INVOKE_PROPERTYGET && (declared == VT_DISPATCH || declared == VT_PTR);
    });
}

HRESULT checked_invoke(ITypeInfo& type, IDispatch* object, const Invocation& call) {
    VARIANT nothing;
    VariantInit(&nothing);
    nothing.vt = VT_DISPATCH;
    DISPPARAMS arguments = *call.arguments;
    if (puts_nothing(type, call)) arguments.rgvarg = &nothing;
    if (has_too_many_arguments(type, call))
        return as_exception(type, call, *misuse_of(DISP_E_BADPARAMCOUNT), no_argument);
    UINT bad = no_argument;
    // An earlier error must not pass for one of this call.
    SetErrorInfo(0, nullptr);
    EXCEPINFO unwanted = {};
    EXCEPINFO* const exception = call.exception ? call.exception : &unwanted;
    const HRESULT result =
        type.Invoke(object, call.member, call.flags, &arguments, call.result, exception, &bad);
    if (!call.exception && result == DISP_E_EXCEPTION) error_of_invoke(result, unwanted);
    const Misuse* misuse = misuse_of(result);
    if (!misuse) return result;
    if (bad == no_argument) bad = unfit_argument(type, call);
    if (call.bad_argument && bad != no_argument) *call.bad_argument = bad;
    return as_exception(type, call, *misuse, bad);
}

}  // namespace

HRESULT TypeInformation::load() noexcept try {
    if (type_) return S_OK;
    ComPtr<ITypeLib> library;
    const HRESULT result = LoadTypeLibEx(module::path().c_str(), REGKIND_NONE, library.receive());
    return SUCCEEDED(result) ? library->GetTypeInfoOfGuid(iid_, type_.receive()) : result;
} catch (...) {
    return E_OUTOFMEMORY;
}

HRESULT TypeInformation::get(ITypeInfo** info) noexcept {
    const HRESULT result = load();
    if (SUCCEEDED(result)) *info = ComPtr<ITypeInfo>(type_).release();
    return result;
}

HRESULT TypeInformation::ids_of_names(LPOLESTR* names, UINT count, DISPID* ids) noexcept {
    if (!names || !ids || std::find(names, names + count, nullptr) != names + count) return E_POINTER;
    const HRESULT result = load();
    return SUCCEEDED(result) ? DispGetIDsOfNames(type_.borrow(), names, count, ids) : result;
}

HRESULT TypeInformation::invoke(IDispatch* object, const Invocation& call) noexcept try {
    if (!call.arguments || (!call.arguments->rgvarg && call.arguments->cArgs > 0)) return E_INVALIDARG;
    if (!call.arguments->rgdispidNamedArgs && call.arguments->cNamedArgs > 0) return E_INVALIDARG;
    const HRESULT result = load();
    // The call may release the object, and this with it.
    const ComPtr<ITypeInfo> type = type_;
    return SUCCEEDED(result) ? checked_invoke(*type.borrow(), object, call) : result;
} catch (...) {
    return E_OUTOFMEMORY;
}

}  // namespace prot
