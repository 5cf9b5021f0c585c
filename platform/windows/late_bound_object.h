#pragma once

#include <dispex.h>
#include <oaidl.h>

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "platform/windows/com_ptr.h"
#include "platform/windows/variant.h"

namespace prot {

/// An object whose members are reached by name: through IDispatchEx when it has that, IDispatch otherwise (some
/// script engines know the members of their class objects only through the former). Ids of members are asked
/// for once.
class LateBoundObject {
public:
    /// `name` is what errors call the object, such as "poParent". `object` is not null.
    LateBoundObject(ComPtr<IDispatch> object, std::string name);

    bool has(std::string_view member);

    /// Calls a method. `arguments` in the order of the signature; a variant by reference is written back by the
    /// callee. An unknown member: automation error 438, which names object and member. An error of the member
    /// itself stays as it is; every other failure (wrong types, wrong number of arguments) names object and
    /// member.
    Variant call(std::string_view member, std::initializer_list<VARIANT> arguments);

private:
    // private parts are the implementer's
};

/// Variants for arguments; they refer to what they are made of and own nothing.
VARIANT argument(long number) noexcept;
VARIANT argument(BSTR text) noexcept;
VARIANT argument(DATE date) noexcept;  // VT_DATE
VARIANT reference(long& number) noexcept;
VARIANT reference(BSTR& text) noexcept;
VARIANT reference(VARIANT& variant) noexcept;

}  // namespace prot
