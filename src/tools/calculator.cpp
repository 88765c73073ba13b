#include "tools/calculator.h"

#include "base/text_format.h"

#include <charconv>
#include <cmath>
#include <optional>
#include <string_view>

namespace qor {

namespace {

constexpr double HighestZo = 10000;
constexpr double NearZero = 0.005; ///< of mW and mV, where the logarithm ends

/// Number of a whole field; 0 for an empty one, nothing for anything that is none.
std::optional<double> FieldNumber(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(' ');
    if (begin == std::string_view::npos)
        return 0;
    text = text.substr(begin, text.find_last_not_of(' ') - begin + 1);
    if (text.starts_with('+'))
        text.remove_prefix(1);
    double number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    if (read.ec != std::errc() || read.ptr != text.data() + text.size() || !std::isfinite(number))
        return std::nullopt;
    return number;
}

bool IsZero(double value) {
    return value >= -NearZero && value <= NearZero;
}

double DbmOf(double mW) {
    return 10 * std::log(mW) / std::log(10.0);
}

double MvOf(double mW, double zo) {
    return std::sqrt(zo * mW) * std::sqrt(1000.0);
}

/// Shows two results, or neither.
void Show(std::string& one, double oneValue, std::string& other, double otherValue) {
    if (!std::isfinite(oneValue) || !std::isfinite(otherValue))
        return;
    one = Fixed(oneValue, 6);
    other = Fixed(otherValue, 6);
}

} // namespace

bool Calculate(CalculatorFields& fields, CalculatorField changed) {
    const auto zo = FieldNumber(fields.zo);
    const bool zoGood = zo && *zo >= 0 && *zo <= HighestZo && *zo == std::trunc(*zo);
    const double ohm = zoGood ? *zo : 0;
    switch (changed) {
    case CalculatorField::Dbm: {
        const auto dBm = FieldNumber(fields.dBm);
        if (!dBm)
            return false;
        const double mW = std::pow(10.0, *dBm / 10);
        if (zoGood && fields.dBm.find_first_not_of(' ') != std::string::npos)
            Show(fields.mW, mW, fields.mV, MvOf(mW, ohm));
        return true;
    }
    case CalculatorField::Mw: {
        const auto mW = FieldNumber(fields.mW);
        if (!mW)
            return false;
        if (zoGood && !IsZero(*mW))
            Show(fields.dBm, DbmOf(*mW), fields.mV, MvOf(*mW, ohm));
        return true;
    }
    case CalculatorField::Mv: {
        const auto mV = FieldNumber(fields.mV);
        if (!mV)
            return false;
        if (const double mW = *mV / 1000 * *mV / ohm; zoGood && !IsZero(*mV))
            Show(fields.mW, mW, fields.dBm, DbmOf(mW));
        return true;
    }
    default:
        if (const auto mW = FieldNumber(fields.mW); zoGood && ohm != 0 && mW && !IsZero(*mW)) {
            if (const double mV = MvOf(*mW, ohm); std::isfinite(mV))
                fields.mV = Fixed(mV, 6);
        }
        return zoGood;
    }
}

} // namespace qor
