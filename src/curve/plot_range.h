#pragma once

#include "base/outcome.h"

namespace qor {

class SetupStore;
class Curve;

/// Ends of the level scale in the unit shown.
struct PlotRange {
    double top = -60;
    double bottom = -150;
};

[[nodiscard]] PlotRange ShownPlotRange(const Curve& curve);

/// True for ends in dBm that the scale can have: the top at most 0, the bottom at least -200, 2 dB or more
/// between them.
[[nodiscard]] bool IsPlotRange(const PlotRange& dBm);

/// Takes new ends over and keeps them in `dbmset.ccz`, in dBm. Refused for those the scale cannot have.
[[nodiscard]] Outcome ApplyPlotRange(const PlotRange& range, Curve& curve, SetupStore& store);

/// Raises the bottom of the scale by 10 dB, so that the curve is seen larger, or lowers it. Does nothing
/// where the scale would leave its limits.
void StepPlotRange(bool larger, Curve& curve, SetupStore& store);

} // namespace qor
