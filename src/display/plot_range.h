#pragma once

namespace qor {

class SetupStore;
struct CurveState;
struct Platform;

/// Ends of the level scale in the unit shown.
struct PlotRange {
    double top = -60;
    double bottom = -150;
};

[[nodiscard]] PlotRange ShownPlotRange(const CurveState& curve);

/// Takes new ends over and keeps them in `dbmset.ccz`, in dBm: the top at most 0, the bottom at least -200, 2
/// dB or more between them. False, with a message and nothing changed, for others.
bool ApplyPlotRange(const PlotRange& range, CurveState& curve, const Platform& platform, SetupStore& store);

/// Raises the bottom of the scale by 10 dB, so that the curve is seen larger, or lowers it. Does nothing
/// where the scale would leave its limits.
void StepPlotRange(bool larger, CurveState& curve, SetupStore& store);

} // namespace qor
