#include "base/tenths.h"
#include "base/text_format.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <random>

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

std::string Printed(double value, int decimals) {
    char text[400];
    std::snprintf(text, sizeof text, "%.*f", decimals, value);
    return text;
}

void ExpectAsPrinted(double value) {
    for (int decimals = 0; decimals <= 6; ++decimals)
        ASSERT_EQ(Fixed(value, decimals), Printed(value, decimals)) << std::hexfloat << value;
}

TEST(TextFormat, FixedGivesPrintfsBytesForMeasuredNumbers) {
    std::mt19937 random(7);
    std::uniform_real_distribution<float> level(-160.0f, 60.0f);
    std::uniform_real_distribution<float> frequency(300.0f, 4000.0f);
    for (int i = 0; i < 100000; ++i) {
        ExpectAsPrinted(static_cast<double>(level(random)));
        ExpectAsPrinted(static_cast<double>(frequency(random)));
    }
}

TEST(TextFormat, FixedGivesPrintfsBytesAtAndBesideEveryTie) {
    for (int i = -40000; i <= 40000; ++i) {
        const double sixteenth = i / 16.0; // exact ties of 0 to 3 decimals
        const double decimal = i / 2000.0; // ties on paper, not in binary
        for (const double value : {sixteenth, decimal, static_cast<double>(static_cast<float>(decimal))}) {
            ExpectAsPrinted(value);
            ExpectAsPrinted(std::nextafter(value, 1e9));
            ExpectAsPrinted(std::nextafter(value, -1e9));
        }
    }
}

TEST(TextFormat, FixedGivesPrintfsBytesForAnyBitPattern) {
    std::mt19937_64 random(11);
    for (int i = 0; i < 20000; ++i) {
        const std::uint64_t bits = random();
        double value = 0;
        std::memcpy(&value, &bits, sizeof value);
        ExpectAsPrinted(value);
    }
    using Limits = std::numeric_limits<double>;
    for (const double value :
         {0.0, -0.0, -0.04, 1e9 - 0.05, 999999.9995, 4294967295.5, Limits::max(), Limits::infinity(),
          -Limits::infinity(), Limits::quiet_NaN(), Limits::denorm_min()})
        ExpectAsPrinted(value);
}

TEST(TextFormat, AppendKeepsWhatIsThereAndPaddingKeepsLongNumbers) {
    std::string text = "IM ";
    AppendFixed(text, -97.25, 1);
    EXPECT_EQ(text, "IM -97.2");
    EXPECT_EQ(ZeroPadded(7, 3), "007");
    EXPECT_EQ(ZeroPadded(12345, 3), "12345");
    EXPECT_EQ(ZeroPadded(0, 0), "0");
}

} // namespace
} // namespace qor
