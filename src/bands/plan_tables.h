#pragma once

#include "bands/band.h"

#include <optional>

namespace qor {

/// Who asks for a built-in plan. They agree but for a few rows and values.
enum class PlanSource : unsigned {
    Setup = 1, ///< the setup pages, and what a saved file falls back on
    Start = 2, ///< a measurement start
    Activation = 4,
};

/// Row of the band for the order; nothing when the source has none.
[[nodiscard]] std::optional<FrequencyPlan> FindPlan(PlanSource source, int band, int imIndex, int bridge);

} // namespace qor
