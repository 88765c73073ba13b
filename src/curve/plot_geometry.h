#pragma once

#include "curve/curve.h"

#include <algorithm>
#include <cstddef>

namespace qor {

/// Where the plot stands in its window, in pixels from the window's top left, y downwards. The same for the
/// screen and for a picture.
struct PlotGeometry {
    static constexpr int WidestCurve = 2000;

    int width = 0; ///< of the window
    int height = 0;
    int marginX = 10; ///< 10 to 20
    int marginY = 5;  ///< 5 to 10
    int left = 0;     ///< of the plot
    int top = 0;
    int right = 0;
    int bottom = 0;     ///< of the area below the axis too: its labels stand there
    int axis = 0;       ///< y of the time or frequency axis, at least 2 below `top`
    double pxPerDb = 1; ///< at least 0
    float plotBottom = -150;
    float pxPerStep = 0; ///< pixels of a step of a sweep, at least 1; 0: time

    /// Height of a level over the axis, kept on the plot: 1 to axis - top - 1.
    [[nodiscard]] int HeightOf(float level) const {
        const double pixels = static_cast<double>(level - plotBottom) * pxPerDb;
        const double highest = axis - top - 1;
        const double raised = pixels > 1.0 ? pixels : 1.0; // no number counts as under the scale
        return static_cast<int>(raised < highest ? raised : highest);
    }
    /// The same without the limits; 0 and below lie under the scale.
    [[nodiscard]] int FreeHeightOf(float level) const {
        constexpr double Far = 1e6;
        const double pixels = static_cast<double>(level - plotBottom) * pxPerDb;
        return pixels > -Far ? static_cast<int>(std::min(pixels, Far)) : static_cast<int>(-Far);
    }
    [[nodiscard]] int YOf(float level) const { return axis - HeightOf(level); }
    /// Pixels of the plot's width.
    [[nodiscard]] int Span() const { return right - left; }
    /// Pixels that a curve takes of it.
    [[nodiscard]] int CurveWidth() const { return std::min(Span(), WidestCurve); }
    bool operator==(const PlotGeometry&) const = default;
};

/// Lays the plot out in a window or a picture of `width` x `height` pixels; the level bar takes 70 of them at
/// the left.
[[nodiscard]] PlotGeometry ComputeLayout(const Curve& curve, int width, int height);

/// x of a point: its place in time in a 2-tone run, on the frequency grid in a sweep.
[[nodiscard]] int XOfPoint(const Curve& curve, const PlotGeometry& plot, std::size_t index);

/// False for a point of a sweep whose steps run out of the plot, which shows no less than a pixel a step.
[[nodiscard]] bool IsOnPlot(const Curve& curve, const PlotGeometry& plot, std::size_t index);

} // namespace qor
