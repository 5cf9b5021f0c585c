#pragma once

#include <oaidl.h>

#include "apps/srvprotqrbcsv/counted_object.h"
#include "apps/srvprotqrbcsv/type_information.h"

namespace prot {

/// An automation object with the one dual interface `Interface` of the type library: identity, late binding
/// and error information. The members are the derived class's; each reports its errors
/// through report_errors.
template <class Interface>
class AutomationObject : public CountedObject<Interface, ISupportErrorInfo> {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (iid == IID_IUnknown || iid == IID_IDispatch || iid == __uuidof(Interface))
            *object = static_cast<Interface*>(this);
        else if (iid == IID_ISupportErrorInfo)
            *object = static_cast<ISupportErrorInfo*>(this);
        else
            return E_NOINTERFACE;
        this->AddRef();
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override {
        if (!count) return E_POINTER;
        *count = 1;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** info) noexcept override {
        if (!info) return E_POINTER;
        *info = nullptr;
        return index == 0 ? type_.get(info) : DISP_E_BADINDEX;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID,
                                            DISPID* ids) noexcept override {
        return iid == IID_NULL ? type_.ids_of_names(names, count, ids) : DISP_E_UNKNOWNINTERFACE;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID iid, LCID, WORD flags, DISPPARAMS* arguments,
                                     VARIANT* result, EXCEPINFO* exception, UINT* bad) noexcept override {
        if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
        return type_.invoke(static_cast<Interface*>(this),
                            {member, flags, arguments, result, exception, bad});
    }

    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) noexcept override {
        return iid == __uuidof(Interface) ? S_OK : S_FALSE;
    }

private:
    TypeInformation type_{__uuidof(Interface)};
};

}  // namespace prot
