#include "display/plot_geometry.h"

#include "display/curve_store.h"

#include <algorithm>
#include <cmath>

namespace qor {

namespace {

constexpr int AxisRoom = 45; ///< for the labels under the axis
constexpr int BarRoom = 70;  ///< for the level bar at the left
constexpr int WidestPlot = 2000;

/// Pixels of a point from the left of the plot.
double OffsetOf(const CurveState& curve, std::size_t index) {
    if (!IsSweepCurve(curve))
        return static_cast<double>(index) * curve.tone2SetTimes * curve.g_plotWidth / RunLength(curve);
    const float steps = (curve.g_freqGrid[index] - curve.g_freqGrid[0]) / curve.g_SweepStep;
    return static_cast<double>(steps) * static_cast<double>(curve.g_pxPerStep);
}

} // namespace

PlotGeometry ComputeLayout(CurveState& curve, int width, int height) {
    PlotGeometry plot;
    plot.width = width;
    plot.height = height;
    plot.marginX = std::clamp(width / 10, 10, 20);
    plot.marginY = std::clamp(height / 10, 5, 10);
    plot.left = 3 * plot.marginX + (curve.g_histogramOn ? BarRoom : 0);
    plot.right = std::max(width - 2 * plot.marginX, plot.left + 1);
    plot.top = 3 * plot.marginY;
    plot.bottom = height - plot.marginY;
    plot.axis = std::max(plot.bottom - AxisRoom, plot.top + 2);
    plot.plotBottom = curve.g_plotBottom;
    const float range = curve.g_plotTop - curve.g_plotBottom;
    plot.pxPerDb = range > 0 ? static_cast<double>(plot.axis - plot.top) / static_cast<double>(range) : 0;

    curve.g_plotWidth = std::min(plot.Span(), WidestPlot);
    if (IsSweepCurve(curve))
        UpdatePixelsPerStep(curve);
    return plot;
}

int XOfPoint(const CurveState& curve, const PlotGeometry& plot, std::size_t index) {
    const double offset = OffsetOf(curve, index);
    return offset > 0 ? plot.left + static_cast<int>(std::min(offset, static_cast<double>(plot.Span())))
                      : plot.left;
}

bool IsOnPlot(const CurveState& curve, const PlotGeometry& plot, std::size_t index) {
    return OffsetOf(curve, index) < plot.Span() + 1;
}

} // namespace qor
