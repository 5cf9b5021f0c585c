#pragma once

#include <dispex.h>
#include <oaidl.h>
#include <prot_database.h>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/automation/error.h"
#include "platform/automation/value.h"
#include "platform/windows/com/com_error.h"
#include "platform/windows/com/variant.h"

/// Objects as hosts hand them over. They live on the stack of a test, which holds one reference.
namespace prot::test {

/// One call of a member, arguments in the order of the signature. Members with an index past the arguments do
/// not mean any.
struct Call {
    std::vector<VARIANT*> arguments;
    VARIANT* result;
    EXCEPINFO* exception;
    UINT wrong_argument;  ///< from 0; tells which one a type mismatch is about
};

using Method = std::function<HRESULT(Call&)>;

VARIANT text_variant(std::string_view text);
VARIANT long_variant(long number);

Method answers(VARIANT value);  ///< keeps `value`; strings are copied for each answer
Method answers_text(std::string_view text);
Method fails(HRESULT result);
Method raises(SCODE number, std::string_view source, std::string_view description);

/// What both kinds of late-bound object have: members by name, and a record of what was asked of them.
class Members {
public:
    std::map<std::string, Method> methods;
    ULONG references = 1;
    WORD accepted_flags = DISPATCH_METHOD;  ///< any other combination is "member not found"
    HRESULT naming_result = DISP_E_UNKNOWNNAME;
    std::vector<std::string> names_asked;
    std::vector<WORD> flags_seen;

    void set(const std::string& name, Method method);

protected:
    HRESULT find(BSTR name, DISPID* id);
    HRESULT run(DISPID id, WORD flags, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                UINT* wrong);

private:
    std::vector<std::string> ids_;
};

/// An object of a host that knows its members by IDispatch.
class PlainObject : public IDispatch, public Members {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT* wrong) override;
};

/// A class object of a script engine: members are known by IDispatchEx alone.
class ScriptObject : public IDispatchEx, public Members {
public:
    bool extended_works = true;  ///< false: every IDispatchEx call is E_NOTIMPL, and IDispatch works
    bool case_sensitive_only = false;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT* wrong) override;
    HRESULT STDMETHODCALLTYPE GetDispID(BSTR name, DWORD letters, DISPID* id) override;
    HRESULT STDMETHODCALLTYPE InvokeEx(DISPID id, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                                       EXCEPINFO* exception, IServiceProvider*) override;
    HRESULT STDMETHODCALLTYPE DeleteMemberByName(BSTR, DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DeleteMemberByDispID(DISPID) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetMemberProperties(DISPID, DWORD, DWORD*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetMemberName(DISPID, BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetNextDispID(DWORD, DISPID, DISPID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetNameSpaceParent(IUnknown**) override { return E_NOTIMPL; }
};

/// A database object that has the interface. Answers what it was given, fails with `failure` when that is
/// set.
class InterfaceDatabase : public IProtDatabase, public ISupportErrorInfo {
public:
    std::vector<std::string> calls;
    VARIANT value{}, rows{}, texts{};
    std::string literal = "'20260305'", wildcard = "%";
    std::optional<AutomationError> failure;  ///< with error information
    HRESULT bare_failure = S_OK;             ///< without
    HRESULT vouches = S_OK;                  ///< what ISupportErrorInfo answers
    HRESULT connection_info_result = S_OK;
    ULONG references = 1;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE QueryValue(BSTR sql, VARIANT* answer) override;
    HRESULT STDMETHODCALLTYPE QueryArray(BSTR sql, VARIANT* answer) override;
    HRESULT STDMETHODCALLTYPE Execute(BSTR sql) override;
    HRESULT STDMETHODCALLTYPE DateLiteral(DATE date, LONG flag, BSTR* answer) override;
    HRESULT STDMETHODCALLTYPE LikeWildcard(LONG flag, BSTR* answer) override;
    HRESULT STDMETHODCALLTYPE ConnectionInfo(LONG code, VARIANT* answer) override;
    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override;

private:
    HRESULT record(std::string call);
};

/// The error that `action` raises; a test failure when it raises none.
AutomationError error_of(const std::function<void()>& action);

inline constexpr std::int32_t type_mismatch = static_cast<std::int32_t>(ErrorNumber::type_mismatch);

}  // namespace prot::test
