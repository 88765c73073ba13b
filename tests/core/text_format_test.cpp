#include "core/text_format.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace qor {
namespace {

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
