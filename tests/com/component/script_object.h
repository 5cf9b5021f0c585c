#pragma once

#include <oaidl.h>
#include <oleauto.h>

#include <atomic>
#include <cstddef>
#include <new>
#include <span>
#include <string>
#include <utility>

/// What the classes of the test component stand on: objects with members by name. Written without the
/// server's own wrappers, so that a fault there does not hide itself here.
namespace prottest {

/// An error for the caller of a member.
struct ScriptError {
    HRESULT number;
    std::wstring source;
    std::wstring description;
};

/// Every live object, so that the library stays loaded as long as there is one.
inline std::atomic<long> live_objects = 0;

inline VARIANT text_variant(const std::wstring& text) {
    VARIANT variant;
    VariantInit(&variant);
    variant.vt = VT_BSTR;
    variant.bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    if (!variant.bstrVal) throw std::bad_alloc();
    return variant;
}

/// The argument at `place`, from 0 in the order of the signature, without its reference.
inline const VARIANT& argument_at(const DISPPARAMS& parameters, UINT place) {
    if (place >= parameters.cArgs) throw ScriptError{DISP_E_BADPARAMCOUNT, {}, L"an argument is missing"};
    const VARIANT& variant = parameters.rgvarg[parameters.cArgs - 1 - place];
    return variant.vt == (VT_BYREF | VT_VARIANT) ? *variant.pvarVal : variant;
}

inline std::wstring text_at(const DISPPARAMS& parameters, UINT place) {
    VARIANT text;
    VariantInit(&text);
    const HRESULT changed =
        VariantChangeType(&text, const_cast<VARIANT*>(&argument_at(parameters, place)), 0, VT_BSTR);
    if (FAILED(changed)) throw ScriptError{changed, {}, L"an argument is no text"};
    std::wstring result(text.bstrVal ? text.bstrVal : L"", SysStringLen(text.bstrVal));
    VariantClear(&text);
    return result;
}

/// An object behind `Interface`, IDispatch or one that extends it, whose members are called by name. `Object`
/// has a static table `members` of {name, function(Object&, const DISPPARAMS&) -> VARIANT}; ids count from 1.
template <class Object, class Interface = IDispatch>
class ScriptObject : public Interface {
public:
    struct Member {
        const wchar_t* name;
        VARIANT (*call)(Object& object, const DISPPARAMS& parameters);
    };

    ScriptObject() { ++live_objects; }
    virtual ~ScriptObject() { --live_objects; }
    ScriptObject(const ScriptObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        const bool known = iid == IID_IUnknown || iid == IID_IDispatch ||
                           (iid == __uuidof(Interface) && static_cast<Object*>(this)->by_interface());
        *object = known ? static_cast<Interface*>(this) : nullptr;
        if (!known) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** type) override {
        *type = nullptr;
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
        for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
        const std::span<const Member> members = Object::members();
        for (std::size_t i = 0; i < members.size(); ++i)
            if (lstrcmpiW(members[i].name, names[0]) == 0) ids[0] = static_cast<DISPID>(i + 1);
        return ids[0] == DISPID_UNKNOWN || count != 1 ? DISP_E_UNKNOWNNAME : S_OK;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT* result,
                                     EXCEPINFO* exception, UINT*) override {
        const std::span<const Member> members = Object::members();
        if (id < 1 || static_cast<std::size_t>(id) > members.size()) return DISP_E_MEMBERNOTFOUND;
        try {
            VARIANT answer =
                members[static_cast<std::size_t>(id) - 1].call(static_cast<Object&>(*this), *parameters);
            if (result)
                *result = answer;
            else
                VariantClear(&answer);
            return S_OK;
        } catch (const ScriptError& error) {
            if (exception) *exception = exception_of(error);
            return exception ? DISP_E_EXCEPTION : error.number;
        } catch (const std::bad_alloc&) {
            return E_OUTOFMEMORY;
        }
    }

    /// Whether `Interface` is offered, too.
    bool by_interface() const { return true; }

private:
    static EXCEPINFO exception_of(const ScriptError& error) {
        EXCEPINFO exception = {};
        exception.bstrSource = SysAllocString(error.source.c_str());
        exception.bstrDescription = SysAllocString(error.description.c_str());
        exception.scode = error.number;
        return exception;
    }

    std::atomic<ULONG> references_ = 0;
};

}  // namespace prottest
