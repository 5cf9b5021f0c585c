#pragma once

#include <oaidl.h>

#include "platform/windows/com/com_ptr.h"

/// Late binding by the library's own type library, which lies in its file.
namespace prot {

/// The arguments of IDispatch::Invoke.
struct Invocation {
    DISPID member;
    WORD flags;
    DISPPARAMS* arguments;
    VARIANT* result;
    EXCEPINFO* exception;
    UINT* bad_argument;
};

/// What the type library says of one interface; read when it is first needed. Nothing here throws.
class TypeInformation {
public:
    explicit TypeInformation(REFIID iid) : iid_(iid) {}

    /// The description of the interface.
    HRESULT get(ITypeInfo** info) noexcept;

    HRESULT ids_of_names(LPOLESTR* names, UINT count, DISPID* ids) noexcept;

    /// Calls a member of `object`, which has the interface, by its virtual function. Null and Empty put to a
    /// property of type object are Nothing. Arguments that do not fit the member are an exception whose
    /// description names the member and, where known, the argument; a member that is not there stays
    /// DISP_E_MEMBERNOTFOUND, which clients ask for.
    HRESULT invoke(IDispatch* object, const Invocation& call) noexcept;

private:
    HRESULT load() noexcept;

    const IID& iid_;
    ComPtr<ITypeInfo> type_;
};

}  // namespace prot
