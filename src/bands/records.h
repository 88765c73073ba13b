#pragma once

#include "bands/band.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

/// Stored tone powers of a band in tenths of dBm, five digits each.
struct PowerSetting {
    std::string tone1 = "00430";
    std::string tone2 = "00430";
};

/// Groups of five characters, each a number divided by 10, at most maxValues of them. A last group of fewer
/// than five characters counts as a group; what is no number reads as 0.
[[nodiscard]] std::vector<float> ParseTenths(std::string_view text, std::size_t maxValues);
/// Powers of tone 1 and 2 in dBm, 43.0 for one that is missing.
[[nodiscard]] PowerSetting ParsePower(std::span<const float> values);
/// A plan in the store's order: Fix f1, Fix f2, Anfang f1, Anfang f2, Ende f1, Ende f2, Schritt, sweep Fix
/// f1, sweep Fix f2. Nothing with fewer than nine values, or with a step below 0.1 MHz, on which no sweep
/// ends.
[[nodiscard]] std::optional<FrequencyPlan> ParsePlan(std::span<const float> values);

} // namespace qor
