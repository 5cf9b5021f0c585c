#include "tests/unit/platform/windows/com/com_doubles.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/windows/com/bstr.h"

namespace prot::test {

namespace {

template <class Interface>
HRESULT interface_of(Interface* self, bool known, void** object) {
    *object = known ? self : nullptr;
    if (!known) return E_NOINTERFACE;
    self->AddRef();
    return S_OK;
}

bool is_dispatch(REFIID iid) { return iid == IID_IUnknown || iid == IID_IDispatch; }

}  // namespace

VARIANT text_variant(std::string_view text) {
    VARIANT variant;
    VariantInit(&variant);
    variant.vt = VT_BSTR;
    variant.bstrVal = Bstr(text).release();
    return variant;
}

VARIANT long_variant(long number) {
    VARIANT variant;
    VariantInit(&variant);
    variant.vt = VT_I4;
    variant.lVal = number;
    return variant;
}

Method answers(VARIANT value) {
    const auto kept = std::make_shared<Variant>(Variant::adopt(value));
    return [kept](Call& call) { return VariantCopy(call.result, const_cast<VARIANT*>(&kept->borrow())); };
}

Method answers_text(std::string_view text) { return answers(text_variant(text)); }

Method fails(HRESULT result) {
    return [result](Call&) { return result; };
}

Method raises(SCODE number, std::string_view source, std::string_view description) {
    return [=, source = std::string(source), description = std::string(description)](Call& call) {
        call.exception->scode = number;
        call.exception->bstrSource = Bstr(source).release();
        call.exception->bstrDescription = Bstr(description).release();
        return DISP_E_EXCEPTION;
    };
}

void Members::set(const std::string& name, Method method) {
    methods[name] = std::move(method);
    ids_.push_back(name);
}

HRESULT Members::find(BSTR name, DISPID* id) {
    names_asked.push_back(text_of(name));
    const auto found = std::ranges::find(ids_, names_asked.back());
    *id = found == ids_.end() ? DISPID_UNKNOWN : static_cast<DISPID>(found - ids_.begin()) + 1;
    return found == ids_.end() ? naming_result : S_OK;
}

HRESULT Members::run(DISPID id, WORD flags, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                     UINT* wrong) {
    flags_seen.push_back(flags);
    if (flags != accepted_flags) return DISP_E_MEMBERNOTFOUND;
    Call call{{}, result, exception, parameters->cArgs};
    for (UINT i = parameters->cArgs; i-- > 0;) call.arguments.push_back(&parameters->rgvarg[i]);
    const HRESULT answer = methods.at(ids_.at(static_cast<std::size_t>(id - 1)))(call);
    if (wrong && call.wrong_argument < parameters->cArgs)
        *wrong = parameters->cArgs - 1 - call.wrong_argument;
    return answer;
}

HRESULT PlainObject::QueryInterface(REFIID iid, void** object) {
    return interface_of(static_cast<IDispatch*>(this), is_dispatch(iid), object);
}

HRESULT PlainObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) {
    return find(names[0], ids);
}

HRESULT PlainObject::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                            EXCEPINFO* exception, UINT* wrong) {
    return run(id, flags, parameters, result, exception, wrong);
}

HRESULT ScriptObject::QueryInterface(REFIID iid, void** object) {
    return interface_of(static_cast<IDispatchEx*>(this), is_dispatch(iid) || iid == __uuidof(IDispatchEx),
                        object);
}

HRESULT ScriptObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) {
    return extended_works ? E_NOTIMPL : find(names[0], ids);
}

HRESULT ScriptObject::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                             EXCEPINFO* exception, UINT* wrong) {
    return extended_works ? E_NOTIMPL : run(id, flags, parameters, result, exception, wrong);
}

HRESULT ScriptObject::GetDispID(BSTR name, DWORD letters, DISPID* id) {
    if (!extended_works) return E_NOTIMPL;
    if (letters == fdexNameCaseSensitive) return find(name, id);
    if (case_sensitive_only) return E_NOTIMPL;
    for (const auto& [member, method] : methods)
        if (_stricmp(member.c_str(), text_of(name).c_str()) == 0) return find(Bstr(member).borrow(), id);
    return DISP_E_UNKNOWNNAME;
}

HRESULT ScriptObject::InvokeEx(DISPID id, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                               EXCEPINFO* exception, IServiceProvider*) {
    return extended_works ? run(id, flags, parameters, result, exception, nullptr) : E_NOTIMPL;
}

HRESULT InterfaceDatabase::QueryInterface(REFIID iid, void** object) {
    if (iid == IID_ISupportErrorInfo)
        return interface_of(static_cast<ISupportErrorInfo*>(this), true, object);
    return interface_of(static_cast<IProtDatabase*>(this), is_dispatch(iid) || iid == __uuidof(IProtDatabase),
                        object);
}

HRESULT InterfaceDatabase::record(std::string call) {
    calls.push_back(std::move(call));
    return failure ? publish(*failure, __uuidof(IProtDatabase)) : bare_failure;
}

HRESULT InterfaceDatabase::QueryValue(BSTR sql, VARIANT* answer) {
    const HRESULT result = record("QueryValue " + text_of(sql));
    return FAILED(result) ? result : VariantCopy(answer, &value);
}

HRESULT InterfaceDatabase::QueryArray(BSTR sql, VARIANT* answer) {
    const HRESULT result = record("QueryArray " + text_of(sql));
    return FAILED(result) ? result : VariantCopy(answer, &rows);
}

HRESULT InterfaceDatabase::Execute(BSTR sql) { return record("Execute " + text_of(sql)); }

HRESULT InterfaceDatabase::DateLiteral(DATE date, LONG flag, BSTR* answer) {
    const HRESULT result = record("DateLiteral " + std::to_string(date) + " " + std::to_string(flag));
    if (SUCCEEDED(result)) *answer = Bstr(literal).release();
    return result;
}

HRESULT InterfaceDatabase::LikeWildcard(LONG flag, BSTR* answer) {
    const HRESULT result = record("LikeWildcard " + std::to_string(flag));
    if (SUCCEEDED(result)) *answer = Bstr(wildcard).release();
    return result;
}

HRESULT InterfaceDatabase::ConnectionInfo(LONG code, VARIANT* answer) {
    const HRESULT result = record("ConnectionInfo " + std::to_string(code));
    if (FAILED(result)) return result;
    return FAILED(connection_info_result) ? connection_info_result : VariantCopy(answer, &texts);
}

HRESULT InterfaceDatabase::InterfaceSupportsErrorInfo(REFIID iid) {
    return iid == __uuidof(IProtDatabase) ? vouches : S_FALSE;
}

AutomationError error_of(const std::function<void()>& action) {
    try {
        action();
    } catch (const AutomationError& error) {
        return error;
    }
    ADD_FAILURE() << "no error";
    return {0, "", ""};
}

}  // namespace prot::test
