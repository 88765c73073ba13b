#include "base/tenths.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace qor {

namespace {

constexpr std::string_view Blanks = " \t\n\v\f\r";

// The words for infinity and for no number are numbers to from_chars, but no quantity here.
bool BeginsNumber(std::string_view text) {
    return !text.empty() && std::string_view("0123456789.").find(text.front()) != std::string_view::npos;
}

// Half the spacing of floats just below 4096 MHz, in tenths, is 1.2e-3.
constexpr double FloatHair = 2e-3;

} // namespace

int ToTenths(double value) {
    const double product = value * 10.0;
    if (!(std::abs(product) < std::numeric_limits<int>::max() - 1))
        return 0;
    const double whole = std::trunc(product + std::copysign(FloatHair, product));
    return static_cast<int>(whole) + (product - whole >= 0.5 - FloatHair ? 1 : 0);
}

std::string TenthsText(double value) {
    const int tenths = ToTenths(value);
    std::string text = std::to_string(tenths);
    const std::size_t sign = tenths < 0 ? 1 : 0;
    if (text.size() < 5 + sign)
        text.insert(sign, 5 + sign - text.size(), '0');
    return text;
}

int CutTenths(double value) {
    const double product = value * 10.0;
    if (!(std::abs(product) < std::numeric_limits<int>::max() - 1))
        return 0;
    return static_cast<int>(product + std::copysign(1e-5, product));
}

double NumberIn(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(Blanks), text.size()));
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+'))
        text.remove_prefix(1);
    if (!BeginsNumber(text))
        return 0;
    double number = 0;
    if (std::from_chars(text.data(), text.data() + text.size(), number).ec != std::errc())
        return 0;
    return negative ? -number : number;
}

std::optional<double> EnteredNumber(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(Blanks), text.size()));
    text = text.substr(0, text.find_last_not_of(Blanks) + 1);
    std::string_view digits = text;
    if (digits.starts_with('-') || digits.starts_with('+'))
        digits.remove_prefix(1);
    double number = 0;
    const auto* const end = digits.data() + digits.size();
    if (!BeginsNumber(digits) ||
        std::from_chars(digits.data(), end, number) != std::from_chars_result{end, {}})
        return std::nullopt;
    return text.starts_with('-') ? -number : number;
}

int WholeNumberIn(std::string_view text) {
    const double number = std::trunc(NumberIn(text));
    if (number < std::numeric_limits<int>::min() || number > std::numeric_limits<int>::max())
        return 0;
    return static_cast<int>(number);
}

} // namespace qor
