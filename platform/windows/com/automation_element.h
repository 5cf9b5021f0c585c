#pragma once

#include <oaidl.h>
#include <oleauto.h>

#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <string_view>
#include <variant>

#include "platform/automation/date.h"
#include "platform/automation/text_forms.h"
#include "platform/windows/com/automation_decimal.h"

/// Values where they lie, in a VARIANT or in an array, and what they are called in errors.
namespace prot {

/// One value that belongs to someone else. data: null when a reference leads nowhere.
struct Element {
    VARTYPE type = VT_EMPTY;  ///< VT_BYREF is resolved
    const void* data = nullptr;
};

/// The innermost of variants that refer to one another; `variant` itself when it refers to none.
const VARIANT& dereferenced(const VARIANT& variant);

Element element_of(const VARIANT& variant);

/// The element of an array of `type`, VT_VARIANT included.
inline Element element_of(VARTYPE type, const void* data) {
    return type == VT_VARIANT ? element_of(*static_cast<const VARIANT*>(data)) : Element{type, data};
}

inline bool is_null(const Element& element) { return element.type == VT_EMPTY || element.type == VT_NULL; }

/// Raises automation error 13: "`what` vom Typ Objekt, erwartet ist `expected`."
[[noreturn]] void fail_on_type(VARTYPE type, std::string_view what, std::string_view expected);

namespace element {

template <class T>
T read(const void* data) {
    T number;
    std::memcpy(&number, data, sizeof number);
    return number;
}

template <class T, class Sink>
bool integer(const void* data, Sink& sink) {
    sink(static_cast<std::int64_t>(read<T>(data)));
    return true;
}

template <class Sink>
bool unsigned_integer(const void* data, Sink& sink) {
    const auto number = read<std::uint64_t>(data);
    if (number <= static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max()))
        sink(static_cast<std::int64_t>(number));
    else
        sink(Value(std::to_string(number)));
    return true;
}

template <class Sink>
bool decimal(const void* data, Sink& sink) {
    const auto value = to_value(read<DECIMAL>(data));
    if (value) sink(*value);
    return value.has_value();
}

}  // namespace element

/// Hands the value to `sink`, which is called with std::monostate, bool, std::int64_t, double, Date, BSTR or
/// Value; false when it is no single value. Sinks that only copy make this free of allocations but for large
/// decimals.
template <class Sink>
bool visit(const Element& value, Sink&& sink) {
    const void* const data = value.data;
    if (is_null(value)) return sink(std::monostate()), true;
    if (!data) return false;
    switch (value.type) {
        case VT_I1:
            return element::integer<std::int8_t>(data, sink);
        case VT_I2:
            return element::integer<std::int16_t>(data, sink);
        case VT_I4:
        case VT_INT:
            return element::integer<std::int32_t>(data, sink);
        case VT_I8:
            return element::integer<std::int64_t>(data, sink);
        case VT_UI1:
            return element::integer<std::uint8_t>(data, sink);
        case VT_UI2:
            return element::integer<std::uint16_t>(data, sink);
        case VT_UI4:
        case VT_UINT:
            return element::integer<std::uint32_t>(data, sink);
        case VT_UI8:
            return element::unsigned_integer(data, sink);
        case VT_R4:
            return sink(widened(element::read<float>(data))), true;
        case VT_R8:
            return sink(element::read<double>(data)), true;
        case VT_DATE:
            return sink(Date{element::read<double>(data)}), true;
        case VT_BOOL:
            return sink(element::read<VARIANT_BOOL>(data) != VARIANT_FALSE), true;
        case VT_BSTR:
            return sink(element::read<BSTR>(data)), true;
        case VT_CY:
            return sink(to_value(element::read<CY>(data))), true;
        case VT_DECIMAL:
            return element::decimal(data, sink);
        default:
            return false;
    }
}

}  // namespace prot
