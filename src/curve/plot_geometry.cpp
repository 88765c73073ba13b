#include "curve/plot_geometry.h"

#include "curve/curve.h"

#include <algorithm>
#include <cmath>

namespace qor {

namespace {

constexpr int AxisRoom = 45; ///< for the labels under the axis
constexpr int BarRoom = 70;  ///< for the level bar at the left

/// Pixels of a step of a sweep: its grid fills the plot, but no step is narrower than a pixel.
float PixelsPerStep(const Curve& curve, int width) {
    const std::size_t steps = curve.Steps();
    const float span = steps > 0 ? curve.Grid()[steps - 1] - curve.Grid()[0] : 0.0f;
    const float perStep = span > 0.0f ? static_cast<float>(width) / (span / curve.SweepStep()) : 0.0f;
    return std::max(perStep, 1.0f);
}

/// Pixels of a point from the left of the plot.
double OffsetOf(const Curve& curve, const PlotGeometry& plot, std::size_t index) {
    if (!curve.IsSweep())
        return static_cast<double>(index) * curve.TimePerPoint() * plot.CurveWidth() / curve.Length();
    const float steps = (curve.Grid()[index] - curve.Grid()[0]) / curve.SweepStep();
    return static_cast<double>(steps) * static_cast<double>(plot.pxPerStep);
}

} // namespace

PlotGeometry ComputeLayout(const Curve& curve, int width, int height) {
    PlotGeometry plot;
    plot.width = width;
    plot.height = height;
    plot.marginX = std::clamp(width / 10, 10, 20);
    plot.marginY = std::clamp(height / 10, 5, 10);
    plot.left = 3 * plot.marginX + (curve.scale.ShowsBar() ? BarRoom : 0);
    plot.right = std::max(width - 2 * plot.marginX, plot.left + 1);
    plot.top = 3 * plot.marginY;
    plot.bottom = height - plot.marginY;
    plot.axis = std::max(plot.bottom - AxisRoom, plot.top + 2);
    plot.plotBottom = curve.scale.Bottom();
    const float range = curve.scale.Top() - curve.scale.Bottom();
    plot.pxPerDb = range > 0 ? static_cast<double>(plot.axis - plot.top) / static_cast<double>(range) : 0;

    plot.pxPerStep = curve.IsSweep() ? PixelsPerStep(curve, plot.CurveWidth()) : 0;
    return plot;
}

int XOfPoint(const Curve& curve, const PlotGeometry& plot, std::size_t index) {
    const double offset = OffsetOf(curve, plot, index);
    return offset > 0 ? plot.left + static_cast<int>(std::min(offset, static_cast<double>(plot.Span())))
                      : plot.left;
}

bool IsOnPlot(const Curve& curve, const PlotGeometry& plot, std::size_t index) {
    return OffsetOf(curve, plot, index) < plot.Span() + 1;
}

} // namespace qor
