#include <gtest/gtest.h>

#include <type_traits>

#include "platform/windows/com/automation_values.h"
#include "platform/windows/com/bstr.h"
#include "platform/windows/com/late_bound_object.h"
#include "tests/unit/platform/windows/com/com_doubles.h"
#include "tests/unit/platform/windows/com/safe_array.h"

namespace prot {
namespace {

using test::error_of;
using test::long_variant;
using test::text_variant;
using test::type_mismatch;

using Bounds = std::vector<SAFEARRAYBOUND>;

SafeArray array_of(VARTYPE type, Bounds bounds) {
    return SafeArray::adopt(SafeArrayCreate(type, static_cast<UINT>(bounds.size()), bounds.data()));
}

/// A variant that holds `array`, which someone else owns.
VARIANT holding(const SafeArray& array, VARTYPE type) {
    VARIANT variant;
    VariantInit(&variant);
    variant.vt = static_cast<VARTYPE>(VT_ARRAY | type);
    variant.parray = array.borrow();
    return variant;
}

/// The system itself finds the place of a column and a row.
void put(const SafeArray& array, LONG column, LONG row, void* element) {
    LONG indices[] = {column, row};
    ASSERT_EQ(SafeArrayPutElement(array.borrow(), indices, element), S_OK);
}

void put(const SafeArray& array, LONG column, LONG row, VARIANT element) {
    const Variant owner = Variant::adopt(element);
    put(array, column, row, const_cast<VARIANT*>(&owner.borrow()));
}

std::string mismatch_of(const VARIANT& variant) {
    const AutomationError error = error_of([&] { to_row_set(variant, "QueryArray"); });
    EXPECT_EQ(error.number(), type_mismatch);
    return error.description();
}

TEST(HostRows, AreIndexedByColumnAndRowWithAnyLowerBounds) {
    const struct {
        LONG first_column, first_row;
        const char* why;
    } cases[] = {{0, 0, "as a rule"},
                 {1, 1, "Option Base 1"},
                 {-3, -7, "negative"},
                 {0, 2147483600, "near the largest"}};
    for (const auto& [first_column, first_row, why] : cases) {
        const SafeArray array = array_of(VT_VARIANT, {{3, first_column}, {4, first_row}});
        for (LONG column = 0; column < 3; ++column)
            for (LONG row = 0; row < 4; ++row)
                put(array, first_column + column, first_row + row, long_variant(column * 10 + row));
        const RowSet rows = to_row_set(holding(array, VT_VARIANT), "QueryArray");
        ASSERT_EQ(rows.columns(), 3U) << why;
        ASSERT_EQ(rows.rows(), 4U) << why;
        EXPECT_EQ(rows.first_row(), first_row) << why;
        for (std::size_t column = 0; column < 3; ++column)
            for (std::size_t row = 0; row < 4; ++row)
                EXPECT_EQ(rows.at(column, row).integer(), static_cast<std::int64_t>(column * 10 + row))
                    << why;
    }
}

TEST(HostRows, HoldEveryKindOfValue) {
    const SafeArray array = array_of(VT_VARIANT, {{6, 0}, {2, 0}});
    put(array, 0, 0, text_variant("Müller"));
    put(array, 1, 0, argument(DATE{46000.25}));
    put(array, 2, 0, long_variant(-1));
    VARIANT truth = long_variant(0);
    truth.vt = VT_BOOL;
    truth.boolVal = VARIANT_TRUE;
    put(array, 3, 0, truth);
    VARIANT amount = long_variant(0);
    amount.vt = VT_CY;
    amount.cyVal.int64 = 9223372036854775807;
    put(array, 4, 0, amount);
    put(array, 0, 1, text_variant(""));
    const RowSet rows = to_row_set(holding(array, VT_VARIANT), "QueryArray");
    EXPECT_EQ(rows.at(0, 0).value(), Value(std::string("Müller")));
    EXPECT_EQ(rows.at(1, 0).value(), Value(Date{46000.25}));
    EXPECT_EQ(rows.at(2, 0).value(), Value(std::int64_t{-1}));
    EXPECT_EQ(rows.at(3, 0).value(), Value(std::int64_t{-1})) << "True counts as a number in a row";
    EXPECT_EQ(rows.at(4, 0).value(), Value(std::string("922337203685477,5807")));
    EXPECT_TRUE(rows.at(5, 0).is_null());
    EXPECT_EQ(rows.at(0, 1).value(), Value(std::string()));
    EXPECT_TRUE(rows.at(1, 1).is_null());
}

template <class T>
void expect_element(VARTYPE type, T element, const Value& expected) {
    const SafeArray array = array_of(type, {{2, 0}, {2, 0}});
    if constexpr (std::is_pointer_v<T>)
        put(array, 1, 0, element);
    else
        put(array, 1, 0, &element);
    const RowSet rows = to_row_set(holding(array, type), "QueryArray");
    EXPECT_EQ(rows.at(1, 0).value(), expected) << "type " << type;
    EXPECT_NE(rows.at(0, 1).value(), expected) << "type " << type << ": another place";
}

TEST(HostRows, MayBeArraysOfAnyScalarType) {
    const Value seven = std::int64_t{7};
    expect_element(VT_I1, std::int8_t{7}, seven);
    expect_element(VT_I2, std::int16_t{7}, seven);
    expect_element(VT_I4, std::int32_t{7}, seven);
    expect_element(VT_I8, std::int64_t{7}, seven);
    expect_element(VT_INT, std::int32_t{7}, seven);
    expect_element(VT_UI1, std::uint8_t{7}, seven);
    expect_element(VT_UI2, std::uint16_t{7}, seven);
    expect_element(VT_UI4, std::uint32_t{7}, seven);
    expect_element(VT_UI8, std::uint64_t{7}, seven);
    expect_element(VT_UINT, std::uint32_t{7}, seven);
    expect_element(VT_R4, 1.1F, Value(1.1));
    expect_element(VT_R8, 1.1, Value(1.1));
    expect_element(VT_DATE, 46000.25, Value(Date{46000.25}));
    expect_element(VT_BOOL, VARIANT_TRUE, Value(std::int64_t{-1}));
    CY amount;
    amount.int64 = 15000;
    expect_element(VT_CY, amount, Value(1.5));
    DECIMAL decimal{};
    decimal.Lo64 = 15;
    decimal.scale = 1;
    expect_element(VT_DECIMAL, decimal, Value(1.5));
    const Bstr text("Größe");
    expect_element(VT_BSTR, text.borrow(), Value(std::string("Größe")));
}

TEST(HostRows, MayComeByReference) {
    const SafeArray array = array_of(VT_I4, {{1, 0}, {1, 5}});
    LONG number = 7;
    put(array, 0, 5, &number);
    SAFEARRAY* raw = array.borrow();
    VARIANT direct = holding(array, VT_I4);
    VARIANT to_array = direct;
    to_array.vt |= VT_BYREF;
    to_array.pparray = &raw;
    VARIANT to_direct = reference(direct);
    for (const VARIANT& variant : {to_array, to_direct, reference(to_array), reference(to_direct)}) {
        const RowSet rows = to_row_set(variant, "QueryArray");
        ASSERT_EQ(rows.rows(), 1U);
        EXPECT_EQ(rows.at(0, 0).integer(), 7);
        EXPECT_EQ(rows.first_row(), 5);
    }
}

TEST(HostRows, AreNoneWithoutElements) {
    const SafeArray no_rows = array_of(VT_VARIANT, {{3, 0}, {0, 0}});
    const SafeArray no_columns = array_of(VT_VARIANT, {{0, 0}, {3, 0}});
    const SafeArray no_elements = array_of(VT_VARIANT, {{0, 0}});
    const SafeArray no_objects = array_of(VT_DISPATCH, {{0, 0}, {0, 0}});
    VARIANT empty, null, unallocated = holding(SafeArray(), VT_VARIANT), to_null;
    VariantInit(&empty);
    VariantInit(&null);
    null.vt = VT_NULL;
    to_null = reference(null);
    const struct {
        VARIANT variant;
        const char* why;
    } cases[] = {
        {empty, "Empty"},
        {null, "Null"},
        {to_null, "Null by reference"},
        {unallocated, "an array that was never given a size"},
        {holding(no_rows, VT_VARIANT), "no rows"},
        {holding(no_columns, VT_VARIANT), "no columns"},
        {holding(no_elements, VT_VARIANT), "Array() has one dimension"},
        {holding(no_objects, VT_DISPATCH), "nothing that could be of the wrong type"},
    };
    for (const auto& row : cases) EXPECT_TRUE(to_row_set(row.variant, "QueryArray").empty()) << row.why;
}

TEST(HostRows, AnythingButATableIsATypeMismatchThatSaysWhatItIs) {
    const SafeArray line = array_of(VT_VARIANT, {{3, 0}});
    const SafeArray cube = array_of(VT_VARIANT, {{3, 0}, {2, 0}, {2, 0}});
    const SafeArray objects = array_of(VT_DISPATCH, {{1, 0}, {1, 0}});
    const SafeArray turned = array_of(VT_UI1, {{4097, 0}, {14, 0}});
    EXPECT_EQ(mismatch_of(long_variant(7)),
              "QueryArray lieferte einen Wert vom Typ Zahl, erwartet ist ein Feld (Spalte, Zeile).");
    EXPECT_EQ(mismatch_of(holding(line, VT_VARIANT)),
              "QueryArray lieferte ein Feld mit 1 Dimension, erwartet ist ein Feld (Spalte, Zeile).");
    EXPECT_EQ(mismatch_of(holding(cube, VT_VARIANT)),
              "QueryArray lieferte ein Feld mit 3 Dimensionen, erwartet ist ein Feld (Spalte, Zeile).");
    EXPECT_EQ(
        mismatch_of(holding(objects, VT_DISPATCH)),
        "QueryArray lieferte ein Feld mit Elementen vom Typ Objekt, erwartet ist ein Feld (Spalte, Zeile).");
    EXPECT_EQ(mismatch_of(holding(turned, VT_UI1)),
              "QueryArray lieferte ein Feld mit 4097 Spalten, erwartet ist ein Feld (Spalte, Zeile).");
}

TEST(HostRows, AnElementThatIsNoValueIsNamedByItsPlace) {
    const SafeArray array = array_of(VT_VARIANT, {{3, 1}, {4, -2}});
    VARIANT missing = long_variant(0);
    missing.vt = VT_ERROR;
    put(array, 2, 1, missing);
    EXPECT_EQ(
        mismatch_of(holding(array, VT_VARIANT)),
        "QueryArray lieferte an der Stelle (2, 1) einen Wert vom Typ Fehlerwert, erwartet ist ein einzelner "
        "Wert.");
}

TEST(HostRows, TheArraysOwnTypeGoesBeforeTheVariants) {
    const SafeArray array = array_of(VT_I8, {{1, 0}, {1, 0}});
    std::int64_t number = 7;
    put(array, 0, 0, &number);
    const RowSet rows = to_row_set(holding(array, VT_BSTR), "QueryArray");
    EXPECT_EQ(rows.at(0, 0).value(), Value(std::int64_t{7})) << "the number is not read as an address";
}

TEST(HostRows, LeaveTheArrayUnlocked) {
    SafeArray array = array_of(VT_VARIANT, {{1, 0}, {1, 0}});
    VARIANT missing = long_variant(0);
    missing.vt = VT_ERROR;
    to_row_set(holding(array, VT_VARIANT), "QueryArray");
    put(array, 0, 0, missing);
    mismatch_of(holding(array, VT_VARIANT));
    EXPECT_EQ(array.borrow()->cLocks, 0U);
}

TEST(HostRows, KeepTextsApartThatPassThroughOneBuffer) {
    const SafeArray array = array_of(VT_BSTR, {{1, 0}, {600, 0}});
    const auto text_of_row = [](LONG row) {
        return std::string(static_cast<std::size_t>(row * 37 % 500), 'x') + "ä";
    };
    for (LONG row = 0; row < 600; ++row) put(array, 0, row, Bstr(text_of_row(row)).borrow());
    const RowSet rows = to_row_set(holding(array, VT_BSTR), "QueryArray");
    for (LONG row = 0; row < 600; ++row)
        ASSERT_EQ(rows.at(0, static_cast<std::size_t>(row)).text(), text_of_row(row));
}

TEST(TenTexts, AreTheFirstTenWithAnyLowerBound) {
    for (const LONG first : {0L, 1L, -4L}) {
        const SafeArray array = array_of(VT_VARIANT, {{11, first}});
        for (LONG i = 0; i < 11; ++i) {
            const Variant text = Variant::adopt(text_variant("Text " + std::to_string(i)));
            LONG index = first + i;
            if (i != 3) SafeArrayPutElement(array.borrow(), &index, const_cast<VARIANT*>(&text.borrow()));
        }
        const auto texts = to_ten_texts(holding(array, VT_VARIANT), "ConnectionInfo");
        EXPECT_EQ(texts[0], "Text 0");
        EXPECT_EQ(texts[3], "") << "Empty";
        EXPECT_EQ(texts[9], "Text 9");
    }
}

TEST(TenTexts, AnythingElseIsATypeMismatch) {
    const SafeArray nine = array_of(VT_VARIANT, {{9, 0}});
    const SafeArray table = array_of(VT_VARIANT, {{10, 0}, {1, 0}});
    const struct {
        VARIANT variant;
        const char* shape;
    } cases[] = {
        {long_variant(1), "einen Wert vom Typ Zahl"},
        {holding(nine, VT_VARIANT), "ein Feld mit 9 Elementen"},
        {holding(table, VT_VARIANT), "ein Feld mit 2 Dimensionen"},
        {holding(SafeArray(), VT_VARIANT), "ein Feld mit 0 Dimensionen"},
    };
    for (const auto& row : cases) {
        const AutomationError error = error_of([&] { to_ten_texts(row.variant, "ConnectionInfo"); });
        EXPECT_EQ(error.number(), type_mismatch);
        EXPECT_EQ(error.description(), std::string("ConnectionInfo lieferte ") + row.shape +
                                           ", erwartet ist ein Feld mit zehn Texten.");
    }
}

}  // namespace
}  // namespace prot
