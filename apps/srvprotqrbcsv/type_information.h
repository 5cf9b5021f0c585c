#pragma once

#include <oaidl.h>

/// Late binding by the library's own type library, which lies in its file. Nothing here throws.
namespace prot {

/// The description of the interface `iid`.
HRESULT type_information(REFIID iid, ITypeInfo** info) noexcept;

HRESULT ids_of_names(REFIID iid, LPOLESTR* names, UINT count, DISPID* ids) noexcept;

/// The arguments of IDispatch::Invoke.
struct Invocation {
    DISPID member;
    WORD flags;
    DISPPARAMS* arguments;
    VARIANT* result;
    EXCEPINFO* exception;
    UINT* bad_argument;
};

/// Calls a member of `object`, whose interface is `iid`, by its virtual function. Null and Empty put to a
/// property of type object are Nothing. Arguments that do not fit the member are an exception whose
/// description names the member and, where known, the argument; a member that is not there stays
/// DISP_E_MEMBERNOTFOUND, which clients ask for.
HRESULT invoke(REFIID iid, IDispatch* object, const Invocation& call) noexcept;

}  // namespace prot
