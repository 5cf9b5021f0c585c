#pragma once

#include <oaidl.h>

#include <optional>
#include <string>
#include <vector>

#include "platform/windows/com/com_ptr.h"

namespace prot {

/// A member as type information describes it.
struct DescribedMember {
    struct Parameter {
        VARTYPE type = VT_EMPTY;  ///< of what it refers to, when it is by reference
        bool is_result = false;   ///< the place for the call's answer, which no caller passes
    };

    DISPID id = DISPID_UNKNOWN;
    std::string name;
    std::vector<Parameter> parameters;
    VARTYPE answer = VT_EMPTY;  ///< of the call itself; VT_HRESULT where a parameter is the place for it
};

/// The first member that is the object's own, not inherited from IDispatch; nothing for an object without
/// type information or without such a member.
std::optional<DescribedMember> first_own_member(const ComPtr<IDispatch>& object);

}  // namespace prot
