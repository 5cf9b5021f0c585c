#include "core/field_numbers.h"

#include <gtest/gtest.h>

namespace prot {
namespace {

TEST(FieldNumbers, AreAlwaysTheSameForOneField) {
    FieldNumbers numbers;
    EXPECT_EQ(numbers.number_of("A", "x"), 0U);
    EXPECT_EQ(numbers.number_of("A", "y"), 1U);
    EXPECT_EQ(numbers.number_of("B", "x"), 2U) << "another table's";
    EXPECT_EQ(numbers.number_of("a", "x"), 3U) << "as logged";
    EXPECT_EQ(numbers.number_of("Ax", ""), 4U);
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(numbers.number_of("B", "x"), 2U);
        EXPECT_EQ(numbers.number_of("A", "x"), 0U);
        EXPECT_EQ(numbers.number_of("A", "x"), 0U);
        EXPECT_EQ(numbers.number_of("A", "y"), 1U) << "in whatever order";
        EXPECT_EQ(numbers.number_of("Ax", ""), 4U);
    }
}

TEST(FieldNumbers, EndWithTheFieldsThatNoLogHas) {
    FieldNumbers numbers;
    for (std::size_t i = 0; i < FieldNumbers::most; ++i)
        ASSERT_EQ(numbers.number_of("T", std::to_string(i)), i);
    EXPECT_EQ(numbers.number_of("T", "one more"), std::nullopt);
    EXPECT_EQ(numbers.number_of("T", "7"), 7U);
}

}  // namespace
}  // namespace prot
