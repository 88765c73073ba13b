#include "bands/records.h"

#include "bands/tenths.h"

#include <cmath>
#include <limits>

namespace qor {

std::vector<float> ParseTenths(std::string_view text, std::size_t maxValues) {
    constexpr std::size_t GroupLength = 5;
    std::vector<float> values;
    for (std::size_t at = 0; at < text.size() && values.size() < maxValues; at += GroupLength) {
        const double value = NumberIn(text.substr(at, GroupLength)) / 10.0;
        values.push_back(std::abs(value) <= std::numeric_limits<float>::max() ? static_cast<float>(value)
                                                                              : 0.0f);
    }
    return values;
}

PowerSetting ParsePower(std::span<const float> values) {
    PowerSetting power;
    if (!values.empty())
        power.tone1 = TenthsText(values[0]);
    if (values.size() > 1)
        power.tone2 = TenthsText(values[1]);
    return power;
}

std::optional<FrequencyPlan> ParsePlan(std::span<const float> values) {
    if (values.size() < 9 || static_cast<double>(values[6]) < 0.1)
        return std::nullopt;
    FrequencyPlan plan;
    plan.f1 = values[0];
    plan.f2 = values[1];
    plan.f1Start = values[2];
    plan.f2Start = values[3];
    plan.f1Stop = values[4];
    plan.f2Stop = values[5];
    plan.step = values[6];
    plan.f1Fix = values[7];
    plan.f2Fix = values[8];
    return plan;
}

} // namespace qor
