#include "base/reading.h"

#include "base/tenths.h"

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
    constexpr std::string_view Blanks = " \t\r\n";
    const std::size_t end = answer.find_last_not_of(Blanks);
    if (end == std::string_view::npos)
        return Missing();
    answer = answer.substr(0, end + 1);
    if (answer.ends_with("dBm") || answer.ends_with("DBM"))
        answer.remove_suffix(3);
    const auto number = EnteredNumber(answer);
    return number ? Of(*number) : Spoilt();
}

} // namespace qor
