#include "platform/automation/text_forms.h"

#include <gtest/gtest.h>

#include <cmath>

#include "platform/automation/error.h"

namespace prot {
namespace {

Date at(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    return to_date(CivilTime{year, month, day, hour, minute, second});
}

TEST(TextForms, WritesValuesAsOleAutomationDoesForGerman) {
    const struct {
        Value value;
        const char* text;
        const char* why;
    } rows[] = {
        {{}, "", "Null is the empty text"},
        {std::string(" a;b "), " a;b ", "text stays as it is"},
        {std::int64_t{-12}, "-12", "whole number"},
        {std::int64_t{1234567}, "1234567", "no grouping"},
        {1.5, "1,5", "decimal comma"},
        {-0.25, "-0,25", "zero before the comma"},
        {1000000.0, "1000000", "a whole double has no comma"},
        {0.1 + 0.2, "0,3", "15 significant digits"},
        {1e15, "1E+15", "exponent from 15 digits on"},
        {1234567.891, "1234567,891", "no grouping in fractions"},
        {-0.0, "0", "no negative zero"},
        {true, "Wahr", "German truth"},
        {false, "Falsch", "German falsehood"},
        {Date{}, "00:00:00", "the null date alone"},
        {at(2026, 3, 5), "05.03.2026", "midnight has no time"},
        {at(2026, 3, 5, 14, 7, 9), "05.03.2026 14:07:09", "date and time"},
        {at(2026, 12, 31, 23, 59, 59), "31.12.2026 23:59:59", "last second of a year"},
        {at(1899, 12, 30, 6, 30, 0), "06:30:00", "a time without a date"},
        {at(1899, 12, 29, 6, 0, 0), "29.12.1899 06:00:00", "before the null date"},
        {at(100, 1, 1), "01.01.0100", "first day"},
        {Date{46000.5 + 0.4 / 86400}, "09.12.2025 12:00:00", "rounded to the second"},
        {Date{46000.0 + 86399.7 / 86400}, "10.12.2025", "rounding carries into the next day"},
    };
    for (const auto& row : rows) EXPECT_EQ(to_text(row.value), row.text) << row.why;
}

TEST(TextForms, ValReadsTheLeadingNumberWithADecimalPoint) {
    const struct {
        const char* text;
        double number;
        const char* why;
    } rows[] = {
        {"", 0, "nothing"},
        {"abc", 0, "no number"},
        {"12", 12, "whole"},
        {"-12", -12, "sign"},
        {"+3", 3, "plus sign"},
        {"1.5x", 1.5, "stops at a letter"},
        {"1,5", 1, "a comma ends it"},
        {" 1 2 3", 123, "blanks are ignored"},
        {"\t1\t2\n3", 123, "tabs and line feeds too"},
        {"1\r2", 1, "a carriage return ends it"},
        {"- 7", -7, "a blank after the sign"},
        {"1e2", 100, "exponent"},
        {"1E+2", 100, "signed exponent"},
        {"1D-2", 0.01, "exponent letter D"},
        {"1d2", 100, "small exponent letter d"},
        {"1e2e3", 100, "second exponent ends it"},
        {"1e", 1, "exponent without digits"},
        {"1.2.3", 1.2, "second point ends it"},
        {".5", 0.5, "leading point"},
        {"5.", 5, "trailing point"},
        {"inf", 0, "no words"},
        {"--5", 0, "two signs"},
        {"3-4", 3, "a sign inside ends it"},
        {"4711/x", 4711, "stops at a slash"},
        {"99999999999", 99999999999.0, "larger than 32 bits"},
    };
    for (const auto& row : rows) EXPECT_DOUBLE_EQ(val(row.text), row.number) << row.why;
    EXPECT_TRUE(std::isinf(val("1e999")));
    EXPECT_EQ(val("1e-999"), 0.0);
}

TEST(TextForms, ValTellsTooSmallFromTooLargeByTheValueNotByTheSignOfTheExponent) {
    const std::string zeros(400, '0');
    EXPECT_EQ(val("0." + zeros + "1"), 0.0);
    EXPECT_EQ(val("." + zeros + "1e5"), 0.0);
    EXPECT_TRUE(std::isinf(val("1" + zeros + "e-10")));
    EXPECT_EQ(val("1e-99999999999999999999"), 0.0);
    EXPECT_TRUE(std::isinf(val("1e99999999999999999999")));
}

TEST(TextForms, ToLongRoundsHalfToEven) {
    const struct {
        double number;
        std::int32_t whole;
    } rows[] = {{0.5, 0},
                {1.5, 2},
                {2.5, 2},
                {-0.5, 0},
                {-1.5, -2},
                {2.4999, 2},
                {-2.6, -3},
                {2147483647.0, 2147483647},
                {-2147483648.0, -2147483647 - 1},
                {2147483647.4, 2147483647}};
    for (const auto& row : rows) EXPECT_EQ(to_long(row.number), row.whole) << row.number;
}

TEST(TextForms, ToLongOverflowsOutside32Bits) {
    for (const double number : {2147483648.0, 2147483647.5, -2147483649.0, 1e300, double{INFINITY}}) {
        try {
            to_long(number);
            ADD_FAILURE() << number;
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.number(), static_cast<std::int32_t>(ErrorNumber::overflow));
        }
    }
}

}  // namespace
}  // namespace prot
