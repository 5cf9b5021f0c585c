#pragma once

#include <dispex.h>
#include <oaidl.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "platform/automation/error.h"
#include "platform/windows/com/com_ptr.h"
#include "platform/windows/com/variant.h"

namespace prot {

/// An object whose members are reached by name: through IDispatchEx when it has that, IDispatch otherwise
/// (some script engines know the members of their class objects only through the former). Ids of members are
/// asked for once.
class LateBoundObject {
public:
    /// `name` is what errors call the object, such as "poParent". `object` is not null.
    LateBoundObject(ComPtr<IDispatch> object, std::string name);

    /// Fails only when the object does not answer at all.
    bool has(std::string_view member);

    /// Calls a method, or reads a property that takes arguments. `arguments`, at most eight, in the order of
    /// the signature; a variant by reference is written back by the callee. An unknown member: automation
    /// error 438, which names object and member. An error of the member itself stays as it is; every other
    /// failure (wrong types, wrong number of arguments) names object and member.
    Variant call(std::string_view member, std::initializer_list<VARIANT> arguments);

    /// Likewise by the member's id; its name is for errors.
    Variant call(DISPID id, std::string_view member, std::initializer_list<VARIANT> arguments);

private:
    struct Member {
        std::string name;
        DISPID id;
    };
    /// What an answer leaves behind besides its result.
    struct Failure {
        EXCEPINFO exception{};
        UINT argument = static_cast<UINT>(-1);  ///< index into the reversed arguments
    };

    const Member* find(std::string_view name);
    DISPID ask_id(const std::string& name);
    DISPID ask_id_by_name_service(BSTR name);
    HRESULT invoke(DISPID id, WORD flags, DISPPARAMS& parameters, VARIANT* answer, Failure& failure);
    AutomationError error_of(HRESULT result, std::string_view member, const DISPPARAMS& parameters,
                             Failure& failure) const;

    ComPtr<IDispatch> object_;
    ComPtr<IDispatchEx> extended_;  // null when the object has none, or only says so
    std::string name_;
    std::vector<Member> members_;
};

/// Variants for arguments; they refer to what they are made of and own nothing.
VARIANT argument(long number) noexcept;
VARIANT argument(BSTR text) noexcept;
VARIANT argument(DATE date) noexcept;  // VT_DATE
VARIANT argument(IDispatch* object) noexcept;
VARIANT reference(long& number) noexcept;
VARIANT reference(BSTR& text) noexcept;
VARIANT reference(VARIANT& variant) noexcept;

}  // namespace prot
