#pragma once

#include "display/curve_state.h"

#include <algorithm>
#include <cstddef>

namespace qor {

/// Where the plot stands in its window, in pixels from the window's top left, y downwards. The same for the
/// screen and for a picture.
struct PlotGeometry {
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
    bool operator==(const PlotGeometry&) const = default;
};

/// Lays the plot out in a window of `width` x `height` pixels; the level bar takes 70 of them at the left.
/// The scale of the curve follows: g_plotWidth, and g_pxPerStep of a sweep.
[[nodiscard]] PlotGeometry ComputeLayout(CurveState& curve, int width, int height);

/// Lays the plot out for a picture of a size of its own. The scale of the curve follows the picture while
/// this lives and the window again after it.
class PictureLayout {
public:
    PictureLayout(CurveState& curve, int width, int height)
        : m_Curve(curve), m_Width(curve.g_plotWidth), m_PerStep(curve.g_pxPerStep),
          m_Plot(ComputeLayout(curve, width, height)) {}
    ~PictureLayout() {
        m_Curve.g_plotWidth = m_Width;
        m_Curve.g_pxPerStep = m_PerStep;
    }
    PictureLayout(const PictureLayout&) = delete;
    PictureLayout& operator=(const PictureLayout&) = delete;

    [[nodiscard]] const PlotGeometry& Plot() const { return m_Plot; }

private:
    CurveState& m_Curve;
    int m_Width;
    float m_PerStep;
    PlotGeometry m_Plot;
};

/// x of a point: its place in time in a 2-tone run, on the frequency grid in a sweep.
[[nodiscard]] int XOfPoint(const CurveState& curve, const PlotGeometry& plot, std::size_t index);

/// False for a point of a sweep whose steps run out of the plot, which shows no less than a pixel a step.
[[nodiscard]] bool IsOnPlot(const CurveState& curve, const PlotGeometry& plot, std::size_t index);

} // namespace qor
