#include "tests/com/client/variants.h"

#include <type_traits>

namespace prot::test {

namespace {

VARIANT of_type(VARTYPE type) {
    VARIANT result;
    VariantInit(&result);
    result.vt = type;
    return result;
}

VARIANT raw_variant(const Value& value) {
    return std::visit(
        [](const auto& held) {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, std::monostate>)
                return null();
            else if constexpr (std::is_same_v<Held, bool>)
                return boolean(held);
            else if constexpr (std::is_same_v<Held, std::int64_t>)
                return number(static_cast<long>(held));
            else if constexpr (std::is_same_v<Held, double>)
                return real(held);
            else if constexpr (std::is_same_v<Held, Date>)
                return date(held.serial);
            else {
                VARIANT result = of_type(VT_BSTR);
                result.bstrVal = Bstr(held).release();
                return result;
            }
        },
        value);
}

}  // namespace

VARIANT empty() { return of_type(VT_EMPTY); }
VARIANT null() { return of_type(VT_NULL); }

VARIANT missing() {
    VARIANT result = of_type(VT_ERROR);
    result.scode = DISP_E_PARAMNOTFOUND;
    return result;
}

VARIANT number(long value) {
    VARIANT result = of_type(VT_I4);
    result.lVal = value;
    return result;
}

VARIANT short_number(short value) {
    VARIANT result = of_type(VT_I2);
    result.iVal = value;
    return result;
}

VARIANT real(double value) {
    VARIANT result = of_type(VT_R8);
    result.dblVal = value;
    return result;
}

VARIANT date(double serial) {
    VARIANT result = of_type(VT_DATE);
    result.date = serial;
    return result;
}

VARIANT boolean(bool value) {
    VARIANT result = of_type(VT_BOOL);
    result.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
    return result;
}

VARIANT object(IDispatch* value) {
    VARIANT result = of_type(VT_DISPATCH);
    result.pdispVal = value;
    return result;
}

VARIANT text(const Bstr& value) {
    VARIANT result = of_type(VT_BSTR);
    result.bstrVal = value.borrow();
    return result;
}

VARIANT reference(VARIANT& value) {
    VARIANT result = of_type(VT_BYREF | VT_VARIANT);
    result.pvarVal = &value;
    return result;
}

Variant variant_of(const Value& value) { return Variant::adopt(raw_variant(value)); }

Variant array_of(const Table& rows, FirstIndices first) {
    if (rows.empty()) return Variant();
    SAFEARRAYBOUND bounds[] = {{static_cast<ULONG>(rows[0].size()), first.column},
                               {static_cast<ULONG>(rows.size()), first.row}};
    VARIANT result = of_type(VT_ARRAY | VT_VARIANT);
    result.parray = SafeArrayCreate(VT_VARIANT, 2, bounds);
    for (std::size_t row = 0; row < rows.size(); ++row)
        for (std::size_t column = 0; column < rows[row].size(); ++column) {
            Variant cell = variant_of(rows[row][column]);
            LONG index[] = {first.column + static_cast<LONG>(column), first.row + static_cast<LONG>(row)};
            SafeArrayPutElement(result.parray, index, const_cast<VARIANT*>(&cell.borrow()));
        }
    return Variant::adopt(result);
}

}  // namespace prot::test
