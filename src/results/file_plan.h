#pragma once

#include "results/result_document.h"

#include <optional>

namespace qor {

/// The plan that a result was measured with: what it states, and of `base` what its method has no use for.
/// The step of a sweep follows from its rows. Nothing where the result does not state its tones, or states
/// them with fewer digits than its rows: a sheet in whole MHz.
[[nodiscard]] std::optional<FrequencyPlan> PlanOf(const ResultDocument& document, const FrequencyPlan& base);

} // namespace qor
