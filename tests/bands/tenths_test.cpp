#include "bands/tenths.h"

#include <gtest/gtest.h>
#include <limits>

namespace qor {
namespace {

TEST(Tenths, RoundsAtHalfATenth) {
    EXPECT_EQ(TenthsText(869.0), "08690");
    EXPECT_EQ(TenthsText(43.5), "00435");
    EXPECT_EQ(TenthsText(1990.05), "19901");
    EXPECT_EQ(TenthsText(1990.04), "19900");
    EXPECT_EQ(TenthsText(869.44), "08694");
    EXPECT_EQ(TenthsText(12345.6), "123456");
    EXPECT_EQ(TenthsText(0), "00000");
    EXPECT_EQ(TenthsText(-1.5), "-00015");
}

// The panel's fields are floats: no decimal that an operator can enter may come out a tenth beside itself.
TEST(Tenths, FloatsOfEnteredDecimalsComeOutAsEntered) {
    for (int hundredths = 0; hundredths < 409600; ++hundredths) {
        const float entered = static_cast<float>(hundredths / 100.0);
        ASSERT_EQ(ToTenths(static_cast<double>(entered)), (hundredths + 5) / 10) << hundredths;
        ASSERT_EQ(ToTenths(hundredths / 100.0), (hundredths + 5) / 10) << hundredths;
    }
    for (int tenths = -999; tenths < 0; ++tenths)
        ASSERT_EQ(ToTenths(static_cast<double>(static_cast<float>(tenths / 10.0))), tenths);
}

TEST(Tenths, WhatFitsNoIntIsZero) {
    using Limits = std::numeric_limits<double>;
    for (const double value : {1e9, -1e9, Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN()})
        EXPECT_EQ(ToTenths(value), 0) << value;
    EXPECT_EQ(ToTenths(2e8), 2000000000);
}

TEST(NumberIn, ReadsTheNumberAtTheStart) {
    EXPECT_EQ(NumberIn(" \t\r\n43.5 dBm"), 43.5);
    EXPECT_EQ(NumberIn("+1.25E1x"), 12.5);
    EXPECT_EQ(NumberIn("-.5"), -0.5);
    EXPECT_EQ(NumberIn("5."), 5.0);
    EXPECT_EQ(NumberIn("1e"), 1.0);
    EXPECT_EQ(NumberIn("00869"), 869.0);
    EXPECT_EQ(NumberIn("7,5"), 7.0);
    EXPECT_EQ(NumberIn(std::string_view("12\0003", 4)), 12.0);
}

TEST(NumberIn, WhatIsNoQuantityIsZero) {
    for (const char* text : {"", " ", "-", "+", "+-5", "--5", "- 5", ".", "e5", "dBm", "inf", "-inf", "nan",
                             "infinity", "1e999"})
        EXPECT_EQ(NumberIn(text), 0.0) << text;
}

TEST(NumberIn, WholeNumbersAreCutAndBounded) {
    EXPECT_EQ(WholeNumberIn("12.9"), 12);
    EXPECT_EQ(WholeNumberIn("-12.9"), -12);
    EXPECT_EQ(WholeNumberIn("2147483647.5"), 2147483647);
    EXPECT_EQ(WholeNumberIn("-2147483648"), std::numeric_limits<int>::min());
    EXPECT_EQ(WholeNumberIn("2147483648"), 0);
    EXPECT_EQ(WholeNumberIn("1e300"), 0);
}

} // namespace
} // namespace qor
