#include "platform/windows/com/automation_element.h"

#include "platform/automation/error.h"

namespace prot {

namespace {

constexpr int deepest_reference = 16;  // a variant may refer to itself

// clang-format off
constexpr struct {
    VARTYPE type;
    std::string_view name;
} type_names[] = {
    {VT_EMPTY,    "Empty"},
    {VT_NULL,     "Null"},
    {VT_BSTR,     "Text"},
    {VT_BOOL,     "Wahrheitswert"},
    {VT_DATE,     "Datum"},
    {VT_I1,       "Zahl"},
    {VT_I2,       "Zahl"},
    {VT_I4,       "Zahl"},
    {VT_I8,       "Zahl"},
    {VT_INT,      "Zahl"},
    {VT_UI1,      "Zahl"},
    {VT_UI2,      "Zahl"},
    {VT_UI4,      "Zahl"},
    {VT_UI8,      "Zahl"},
    {VT_UINT,     "Zahl"},
    {VT_R4,       "Zahl"},
    {VT_R8,       "Zahl"},
    {VT_CY,       "Zahl"},
    {VT_DECIMAL,  "Zahl"},
    {VT_DISPATCH, "Objekt"},
    {VT_UNKNOWN,  "Objekt"},
    {VT_ERROR,    "Fehlerwert"},
    {VT_RECORD,   "Datensatz"},
};
// clang-format on

std::string name_of(VARTYPE type) {
    if (type & VT_ARRAY) return "Feld";
    for (const auto& row : type_names)
        if (row.type == type) return std::string(row.name);
    return std::to_string(type);
}

}  // namespace

const VARIANT& dereferenced(const VARIANT& variant) {
    const VARIANT* inner = &variant;
    for (int depth = 0; inner->vt == (VT_BYREF | VT_VARIANT) && inner->pvarVal && depth < deepest_reference;
         ++depth)
        inner = inner->pvarVal;
    return *inner;
}

Element element_of(const VARIANT& variant) {
    const VARIANT& inner = dereferenced(variant);
    if (inner.vt == (VT_BYREF | VT_VARIANT)) return {VT_VARIANT, nullptr};
    if (inner.vt & VT_BYREF) return {static_cast<VARTYPE>(inner.vt & ~VT_BYREF), inner.byref};
    // A decimal fills the whole variant, its reserved field being the type.
    const void* const data = inner.vt == VT_DECIMAL ? static_cast<const void*>(&inner.decVal) : &inner.llVal;
    return {inner.vt, data};
}

void fail_on_type(VARTYPE type, std::string_view what, std::string_view expected) {
    throw AutomationError(ErrorNumber::type_mismatch, std::string(what)
                                                          .append(" vom Typ ")
                                                          .append(name_of(type))
                                                          .append(", erwartet ist ")
                                                          .append(expected)
                                                          .append("."));
}

}  // namespace prot
