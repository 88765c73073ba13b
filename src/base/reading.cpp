#include "base/reading.h"

#include "base/tenths.h"

#include <algorithm>

namespace qor {

namespace {

constexpr double Lowest = -250.0;
constexpr double Highest = 100.0;

} // namespace

Reading Reading::Of(double dBm) {
    const bool possible = dBm > Lowest && dBm < Highest; // no number is not
    return possible ? Reading(Kind::Level, static_cast<float>(dBm)) : Spoilt();
}

Reading Reading::In(std::string_view answer) {
    const std::size_t begin = std::min(answer.find_first_not_of(" \t\r\n"), answer.size());
    if (begin == answer.size())
        return Missing();
    const std::size_t digits = answer.find_first_not_of("+-", begin);
    const bool isNumber = digits != std::string_view::npos && digits <= begin + 1 &&
                          std::string_view(".0123456789").find(answer[digits]) != std::string_view::npos;
    return isNumber ? Of(NumberIn(answer)) : Spoilt();
}

} // namespace qor
