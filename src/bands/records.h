#pragma once

#include "bands/band.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace qor {

class SetupStore;

/// Stored tone powers of a band in tenths of dBm, five digits each.
struct PowerSetting {
    std::string tone1 = "00430";
    std::string tone2 = "00430";
};

/// Tenths of dBm that a tone can be set to.
inline constexpr int LowestPower = 200;
inline constexpr int HighestPower = 460;

/// Powers of tone 1 and 2: two groups of five digits, each in range. Nothing for any other text; what stands
/// behind them is not looked at.
[[nodiscard]] std::optional<PowerSetting> ParsePower(std::string_view text);

/// One of the nine values of a plan.
using PlanValue = float FrequencyPlan::*;

/// The order in which a store holds the values of a plan: Fix f1, Fix f2, Anfang f1, Anfang f2, Ende f1,
/// Ende f2, Schritt, sweep Fix f1, sweep Fix f2.
inline constexpr std::array<PlanValue, 9> PlanStoreOrder = {
    &FrequencyPlan::f1,      &FrequencyPlan::f2,     &FrequencyPlan::f1Start,
    &FrequencyPlan::f2Start, &FrequencyPlan::f1Stop, &FrequencyPlan::f2Stop,
    &FrequencyPlan::step,    &FrequencyPlan::f1Fix,  &FrequencyPlan::f2Fix};

/// A plan in the store's order: nine groups of five digits, none of them 0. Nothing for any other text; what
/// stands behind them is not looked at.
[[nodiscard]] std::optional<FrequencyPlan> ParsePlan(std::string_view text);
/// What a store holds of a plan: nine groups of five digits.
[[nodiscard]] std::string PlanRecord(const FrequencyPlan& plan);

/// `<prefix>pow_setup.ccz`
[[nodiscard]] std::string PowerStoreName(std::string_view prefix);
/// `<prefix>im<order>_setup.ccz`
[[nodiscard]] std::string PlanStoreName(std::string_view prefix, int imIndex);
/// `<prefix>im<order>_setup_default.ccz`: the plan that "Standard" falls back on, where somebody saved one
[[nodiscard]] std::string DefaultPlanStoreName(std::string_view prefix, int imIndex);

/// The band's power store; 43.0 dBm when it holds none.
[[nodiscard]] PowerSetting ReadPowerStore(SetupStore& store, std::string_view prefix);
/// The plan in a store of that name; nothing when it holds none.
[[nodiscard]] std::optional<FrequencyPlan> ReadPlan(SetupStore& store, const std::string& name);
/// The same of the band's plan store of an order.
[[nodiscard]] std::optional<FrequencyPlan> ReadPlanStore(SetupStore& store, std::string_view prefix,
                                                         int imIndex);
/// f1 of TD-SCDMA-A from `tdb_f1.ccz`, 2020.0 MHz when it holds none.
[[nodiscard]] float ReadTdScdmaAF1(SetupStore& store);

} // namespace qor
