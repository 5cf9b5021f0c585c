#include "platform/windows/host/show_help_member.h"

#include <optional>
#include <string>

#include "platform/windows/com/bstr.h"
#include "platform/windows/com/late_bound_object.h"
#include "platform/windows/host/suite_components.h"
#include "platform/windows/text/wide_text.h"

namespace prot {

namespace {

constexpr std::string_view known_name = "gShowHelp";

/// How the show-help operation is called.
struct ShowHelp {
    std::string name{known_name};
    VARTYPE result = VT_VARIANT;  ///< type of the result by reference
    bool answers = false;         ///< the result is the call's answer, not its third argument
};

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

std::optional<ShowHelp> described(ITypeInfo& type, const FUNCDESC& function) {
    if (function.cParams != 3) return std::nullopt;
    Bstr name;
    UINT count = 0;
    if (FAILED(type.GetNames(function.memid, name.receive(), 1, &count)) || count != 1) return std::nullopt;
    const ELEMDESC& third = function.lprgelemdescParam[2];
    ShowHelp help;
    help.name = name.text();
    help.answers = (third.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) != 0;
    if (third.tdesc.vt == VT_PTR) help.result = third.tdesc.lptdesc->vt;
    return help;
}

/// The first own member, when it takes three arguments.
std::optional<ShowHelp> first_member(const ComPtr<ITypeInfo>& dispatch) {
    const ComPtr<ITypeInfo> type = own_interface(dispatch);
    std::optional<ShowHelp> help;
    FUNCDESC* function = nullptr;
    for (UINT i = 0; SUCCEEDED(type->GetFuncDesc(i, &function)); ++i) {
        const bool own = is_own(*function);
        if (own) help = described(*type.borrow(), *function);
        type->ReleaseFuncDesc(function);
        if (own) break;
    }
    return help;
}

ShowHelp show_help_of(const ComPtr<IDispatch>& component) {
    ComPtr<ITypeInfo> type;
    std::optional<ShowHelp> help;
    if (SUCCEEDED(component->GetTypeInfo(0, LOCALE_USER_DEFAULT, type.receive())) && type)
        help = first_member(type);
    return help.value_or(ShowHelp());
}

bool is_false(const VARIANT& variant) { return variant.vt == VT_BOOL && variant.boolVal == VARIANT_FALSE; }

/// A place for the result, of the type that the operation wants.
class Result {
public:
    explicit Result(VARTYPE type) {
        if (type == VT_VARIANT) return;
        place_->vt = type;
        if (type == VT_BOOL) place_->boolVal = VARIANT_TRUE;
    }

    VARIANT argument() noexcept {
        if (place_->vt == VT_EMPTY) return reference(*place_);
        VARIANT by_reference;
        VariantInit(&by_reference);
        by_reference.vt = static_cast<VARTYPE>(place_->vt | VT_BYREF);
        by_reference.byref = &place_->llVal;  // all members of the union begin here
        return by_reference;
    }
    bool says_no() const noexcept { return is_false(*place_); }

private:
    Variant value_;
    VARIANT* place_ = value_.receive();
};

}  // namespace

bool show_help(const ComPtr<IDispatch>& component, std::string_view map_file, std::string_view help_id) {
    const ShowHelp help = show_help_of(component);
    LateBoundObject object(component, std::string(help_class));
    const Bstr file(map_file), id(help_id);
    if (help.answers) {
        const Variant answer = object.call(help.name, {argument(file.borrow()), argument(id.borrow())});
        return !is_false(answer.borrow());
    }
    Result result(help.result);
    object.call(help.name, {argument(file.borrow()), argument(id.borrow()), result.argument()});
    return !result.says_no();
}

}  // namespace prot
