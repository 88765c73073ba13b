#pragma once

#include "curve/curve.h"
#include "results/result_document.h"

namespace qor {

/// The last run of a document as the curve that Curve::Load takes.
[[nodiscard]] LoadedCurve CurveOf(const ResultDocument& document);

} // namespace qor
