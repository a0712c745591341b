#include "boardfile/numberForm.h"

#include <gtest/gtest.h>

#include <cmath>

namespace quintline {
namespace {

TEST(NumberForm, SignCharacterDigitsAndTrailingBlank) {
    EXPECT_EQ(numberForm(15), " 15 ");
    EXPECT_EQ(numberForm(0), " 0 ");
    EXPECT_EQ(numberForm(-32768), "-32768 ");
    // Single precision: at most seven significant digits, never an exponent.
    EXPECT_EQ(numberForm(3.0f), " 3 ");
    EXPECT_EQ(numberForm(-0.0f), " 0 ");
    EXPECT_EQ(numberForm(-0.25f), "-0.25 ");
    EXPECT_EQ(numberForm(2.0f / 3.0f), " 0.6666667 ");
    EXPECT_EQ(numberForm(86399.99f), " 86399.99 ");
    EXPECT_EQ(numberForm(std::nextafter(2.0f, 0.0f)), " 2 ");  // the carry runs into the whole part
    EXPECT_EQ(numberForm(0.00001f), " 0.00001 ");
    EXPECT_EQ(numberForm(123456789.0f), " 123456800 ");
}

}  // namespace
}  // namespace quintline
