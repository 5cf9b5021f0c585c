#include "platform/windows/com/own_member.h"

#include "platform/windows/com/bstr.h"

namespace prot {

namespace {

/// The vtable's description, which tells own members from inherited ones.
ComPtr<ITypeInfo> own_interface(const ComPtr<ITypeInfo>& dispatch) {
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> own;
    if (FAILED(dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference)) ||
        FAILED(dispatch->GetRefTypeInfo(reference, own.receive())))
        return dispatch;
    return own;
}

bool is_own(const FUNCDESC& function) {
    return (function.wFuncFlags & FUNCFLAG_FRESTRICTED) == 0 && function.invkind == INVOKE_FUNC;
}

VARTYPE type_of(const TYPEDESC& type) { return type.vt == VT_PTR ? type.lptdesc->vt : type.vt; }

std::optional<DescribedMember> described(ITypeInfo& type, const FUNCDESC& function) {
    Bstr name;
    UINT count = 0;
    if (FAILED(type.GetNames(function.memid, name.receive(), 1, &count)) || count != 1) return std::nullopt;
    DescribedMember member{function.memid, name.text(), {}, function.elemdescFunc.tdesc.vt};
    for (SHORT i = 0; i < function.cParams; ++i) {
        const ELEMDESC& parameter = function.lprgelemdescParam[i];
        member.parameters.push_back(
            {type_of(parameter.tdesc), (parameter.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0});
    }
    return member;
}

}  // namespace

std::optional<DescribedMember> first_own_member(const ComPtr<IDispatch>& object) {
    ComPtr<ITypeInfo> dispatch;
    if (FAILED(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, dispatch.receive())) || !dispatch)
        return std::nullopt;
    const ComPtr<ITypeInfo> type = own_interface(dispatch);
    FUNCDESC* function = nullptr;
    for (UINT i = 0; SUCCEEDED(type->GetFuncDesc(i, &function)); ++i) {
        struct Release {
            ITypeInfo& type;
            FUNCDESC* function;
            ~Release() { type.ReleaseFuncDesc(function); }
        } const release{*type.borrow(), function};
        if (is_own(*function)) return described(*type.borrow(), *function);
    }
    return std::nullopt;
}

}  // namespace prot
