#pragma once

#include "curve/curve.h"
#include "results/result_document.h"

namespace qor {

/// What the verdict of a document rests on: its rows, all of them, and what it states beside them.
[[nodiscard]] RunFacts RunFactsOf(const ResultDocument& document);
/// The last run of a document as the curve that Curve::Load takes.
[[nodiscard]] LoadedCurve CurveOf(const ResultDocument& document);

} // namespace qor
