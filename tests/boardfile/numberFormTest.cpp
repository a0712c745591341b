#include "boardfile/numberForm.h"

#include <gtest/gtest.h>

#include <cmath>

namespace quintline {
namespace {

TEST(NumberForm, WholeNumbersCarrySignCharacterAndTrailingBlank) {
    EXPECT_EQ(numberForm(15), " 15 ");
    EXPECT_EQ(numberForm(0), " 0 ");
    EXPECT_EQ(numberForm(-1), "-1 ");
    EXPECT_EQ(numberForm(225), " 225 ");
    EXPECT_EQ(numberForm(-32768), "-32768 ");
    EXPECT_EQ(numberForm(std::int32_t{-2147483647 - 1}), "-2147483648 ");
}

TEST(NumberForm, SinglePrecisionKeepsSevenSignificantDigitsWithoutExponent) {
    EXPECT_EQ(numberForm(12.5f), " 12.5 ");
    EXPECT_EQ(numberForm(3.0f), " 3 ");
    EXPECT_EQ(numberForm(0.0f), " 0 ");
    EXPECT_EQ(numberForm(-0.0f), " 0 ");
    EXPECT_EQ(numberForm(-0.25f), "-0.25 ");
    // 1/3 holds more digits than seven; rounding happens once, at the seventh.
    EXPECT_EQ(numberForm(1.0f / 3.0f), " 0.3333333 ");
    EXPECT_EQ(numberForm(2.0f / 3.0f), " 0.6666667 ");
    EXPECT_EQ(numberForm(86399.99f), " 86399.99 ");
    EXPECT_EQ(numberForm(45296.13f), " 45296.13 ");
    // A carry through every digit into the whole part.
    EXPECT_EQ(numberForm(std::nextafter(2.0f, 0.0f)), " 2 ");
    EXPECT_EQ(numberForm(std::nextafter(10.0f, 0.0f)), " 9.999999 ");
    EXPECT_EQ(numberForm(0.0078125f), " 0.0078125 ");
    EXPECT_EQ(numberForm(0.00001f), " 0.00001 ");
    EXPECT_EQ(numberForm(1234567.0f), " 1234567 ");
    EXPECT_EQ(numberForm(-45000.5f), "-45000.5 ");
    EXPECT_EQ(numberForm(123456789.0f), " 123456800 ");
}

}  // namespace
}  // namespace quintline
