#pragma once

#include "bands/band.h"

namespace qor {

struct Session;

/// Makes a plan the working set; its step goes to the curve's scale.
void SetWorkingPlan(Session& session, const FrequencyPlan& plan);
[[nodiscard]] FrequencyPlan WorkingPlan(const Session& session);

} // namespace qor
