#include "base/text_format.h"

#include "base/tenths.h"

#include <array>
#include <cassert>
#include <charconv>
#include <cmath>
#include <cstdint>

namespace qor {

namespace {

constexpr std::array<double, 7> PowersOfTen = {1, 10, 100, 1000, 1e4, 1e5, 1e6};

// Up to here the scaled value is exact to far better than TieZone.
constexpr double LargestFast = 1e9;
// A scaled value this close to a half may have been moved across it by the multiplication.
constexpr double TieZone = 1e-6;

void AppendExact(std::string& out, double value, int decimals) {
    std::array<char, 330> text; // the largest double has 309 digits before the point
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, decimals);
    out.append(text.data(), end.ptr);
}

} // namespace

void AppendFixed(std::string& out, double value, int decimals) {
    assert(decimals >= 0 && decimals <= 6);
    const double scaled = std::abs(value) * PowersOfTen[static_cast<std::size_t>(decimals)];
    if (!(scaled < LargestFast)) // also NaN
        return AppendExact(out, value, decimals);
    // What this gets wrong lies at a tie and goes the exact way. NOLINTNEXTLINE(bugprone-incorrect-roundings)
    auto digits = static_cast<std::uint32_t>(scaled + 0.5);
    if (std::abs(scaled - digits) > 0.5 - TieZone)
        return AppendExact(out, value, decimals);

    std::array<char, 16> text;
    char* const end = text.data() + text.size();
    char* at = end;
    for (int i = 0; i < decimals; ++i, digits /= 10)
        *--at = static_cast<char>('0' + digits % 10);
    if (decimals > 0)
        *--at = '.';
    do {
        *--at = static_cast<char>('0' + digits % 10);
        digits /= 10;
    } while (digits != 0);
    if (std::signbit(value)) // "-0.0" is what printf makes of -0.04
        *--at = '-';
    out.append(at, static_cast<std::size_t>(end - at));
}

std::string Fixed(double value, int decimals) {
    std::string out;
    AppendFixed(out, value, decimals);
    return out;
}

std::string ZeroPadded(int value, int digits) {
    std::string text = std::to_string(value);
    if (const auto width = static_cast<std::size_t>(digits > 0 ? digits : 0); text.size() < width)
        text.insert(0, width - text.size(), '0');
    return text;
}

double AsShown(double value) {
    return NumberIn(Fixed(value, 1));
}

} // namespace qor
