#include "platform/windows/host/show_help_member.h"

#include <optional>
#include <string>

#include "platform/windows/com/bstr.h"
#include "platform/windows/com/late_bound_object.h"
#include "platform/windows/com/own_member.h"
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

/// By the object's own first member, when that takes three arguments.
ShowHelp show_help_of(const ComPtr<IDispatch>& component) {
    const std::optional<DescribedMember> first = first_own_member(component);
    if (!first || first->parameters.size() != 3) return {};
    const DescribedMember::Parameter& third = first->parameters.back();
    return {first->name, third.type, third.is_result};
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
