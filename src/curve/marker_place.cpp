// The markers under the mouse, and their places in a paint.
#include "base/tenths.h"
#include "base/text_format.h"
#include "curve/curve.h"
#include "curve/markers.h"
#include "curve/plot_geometry.h"
#include "curve/plot_scene.h"

#include <algorithm>
#include <cmath>

namespace qor {

namespace {

constexpr int GripSize = 20; ///< pixels of a label that can be taken hold of
constexpr int LabelLeft = 8; ///< of its point
constexpr int LabelAbove = 28;
constexpr int LabelBelow = 13;
constexpr int LabelWidth = 26;
constexpr int LabelHeight = LineHeight(MarkerSize);
constexpr int FlagText = 20; ///< on a maximum its flag has its text where the label would stand
constexpr int EndRoom = 8;   ///< a marker beyond the plot stands so far before its end

/// x of a point; one that lies beyond the plot is kept on it.
int HeldOnPlot(const Curve& curve, const PlotGeometry& plot, std::size_t index) {
    return IsOnPlot(curve, plot, index) ? XOfPoint(curve, plot, index) : plot.right - EndRoom;
}

std::span<const float> GridOf(const Curve& curve) {
    const std::span<const float> grid(curve.Grid().data(), CurvePoints);
    return grid.first(GridLength(grid));
}

/// Grid entry at a place of the plot: the last that does not lie to the right of it. The grid of a sweep is
/// not even, so this is not a division by the step.
std::size_t ColumnAt(const Curve& curve, const PlotGeometry& plot, int x) {
    const std::size_t length = GridOf(curve).size();
    std::size_t column = 0;
    while (column + 1 < length && XOfPoint(curve, plot, column + 1) <= x)
        ++column;
    return column;
}

/// True for a text that names the frequency: what is being typed is left as it is.
bool Reads(std::string_view text, float frequency) {
    return std::abs(NumberIn(text) - static_cast<double>(frequency)) < 0.001;
}

/// Grid entry next to a frequency.
std::size_t NearestTo(std::span<const float> grid, float frequency) {
    const auto above = std::lower_bound(grid.begin(), grid.end(), frequency);
    if (above == grid.begin())
        return 0;
    const auto at = static_cast<std::size_t>(above - grid.begin());
    return above != grid.end() && *above - frequency < frequency - grid[at - 1] ? at : at - 1;
}

/// Puts the marker on its point at a column of the curve; a label at the mouse stays there.
void PutOnPoint(Marker& marker, MarkerMark& mark, const Curve& curve, const PlotGeometry& plot,
                std::size_t column, float level) {
    mark.onPoint = true;
    mark.x = HeldOnPlot(curve, plot, column);
    mark.y = plot.YOf(level);
    if (marker.g_markerDrag)
        return;
    const bool flagged =
        static_cast<int>(column) == (mark.down ? curve.MaxDown().index : curve.MaxUp().index);
    const int aside = flagged ? FlagText : 0;
    marker.g_markerLabelX = mark.x - LabelLeft;
    marker.g_markerLabelY = mark.down ? mark.y + LabelBelow + aside : mark.y - LabelAbove - aside;
}

void PutLabel(Marker& marker, MarkerMark mark, std::vector<MarkerMark>& marks) {
    mark.labelX = marker.g_markerLabelX;
    mark.labelY = marker.g_markerLabelY;
    marker.labelShown = true;
    marks.push_back(mark);
}

} // namespace

bool Markers::Press(int x, int y) {
    bool held = false;
    for (Marker& marker : m_Markers) {
        const int right = x - marker.g_markerLabelX;
        const int below = y - marker.g_markerLabelY;
        const bool hit = marker.m_MarkerOn && marker.labelShown && right >= 0 && right <= GripSize &&
                         below >= 0 && below <= GripSize;
        marker.g_markerDrag = hit && !held;
        if (!marker.g_markerDrag)
            continue;
        held = true;
        marker.m_MarkerMax = false;
        if (marker.g_markerCurve != MarkerOnTime) {
            marker.m_MarkerUp = marker.g_markerCurve == MarkerOnUp;
            marker.m_MarkerDown = !marker.m_MarkerUp;
        }
        marker.g_markerLabelX = x; // the point is sought under the mouse, not under the label's corner
        marker.g_markerLabelY = y;
    }
    return held;
}

void Markers::Move(int x, int y) {
    for (Marker& marker : m_Markers) {
        if (!marker.g_markerDrag)
            continue;
        marker.g_markerLabelX = x;
        marker.g_markerLabelY = y;
    }
}

void Markers::Release() {
    for (Marker& marker : m_Markers) {
        if (!marker.g_markerDrag)
            continue;
        FollowMouse(marker); // the last move may not have been painted
        TakePosition(marker);
        marker.g_markerDrag = false;
    }
}

bool Markers::IsDragging() const {
    return std::ranges::any_of(m_Markers, &Marker::g_markerDrag);
}

/// The position that belongs to the label's place, which is kept on the plot.
void Markers::FollowMouse(Marker& marker) {
    const Curve& curve = m_Curve;
    const PlotGeometry& plot = m_Plot;
    marker.g_markerLabelX = std::clamp(marker.g_markerLabelX, plot.left, plot.right);
    marker.g_markerLabelY = std::clamp(marker.g_markerLabelY, plot.top, plot.axis);
    if (curve.IsSweep()) {
        marker.g_markerPos = curve.Grid()[ColumnAt(curve, plot, marker.g_markerLabelX)];
    } else {
        const double offset = marker.g_markerLabelX - plot.left;
        marker.g_markerPos = static_cast<float>(offset * curve.Length() / std::max(plot.Span(), 1) / 1000.0);
    }
}

std::vector<MarkerMark> Markers::Place(const PlotGeometry& plot) {
    m_Plot = plot;
    std::vector<MarkerMark> marks;
    for (std::size_t n = 0; n < m_Markers.size(); ++n) {
        Marker& marker = m_Markers[n];
        marker.labelShown = false;
        if (!marker.m_MarkerOn)
            continue;
        MarkerMark mark;
        mark.marker = static_cast<int>(n);
        if (m_Curve.IsSweep())
            PlaceInSweep(marker, mark, marks);
        else
            PlaceInTwoTone(marker, mark, marks);
    }
    KeepLabelsApart(marks);
    return marks;
}

/// A label that would stand on the text of a flag, or on another label, goes above or below what is in its
/// way; one at the mouse stays there.
void Markers::KeepLabelsApart(std::vector<MarkerMark>& marks) {
    if (marks.empty())
        return;
    std::vector<PlotBox> taken = FlagTexts(m_Curve, m_Plot);
    const auto meets = [&taken](int x, int y) {
        return std::ranges::find_if(taken, [x, y](const PlotBox& box) {
            return x < box.left + box.width && box.left < x + LabelWidth && y < box.top + box.height &&
                   box.top < y + LabelHeight;
        });
    };
    for (MarkerMark& mark : marks) {
        Marker& marker = m_Markers[static_cast<std::size_t>(mark.marker)];
        for (const bool up : {!mark.down, mark.down}) {
            int y = mark.labelY;
            auto in = meets(mark.labelX, y);
            for (; in != taken.end(); in = meets(mark.labelX, y))
                y = up ? in->top - LabelHeight : in->top + in->height;
            if (marker.g_markerDrag || y < m_Plot.top || y + LabelHeight > m_Plot.axis)
                continue;
            if (marker.g_markerLabelY == mark.labelY && marker.g_markerLabelX == mark.labelX)
                marker.g_markerLabelY = y; // where the mouse takes hold of it
            mark.labelY = y;
            break;
        }
        taken.push_back({mark.labelX, mark.labelY, LabelWidth, LabelHeight, 0});
    }
}

void Markers::PlaceInTwoTone(Marker& marker, MarkerMark mark, std::vector<MarkerMark>& marks) {
    const Curve& curve = m_Curve;
    marker.g_markerValueUp.clear();
    if (!marker.g_markerEnableDown[0])
        return;
    if (marker.g_markerDrag)
        FollowMouse(marker);
    const double ms = static_cast<double>(marker.g_markerPos) * 1000.0;
    if (!(ms >= 0) || ms > curve.Length())
        return;
    const int step = std::max(curve.TimePerPoint(), 1);
    const int time = static_cast<int>(ms);
    const int nearest = time / step + (time % step * 2 > step ? 1 : 0);
    const auto column = static_cast<std::size_t>(nearest);
    const float level = column < CurvePoints ? curve.ShownUp(curve.Row())[column] : 0.0f;
    if (IsPresent(level)) {
        ShowLevel(marker.g_markerValueUp, level);
        PutOnPoint(marker, mark, curve, m_Plot, column, level);
    }
    if (mark.onPoint || marker.g_markerDrag)
        PutLabel(marker, mark, marks);
}

/// Marks the marker's points on one curve, `mark.down` says which. False when there is none.
bool Markers::FindOnCurve(Marker& marker, MarkerMark mark, std::vector<MarkerMark>& marks) {
    const Curve& curve = m_Curve;
    const auto grid = GridOf(curve);
    const auto run = static_cast<std::size_t>(marker.g_markerRun);
    const bool drawn = (mark.down ? marker.g_markerEnableDown : marker.g_markerEnableUp)[run];
    std::string& value = mark.down ? marker.g_markerValueDown : marker.g_markerValueUp;
    value.clear();
    const int first = FindInGrid(grid, marker.g_markerPos);
    if (first < 0)
        return false;
    for (std::size_t row = run; row <= curve.Row(); row += MarkerRuns) {
        for (auto i = static_cast<std::size_t>(first); i < grid.size(); ++i) {
            const float frequency = grid[i];
            if (!(std::abs(static_cast<double>(frequency - marker.g_markerPos)) < GridTolerance))
                break;
            const float level = (mark.down ? curve.ShownDown(row) : curve.ShownUp(row))[i];
            if (!IsPresent(level))
                continue;
            ShowLevel(value, level);
            if (!drawn)
                continue;
            if (!marker.g_markerDrag && !Reads(marker.m_MarkerPosText, frequency))
                marker.m_MarkerPosText = Fixed(static_cast<double>(frequency), 1);
            PutOnPoint(marker, mark, curve, m_Plot, i, level);
            PutLabel(marker, mark, marks);
        }
    }
    return mark.onPoint;
}

void Markers::PlaceInSweep(Marker& marker, MarkerMark mark, std::vector<MarkerMark>& marks) {
    const Curve& curve = m_Curve;
    const auto grid = GridOf(curve);
    const auto run = static_cast<std::size_t>(marker.g_markerRun);
    const bool enabled = marker.g_markerEnableUp[run] || marker.g_markerEnableDown[run];
    if (!enabled || grid.empty())
        return;
    if (marker.g_markerDrag)
        FollowMouse(marker);
    // A curve that has lost to the other is still looked at: it may be the higher one next time.
    bool found = false;
    for (const bool down : {false, true}) {
        mark.down = down;
        found = FindOnCurve(marker, mark, marks) || found;
    }
    const auto tolerance = static_cast<float>(GridTolerance);
    const bool inSweep =
        marker.g_markerPos > grid.front() - tolerance && marker.g_markerPos < grid.back() + tolerance;
    const int shown = curve.ShownRun();
    const bool runInView = run <= curve.Row() &&
                           (shown == 0 || (shown - 1) % static_cast<int>(MarkerRuns) == marker.g_markerRun);
    if (found || !inSweep || !runInView)
        return;
    // No point there: the label alone tells where the marker would stand.
    mark.down = marker.g_markerCurve == MarkerOnDown;
    if (!marker.g_markerDrag) {
        marker.g_markerLabelX = HeldOnPlot(curve, m_Plot, NearestTo(grid, marker.g_markerPos));
        marker.g_markerLabelY =
            std::clamp(marker.g_markerLabelY, m_Plot.top, std::max(m_Plot.axis - GripSize, m_Plot.top));
    }
    PutLabel(marker, mark, marks);
}

} // namespace qor
