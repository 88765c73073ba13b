#include "bands/records.h"

#include "base/setup_store.h"
#include "base/tenths.h"

namespace qor {

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

std::string PowerStoreName(std::string_view prefix) {
    return std::string(prefix) + "pow_setup.ccz";
}

std::string PlanStoreName(std::string_view prefix, int imIndex) {
    return std::string(prefix) + "im" + std::to_string(2 * imIndex + 1) + "_setup.ccz";
}

std::string DefaultPlanStoreName(std::string_view prefix, int imIndex) {
    return std::string(prefix) + "im" + std::to_string(2 * imIndex + 1) + "_setup_default.ccz";
}

PowerSetting ReadPowerStore(SetupStore& store, std::string_view prefix) {
    return ParsePower(store.ReadTenths(PowerStoreName(prefix), 2));
}

std::optional<FrequencyPlan> ReadPlanStore(SetupStore& store, std::string_view prefix, int imIndex) {
    return ParsePlan(store.ReadTenths(PlanStoreName(prefix, imIndex), 9));
}

float ReadTdScdmaAF1(SetupStore& store) {
    const auto text = store.Read("tdb_f1.ccz", 6);
    return text && !text->empty() ? static_cast<float>(NumberIn(*text)) : 2020.0f;
}

} // namespace qor
