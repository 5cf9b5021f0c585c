#include "platform/windows/com/safe_array_view.h"

#include <string>

#include "platform/automation/error.h"

namespace prot {

namespace {

// clang-format off
constexpr struct {
    VARTYPE type;
    std::size_t size;
} element_types[] = {
    {VT_VARIANT, sizeof(VARIANT)},
    {VT_I1,      1},
    {VT_I2,      2},
    {VT_I4,      4},
    {VT_I8,      8},
    {VT_INT,     4},
    {VT_UI1,     1},
    {VT_UI2,     2},
    {VT_UI4,     4},
    {VT_UI8,     8},
    {VT_UINT,    4},
    {VT_R4,      4},
    {VT_R8,      8},
    {VT_CY,      8},
    {VT_DATE,    8},
    {VT_BSTR,    sizeof(BSTR)},
    {VT_BOOL,    2},
    {VT_DECIMAL, sizeof(DECIMAL)},
};
// clang-format on

/// What the array itself knows of its elements' type goes before what the variant says.
VARTYPE element_type(SAFEARRAY* array, VARTYPE said) {
    VARTYPE known = VT_EMPTY;
    return SUCCEEDED(SafeArrayGetVartype(array, &known)) ? known : said;
}

/// The array in `variant`; null when it was never given any dimension.
SAFEARRAY* array_in(const VARIANT& variant) {
    if ((variant.vt & VT_BYREF) == 0) return variant.parray;
    return variant.pparray ? *variant.pparray : nullptr;
}

}  // namespace

SafeArrayView::SafeArrayView(const VARIANT& variant, std::string_view member, std::string_view expected) {
    const VARIANT& inner = dereferenced(variant);
    const std::string answered = std::string(member) + " lieferte ";
    const auto type = static_cast<VARTYPE>(inner.vt & ~VT_BYREF);
    if ((type & VT_ARRAY) == 0) fail_on_type(type, answered + "einen Wert", expected);
    array_ = array_in(inner);
    if (empty()) return;
    type_ = element_type(array_, static_cast<VARTYPE>(type & VT_TYPEMASK));
    element_size_ = SafeArrayGetElemsize(array_);
    bool readable = false;
    for (const auto& row : element_types)
        readable = readable || (row.type == type_ && row.size == element_size_);
    if (!readable) fail_on_type(type_, answered + "ein Feld mit Elementen", expected);
    if (const HRESULT result = SafeArrayAccessData(array_, &data_); FAILED(result))
        throw AutomationError(result, std::string(), answered + "ein Feld, dessen Elemente gesperrt sind.");
}

SafeArrayView::~SafeArrayView() {
    if (data_) SafeArrayUnaccessData(array_);
}

bool SafeArrayView::empty() const {
    for (unsigned dimension = 1; dimension <= dimensions(); ++dimension)
        if (size(dimension) == 0) return true;
    return dimensions() == 0;
}

}  // namespace prot
