#pragma once

#include "bands/band.h"

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace qor {

class SetupStore;

/// Stored tone powers of a band in tenths of dBm, five digits each.
struct PowerSetting {
    std::string tone1 = "00430";
    std::string tone2 = "00430";
};

/// Powers of tone 1 and 2 in dBm, 43.0 for one that is missing.
[[nodiscard]] PowerSetting ParsePower(std::span<const float> values);

/// One of the nine values of a plan.
using PlanValue = float FrequencyPlan::*;

/// The order in which a store holds the values of a plan: Fix f1, Fix f2, Anfang f1, Anfang f2, Ende f1,
/// Ende f2, Schritt, sweep Fix f1, sweep Fix f2.
inline constexpr std::array<PlanValue, 9> PlanStoreOrder = {
    &FrequencyPlan::f1,      &FrequencyPlan::f2,     &FrequencyPlan::f1Start,
    &FrequencyPlan::f2Start, &FrequencyPlan::f1Stop, &FrequencyPlan::f2Stop,
    &FrequencyPlan::step,    &FrequencyPlan::f1Fix,  &FrequencyPlan::f2Fix};

/// A plan in the store's order, 0 for a value that is missing.
[[nodiscard]] FrequencyPlan PlanIn(std::span<const float> values);
/// The same, but nothing with fewer than nine values, or with a step below 0.1 MHz, on which no sweep ends.
[[nodiscard]] std::optional<FrequencyPlan> ParsePlan(std::span<const float> values);
/// What a store holds of a plan: nine groups of five digits.
[[nodiscard]] std::string PlanRecord(const FrequencyPlan& plan);

/// `<prefix>pow_setup.ccz`
[[nodiscard]] std::string PowerStoreName(std::string_view prefix);
/// `<prefix>im<order>_setup.ccz`
[[nodiscard]] std::string PlanStoreName(std::string_view prefix, int imIndex);
/// `<prefix>im<order>_setup_default.ccz`: the plan that "Standard" falls back on, where somebody saved one
[[nodiscard]] std::string DefaultPlanStoreName(std::string_view prefix, int imIndex);

/// The band's power store: 43.0 dBm for what it does not hold.
[[nodiscard]] PowerSetting ReadPowerStore(SetupStore& store, std::string_view prefix);
/// The band's plan store of an order. One that holds no usable plan counts as none and is left as it is.
[[nodiscard]] std::optional<FrequencyPlan> ReadPlanStore(SetupStore& store, std::string_view prefix,
                                                         int imIndex);
/// f1 of TD-SCDMA-A from `tdb_f1.ccz`, 2020.0 MHz when it holds nothing.
[[nodiscard]] float ReadTdScdmaAF1(SetupStore& store);

} // namespace qor
