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

FrequencyPlan PlanIn(std::span<const float> values) {
    FrequencyPlan plan;
    for (std::size_t i = 0; i < PlanStoreOrder.size(); ++i)
        plan.*PlanStoreOrder[i] = i < values.size() ? values[i] : 0.0f;
    return plan;
}

std::optional<FrequencyPlan> ParsePlan(std::span<const float> values) {
    if (values.size() < PlanStoreOrder.size())
        return std::nullopt;
    const FrequencyPlan plan = PlanIn(values);
    return static_cast<double>(plan.step) < 0.1 ? std::nullopt : std::optional(plan);
}

std::string PlanRecord(const FrequencyPlan& plan) {
    std::string text;
    for (const PlanValue value : PlanStoreOrder)
        text += TenthsText(static_cast<double>(plan.*value));
    return text;
}

} // namespace qor
