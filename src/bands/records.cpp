#include "bands/records.h"

#include "base/setup_store.h"
#include "base/tenths.h"

#include <algorithm>

namespace qor {

namespace {

constexpr std::size_t GroupLength = 5;

/// Tenths in a group of five digits; -1 for anything else.
int GroupAt(std::string_view text, std::size_t n) {
    const std::string_view group = text.substr(std::min(n * GroupLength, text.size()), GroupLength);
    const bool digits = group.size() == GroupLength &&
                        std::all_of(group.begin(), group.end(), [](char c) { return c >= '0' && c <= '9'; });
    return digits ? WholeNumberIn(group) : -1;
}

/// What `parse` makes of a store; one that it makes nothing of is damaged.
template <typename Parse>
auto ReadRecord(SetupStore& store, const std::string& name, std::size_t groups, Parse parse) {
    const std::string text = store.ReadOrMake(name, groups * GroupLength);
    const auto record = parse(text);
    store.Found(name, record.has_value() || text.empty());
    return record;
}

} // namespace

std::optional<PowerSetting> ParsePower(std::string_view text) {
    for (const std::size_t tone : {0U, 1U}) {
        if (const int power = GroupAt(text, tone); power < LowestPower || power > HighestPower)
            return std::nullopt;
    }
    return PowerSetting{std::string(text.substr(0, GroupLength)),
                        std::string(text.substr(GroupLength, GroupLength))};
}

std::optional<FrequencyPlan> ParsePlan(std::string_view text) {
    FrequencyPlan plan;
    for (std::size_t i = 0; i < PlanStoreOrder.size(); ++i) {
        const int tenths = GroupAt(text, i);
        if (tenths <= 0) // no tone, and no step on which a sweep would end
            return std::nullopt;
        plan.*PlanStoreOrder[i] = static_cast<float>(tenths / 10.0);
    }
    return plan;
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
    return ReadRecord(store, PowerStoreName(prefix), 2, ParsePower).value_or(PowerSetting());
}

std::optional<FrequencyPlan> ReadPlan(SetupStore& store, const std::string& name) {
    return ReadRecord(store, name, PlanStoreOrder.size(), ParsePlan);
}

std::optional<FrequencyPlan> ReadPlanStore(SetupStore& store, std::string_view prefix, int imIndex) {
    return ReadPlan(store, PlanStoreName(prefix, imIndex));
}

float ReadTdScdmaAF1(SetupStore& store) {
    constexpr double Standard = 2020.0;
    return static_cast<float>(store.ReadNumber("tdb_f1.ccz", 6, 0.1).value_or(Standard));
}

} // namespace qor
