#include "platform/windows/com/automation_values.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "platform/automation/text_forms.h"
#include "platform/windows/com/bstr.h"
#include "tests/unit/platform/windows/com/com_doubles.h"

namespace prot {
namespace {

using test::error_of;
using test::text_variant;
using test::type_mismatch;

VARIANT of_type(VARTYPE type) {
    VARIANT variant;
    VariantInit(&variant);
    variant.vt = type;
    return variant;
}

template <class T>
VARIANT holding(VARTYPE type, T VARIANT::*member, T value) {
    VARIANT variant = of_type(type);
    variant.*member = value;
    return variant;
}

VARIANT currency(std::int64_t ten_thousandths) {
    VARIANT variant = of_type(VT_CY);
    variant.cyVal.int64 = ten_thousandths;
    return variant;
}

VARIANT decimal(ULONG high, ULONGLONG low, BYTE scale, bool negative = false) {
    VARIANT variant;
    VariantInit(&variant);
    variant.decVal.Hi32 = high;
    variant.decVal.Lo64 = low;
    variant.decVal.scale = scale;
    variant.decVal.sign = negative ? DECIMAL_NEG : 0;
    variant.vt = VT_DECIMAL;
    return variant;
}

VARIANT real(double number) { return holding(VT_R8, &VARIANT::dblVal, number); }

Value integer(std::int64_t number) { return number; }
Value text(const char* characters) { return std::string(characters); }

constexpr std::int64_t smallest = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();

TEST(HostValue, EveryScalarTypeIsAValueOfTheLog) {
    const struct {
        VARIANT variant;
        Value expected;
        const char* why;
    } cases[] = {
        {of_type(VT_EMPTY), Value(), "Empty is Null"},
        {of_type(VT_NULL), Value(), "Null"},
        {holding(VT_I1, &VARIANT::cVal, CHAR{-128}), integer(-128), "signed"},
        {holding(VT_I2, &VARIANT::iVal, SHORT{-32768}), integer(-32768), "Integer"},
        {holding(VT_I4, &VARIANT::lVal, LONG{-7}), integer(-7), "Long"},
        {holding(VT_I8, &VARIANT::llVal, LONGLONG{smallest}), integer(smallest), "LongLong"},
        {holding(VT_INT, &VARIANT::intVal, -8), integer(-8), "int"},
        {holding(VT_UI1, &VARIANT::bVal, BYTE{255}), integer(255), "Byte"},
        {holding(VT_UI2, &VARIANT::uiVal, USHORT{65535}), integer(65535), "unsigned"},
        {holding(VT_UI4, &VARIANT::ulVal, ULONG{4294967295}), integer(4294967295), "unsigned"},
        {holding(VT_UI8, &VARIANT::ullVal, ULONGLONG{largest}), integer(largest), "fits"},
        {holding(VT_UI8, &VARIANT::ullVal, ULONGLONG{18446744073709551615U}), text("18446744073709551615"),
         "above 63 bits only its digits are exact"},
        {holding(VT_UINT, &VARIANT::uintVal, 4294967295U), integer(4294967295), "unsigned int"},
        {holding(VT_R4, &VARIANT::fltVal, 1.1F), Value(1.1), "seven digits, not the nearest 15"},
        {holding(VT_R4, &VARIANT::fltVal, -16777216.0F), Value(-16777220.0), "seven digits"},
        {real(0.1), Value(0.1), "Double"},
        {holding(VT_DATE, &VARIANT::date, 46000.25), Value(Date{46000.25}), "Date"},
        {holding(VT_BOOL, &VARIANT::boolVal, VARIANT_TRUE), Value(true), "True"},
        {holding(VT_BOOL, &VARIANT::boolVal, VARIANT_FALSE), Value(false), "False"},
        {holding(VT_BOOL, &VARIANT::boolVal, VARIANT_BOOL{1}), Value(true), "whatever is not 0"},
        {of_type(VT_BSTR), text(""), "no string is the empty text"},
    };
    for (const auto& row : cases) EXPECT_EQ(to_value(row.variant, "QueryValue"), row.expected) << row.why;
}

TEST(HostValue, CurrencyAndDecimalKeepEveryDigit) {
    const struct {
        VARIANT variant;
        Value expected;
        const char* why;
    } cases[] = {
        {currency(70000), integer(7), "no fraction"},
        {currency(-12345), Value(-1.2345), "a fraction within 15 digits"},
        {currency(0), integer(0), "zero"},
        {currency(1), Value(0.0001), "the smallest fraction"},
        {currency(largest), text("922337203685477,5807"), "19 digits"},
        {currency(smallest), text("-922337203685477,5808"), "has no positive twin"},
        {currency(1234567890123450), Value(123456789012.345), "a trailing zero is no digit"},
        {decimal(0, 5, 0), integer(5), "no fraction"},
        {decimal(0, 500, 2, true), integer(-5), "trailing zeros are no fraction"},
        {decimal(0, 0, 5, true), integer(0), "zero has no sign"},
        {decimal(0, 15, 1), Value(1.5), "a fraction"},
        {decimal(0, 9223372036854775807U, 0), integer(largest), "fits"},
        {decimal(0, 9223372036854775808U, 0, true), integer(smallest), "fits with its sign"},
        {decimal(0, 9223372036854775808U, 0), text("9223372036854775808"), "one above 63 bits"},
        {decimal(0xFFFFFFFF, 18446744073709551615U, 0), text("79228162514264337593543950335"), "the largest"},
        {decimal(0xFFFFFFFF, 18446744073709551615U, 28), text("7,9228162514264337593543950335"), "28 places"},
        {decimal(0, 1, 28, true), text("-0,0000000000000000000000000001"), "never an exponent"},
        {decimal(0, 1, 4), Value(0.0001), "the last one that a Double shows without exponent"},
        {decimal(0, 1, 5), text("0,00001"), "CStr of a Double would write an exponent"},
        {decimal(0, 123456789012345, 7), Value(12345678.9012345), "15 digits"},
        {decimal(0, 1234567890123456, 7), text("123456789,0123456"), "16 digits"},
    };
    for (const auto& row : cases) {
        const Value value = to_value(row.variant, "QueryValue");
        EXPECT_EQ(value, row.expected) << row.why << ": " << to_text(value);
    }
}

TEST(HostValue, ADecimalOfTooManyPlacesIsNoValue) {
    EXPECT_EQ(error_of([] { to_value(decimal(0, 1, 29), "QueryValue"); }).number(), type_mismatch);
    EXPECT_EQ(error_of([] { to_value(decimal(0, 1, 255), "QueryValue"); }).number(), type_mismatch);
}

TEST(HostValue, NumbersThatAreNoneStayWhatTheyAre) {
    const double none = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(std::isnan(std::get<double>(to_value(real(none), "QueryValue"))));
    VARIANT single = of_type(VT_R4);
    single.fltVal = std::numeric_limits<float>::infinity();
    EXPECT_TRUE(std::isinf(std::get<double>(to_value(single, "QueryValue"))));
}

TEST(HostValue, ADateOutsideTheCalendarFailsOnlyWhereItsTextIsWanted) {
    for (const double serial : {std::numeric_limits<double>::quiet_NaN(), 1e300, -1e300, 2958466.0}) {
        const VARIANT variant = holding(VT_DATE, &VARIANT::date, serial);
        EXPECT_TRUE(std::holds_alternative<Date>(to_value(variant, "QueryValue")));
        EXPECT_EQ(error_of([&] { to_text(variant, "DateLiteral"); }).number(),
                  static_cast<std::int32_t>(ErrorNumber::overflow));
    }
}

TEST(HostValue, ATextKeepsEveryCharacter) {
    const std::string characters(
        "Gr\xC3\xB6\xC3\x9F"
        "e\0\xF0\x9F\x98\x80",
        12);
    const Variant owner = Variant::adopt(text_variant(characters));
    EXPECT_EQ(to_value(owner.borrow(), "QueryValue"), Value(characters));
}

TEST(HostValue, ByReferenceCountsAsByValue) {
    LONG number = 7;
    VARIANT to_number = of_type(VT_BYREF | VT_I4);
    to_number.plVal = &number;
    VARIANT amount = decimal(0, 15, 1);
    VARIANT to_amount = of_type(VT_BYREF | VT_DECIMAL);
    to_amount.pdecVal = &amount.decVal;
    const Bstr letters("abc");
    BSTR raw = letters.borrow();
    VARIANT to_letters = of_type(VT_BYREF | VT_BSTR);
    to_letters.pbstrVal = &raw;
    VARIANT outer = of_type(VT_BYREF | VT_VARIANT);
    outer.pvarVal = &to_number;
    VARIANT outermost = of_type(VT_BYREF | VT_VARIANT);
    outermost.pvarVal = &outer;
    const struct {
        const VARIANT& variant;
        Value expected;
        const char* why;
    } cases[] = {
        {to_number, integer(7), "a number"},
        {to_amount, Value(1.5), "a decimal, which fills a variant of its own"},
        {to_letters, text("abc"), "a text"},
        {outer, integer(7), "a variant"},
        {outermost, integer(7), "a variant that refers to another"},
    };
    for (const auto& row : cases) EXPECT_EQ(to_value(row.variant, "QueryValue"), row.expected) << row.why;
}

TEST(HostValue, WhatIsNoSingleValueIsATypeMismatchThatNamesTheMember) {
    VARIANT itself = of_type(VT_BYREF | VT_VARIANT);
    itself.pvarVal = &itself;
    const struct {
        VARIANT variant;
        const char* name;
        const char* why;
    } cases[] = {
        {of_type(VT_DISPATCH), "Objekt", "an object, Nothing included"},
        {of_type(VT_UNKNOWN), "Objekt", "an object"},
        {of_type(VT_ERROR), "Fehlerwert", "a missing argument"},
        {of_type(VT_RECORD), "Datensatz", "a record"},
        {of_type(VT_ARRAY | VT_VARIANT), "Feld", "an array"},
        {of_type(VT_BYREF | VT_ARRAY | VT_I4), "Feld", "an array by reference"},
        {of_type(VT_BYREF | VT_I4), "Zahl", "a reference that leads nowhere"},
        {of_type(VT_BYREF | VT_VARIANT), "12", "likewise"},
        {itself, "12", "a variant that refers to itself"},
        {of_type(VT_CLSID), "72", "no type of a variant"},
    };
    for (const auto& row : cases) {
        const AutomationError error = error_of([&] { to_value(row.variant, "QueryValue"); });
        EXPECT_EQ(error.number(), type_mismatch) << row.why;
        EXPECT_EQ(error.description(), std::string("QueryValue lieferte einen Wert vom Typ ") + row.name +
                                           ", erwartet ist ein einzelner Wert.")
            << row.why;
    }
}

TEST(HostText, IsTheTextFormOfTheValue) {
    const Variant wildcard = Variant::adopt(text_variant("%"));
    EXPECT_EQ(to_text(wildcard.borrow(), "LikeWildcard"), "%");
    EXPECT_EQ(to_text(real(1.5), "LikeWildcard"), "1,5");
    EXPECT_EQ(to_text(of_type(VT_BSTR), "LikeWildcard"), "");
}

TEST(HostText, NullAndEmptyAreNoText) {
    EXPECT_EQ(error_of([] { to_text(of_type(VT_NULL), "LikeWildcard"); }).description(),
              "LikeWildcard lieferte einen Wert vom Typ Null, erwartet ist ein Text.");
    EXPECT_EQ(error_of([] { to_text(of_type(VT_EMPTY), "DateLiteral"); }).number(), type_mismatch);
}

}  // namespace
}  // namespace prot
