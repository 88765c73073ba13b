#include "display/markers.h"

#include "bands/tenths.h"
#include "core/session.h"
#include "core/text_format.h"
#include "display/curve_store.h"

#include <algorithm>
#include <cmath>

namespace qor {

namespace {

constexpr int Grip = 20;     ///< pixels of a label that can be grabbed
constexpr int LabelLeft = 8; ///< the label stands this far left of its point
constexpr int LabelAbove = 28;
constexpr int LabelBelow = 13;
constexpr int FlagText = 20;         ///< the flag of the maximum has its text where the label would stand
constexpr float LeastHigher = 0.05f; ///< dB by which a maximum displaces an earlier one

void Forget(Marker& marker) {
    marker.m_MarkerLevelText.clear();
    marker.g_markerValueUp.reset();
    marker.g_markerValueDown.reset();
}

void Empty(Marker& marker) {
    Forget(marker);
    marker.m_MarkerPosText.clear();
    marker.g_markerPos = -1;
    marker.g_markerDrag = false;
}

void Renew(Marker& marker) {
    marker.g_markerFresh = true;
    Forget(marker);
}

/// Lets the marker stand on one or both curves of its run.
void Enable(Marker& marker, bool up, bool down) {
    const auto run = static_cast<std::size_t>(marker.g_markerRun);
    marker.g_markerEnableUp[run] = up;
    marker.g_markerEnableDown[run] = down;
}

void FindMaximum(std::span<const float> row, float& level, int& index) {
    level = 0;
    index = 0;
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (IsPresent(row[i]) && (level == 0 || row[i] > level + LeastHigher)) {
            level = row[i];
            index = static_cast<int>(i);
        }
    }
}

} // namespace

std::string Markers::LevelText(float level) const {
    const CurveState& curve = m_Session.curve;
    return Fixed(static_cast<double>(curve.g_UnitDbc ? level - curve.g_CarrierDbm : level), 1);
}

void Markers::Toggle(std::size_t number) {
    Marker& marker = m_Session.markers.marker[number];
    marker.m_MarkerOn = !marker.m_MarkerOn;
    if (marker.m_MarkerOn)
        Renew(marker);
}

void Markers::SetChecks(std::size_t number, bool max, bool up, bool down) {
    Marker& marker = m_Session.markers.marker[number];
    marker.m_MarkerMax = max;
    marker.m_MarkerUp = up;
    marker.m_MarkerDown = down;
    Renew(marker);
}

void Markers::SetPosition(std::size_t number, std::string_view text) {
    Marker& marker = m_Session.markers.marker[number];
    marker.m_MarkerPosText = text;
    Renew(marker);
}

void Markers::ChooseRun(std::size_t number, int run) {
    Marker& marker = m_Session.markers.marker[number];
    if (run < 0 || run >= std::min(m_Session.curve.g_runCount, static_cast<int>(MarkerRuns)))
        return;
    marker.g_markerEnableUp.fill(false);
    marker.g_markerEnableDown.fill(false);
    marker.g_markerRun = run;
    Renew(marker);
}

bool Markers::Press(int x, int y) {
    Release();
    for (Marker& marker : m_Session.markers.marker) {
        const bool hit = x >= marker.g_markerLabelX && x <= marker.g_markerLabelX + Grip &&
                         y >= marker.g_markerLabelY && y <= marker.g_markerLabelY + Grip;
        if (!marker.m_MarkerOn || marker.g_markerPos < 0 || !hit)
            continue;
        marker.g_markerDrag = true;
        marker.m_MarkerMax = false;
        if (marker.g_markerCurve != MarkerCurve::Time) {
            marker.m_MarkerUp = marker.g_markerCurve == MarkerCurve::Up;
            marker.m_MarkerDown = !marker.m_MarkerUp;
        }
        return true;
    }
    return false;
}

void Markers::Move(int x, int y) {
    for (Marker& marker : m_Session.markers.marker) {
        if (marker.g_markerDrag) {
            marker.g_markerLabelX = x;
            marker.g_markerLabelY = y;
        }
    }
}

void Markers::Release() {
    for (Marker& marker : m_Session.markers.marker) {
        if (marker.g_markerDrag) // what the drag ended on stays when the text is read again
            marker.m_MarkerPosText = Fixed(static_cast<double>(marker.g_markerPos), 1);
        marker.g_markerDrag = false;
    }
}

bool Markers::IsDragging() const {
    return std::ranges::any_of(m_Session.markers.marker, [](const Marker& m) { return m.g_markerDrag; });
}

void Markers::Clear() {
    for (Marker& marker : m_Session.markers.marker)
        Empty(marker);
}

/// The boxes of up and down belong to sweeps: they are cleared when the kind of curve changes.
void Markers::FollowCurveKind() {
    MarkerState& state = m_Session.markers;
    const bool sweep = IsSweepCurve(m_Session.curve);
    if (sweep == state.sweep)
        return;
    state.sweep = sweep;
    for (Marker& marker : state.marker) {
        marker.m_MarkerUp = marker.m_MarkerDown = false;
        marker.g_markerEnableUp.fill(false);
        marker.g_markerEnableDown.fill(false);
        marker.g_markerCurve = sweep ? MarkerCurve::Up : MarkerCurve::Time;
        Forget(marker);
    }
}

/// Highest points of the first runs. They stand still while a sweep goes on.
void Markers::FindRunMaxima() {
    MarkerState& state = m_Session.markers;
    const CurveState& curve = m_Session.curve;
    for (std::size_t run = 0; run < MarkerRuns; ++run) {
        FindMaximum(curve.m_RawUp.Row(run), state.g_runUpMax[run], state.g_runUpMaxIndex[run]);
        FindMaximum(curve.m_RawDown.Row(run), state.g_runDownMax[run], state.g_runDownMaxIndex[run]);
    }
}

void Markers::OnMarkerTimer() {
    FollowCurveKind();
    MarkerState& state = m_Session.markers;
    const bool anyOn = std::ranges::any_of(state.marker, [](const Marker& m) { return m.m_MarkerOn; });
    if (anyOn && state.sweep && !m_Session.run.runOn)
        FindRunMaxima();
    for (Marker& marker : state.marker) {
        if (!marker.m_MarkerOn) {
            marker.g_markerEnableUp.fill(false);
            marker.g_markerEnableDown.fill(false);
            Empty(marker);
        } else if (state.sweep) {
            UpdateSweep(marker);
        } else {
            UpdateTwoTone(marker);
        }
    }
}

/// The position that the text names, or, while the label is dragged, the text of the position.
void Markers::TakePosition(Marker& marker) {
    if (marker.g_markerDrag) {
        marker.m_MarkerPosText = Fixed(static_cast<double>(marker.g_markerPos), 1);
        return;
    }
    if (marker.m_MarkerPosText.empty()) {
        marker.g_markerPos = -1;
        return;
    }
    const double position = NumberIn(marker.m_MarkerPosText);
    marker.g_markerPos =
        static_cast<float>(m_Session.markers.sweep ? position : NumberIn(Fixed(position, 1)));
}

/// Puts a value found by a paint on the panel; a control that has just changed first waits for a new one.
void Markers::ShowValue(Marker& marker, std::optional<float> value) {
    if (marker.g_markerFresh || !value)
        marker.m_MarkerLevelText.clear();
    else
        marker.m_MarkerLevelText = LevelText(*value);
    marker.g_markerFresh = false;
}

void Markers::UpdateTwoTone(Marker& marker) {
    const CurveState& curve = m_Session.curve;
    marker.g_markerCurve = MarkerCurve::Time;
    if (!marker.m_MarkerMax) {
        marker.g_markerEnableDown[0] = true;
        TakePosition(marker);
        ShowValue(marker, marker.g_markerValueUp);
        return;
    }
    marker.g_markerFresh = false;
    marker.g_markerEnableDown[0] = false; // the plot has its own flag there
    if (!(curve.g_maxUpLevel < -0.1f)) {
        marker.m_MarkerPosText.clear();
        marker.m_MarkerLevelText.clear();
        return;
    }
    marker.m_MarkerPosText = Fixed(curve.g_maxUpIndex * curve.tone2SetTimes / 1000.0, 1);
    marker.m_MarkerLevelText = LevelText(curve.g_maxUpLevel);
}

void Markers::TakeMaximum(Marker& marker, bool up) {
    const MarkerState& state = m_Session.markers;
    const auto run = static_cast<std::size_t>(marker.g_markerRun);
    const float level = up ? state.g_runUpMax[run] : state.g_runDownMax[run];
    const int index = up ? state.g_runUpMaxIndex[run] : state.g_runDownMaxIndex[run];
    marker.g_markerCurve = up ? MarkerCurve::Up : MarkerCurve::Down;
    marker.g_markerFresh = false;
    Enable(marker, up, !up);
    if (level == 0) {
        marker.m_MarkerPosText.clear();
        marker.m_MarkerLevelText.clear();
        marker.g_markerPos = -1;
        return;
    }
    marker.g_markerPos = m_Session.curve.g_freqGrid[static_cast<std::size_t>(index)];
    marker.m_MarkerPosText = Fixed(static_cast<double>(marker.g_markerPos), 1);
    marker.m_MarkerLevelText = LevelText(level);
}

void Markers::UpdateSweep(Marker& marker) {
    const MarkerState& state = m_Session.markers;
    const auto run = static_cast<std::size_t>(marker.g_markerRun);
    const bool up = marker.m_MarkerUp;
    const bool down = marker.m_MarkerDown;
    if (!up && !down) {
        Enable(marker, false, false);
        Forget(marker);
        marker.m_MarkerPosText.clear();
        marker.g_markerPos = -1;
        return;
    }
    if (marker.m_MarkerMax) {
        const bool downHigher =
            state.g_runDownMax[run] != 0 &&
            (state.g_runUpMax[run] == 0 || state.g_runDownMax[run] > state.g_runUpMax[run]);
        TakeMaximum(marker, up && !(down && downHigher));
        return;
    }
    TakePosition(marker);
    if (up != down) {
        marker.g_markerCurve = up ? MarkerCurve::Up : MarkerCurve::Down;
        Enable(marker, up, down);
        ShowValue(marker, up ? marker.g_markerValueUp : marker.g_markerValueDown);
        return;
    }
    // Both are ticked: the higher one of the two is read, the up curve where they are equal.
    const std::optional<float> above = marker.g_markerValueUp;
    const std::optional<float> below = marker.g_markerValueDown;
    const bool downWins = below && (!above || *below > *above);
    marker.g_markerCurve = downWins ? MarkerCurve::Down : MarkerCurve::Up;
    if (above && below)
        Enable(marker, !downWins, downWins);
    else
        Enable(marker, true, true);
    ShowValue(marker, downWins ? below : above);
}

std::vector<MarkerMark> Markers::Place(const PlotGeometry& plot) {
    FollowCurveKind();
    std::vector<MarkerMark> marks;
    int number = 0;
    for (Marker& marker : m_Session.markers.marker) {
        if (m_Session.markers.sweep)
            PlaceSweep(number, marker, plot, marks);
        else
            PlaceTwoTone(number, marker, plot, marks);
        ++number;
    }
    return marks;
}

void Markers::PlaceTwoTone(int number, Marker& marker, const PlotGeometry& plot,
                           std::vector<MarkerMark>& marks) {
    const CurveState& curve = m_Session.curve;
    const int length = curve.g_testTimeMs > 0 ? curve.g_testTimeMs : 1000;
    if (!marker.m_MarkerOn || !marker.g_markerEnableDown[0])
        return marker.g_markerValueUp.reset();
    MarkerMark mark{number, false, 0, 0, false, marker.g_markerLabelX, marker.g_markerLabelY};
    if (marker.g_markerDrag) {
        const int x = std::clamp(marker.g_markerLabelX, plot.left, plot.right);
        marker.g_markerPos =
            static_cast<float>(static_cast<double>(x - plot.left) * length / plot.Span() / 1000.0);
    }
    const double ms = static_cast<double>(marker.g_markerPos) * 1000.0;
    if (ms < 0 || ms > length)
        return marker.g_markerValueUp.reset();
    const int step = std::max(curve.tone2SetTimes, 1);
    const int whole = static_cast<int>(ms);
    const auto column = static_cast<std::size_t>(whole / step + (whole % step > step / 2 ? 1 : 0));
    const auto row = curve.m_LevelUp.Row(
        static_cast<std::size_t>(std::clamp(curve.g_runIndex, 0, static_cast<int>(CurveRuns) - 1)));
    marker.g_markerValueUp.reset();
    if (column < row.size() && row[column] < 0) {
        marker.g_markerValueUp = row[column];
        mark.onPoint = true;
        mark.x = XOfPoint(curve, plot, column);
        mark.y = plot.YOf(row[column]);
        if (!marker.g_markerDrag) {
            marker.g_markerLabelX = mark.labelX = std::min(mark.x, plot.right) - LabelLeft;
            marker.g_markerLabelY = mark.labelY =
                mark.y - LabelAbove - (static_cast<int>(column) == curve.g_maxUpIndex ? FlagText : 0);
        }
    }
    if (mark.onPoint || marker.g_markerDrag)
        marks.push_back(mark);
}

void Markers::PlaceSweep(int number, Marker& marker, const PlotGeometry& plot,
                         std::vector<MarkerMark>& marks) {
    const CurveState& curve = m_Session.curve;
    marker.g_markerValueUp.reset();
    marker.g_markerValueDown.reset();
    const std::size_t length = GridLength(curve.g_freqGrid);
    const auto run = static_cast<std::size_t>(marker.g_markerRun);
    const bool enabled = marker.g_markerEnableUp[run] || marker.g_markerEnableDown[run];
    const bool both = marker.m_MarkerUp && marker.m_MarkerDown; // which is higher decides where it stands
    if (!marker.m_MarkerOn || !enabled || length == 0 || curve.g_runIndex < marker.g_markerRun)
        return;
    const auto nearest = [&](float frequency) {
        std::size_t best = 0;
        for (std::size_t i = 1; i < length; ++i) {
            if (std::abs(curve.g_freqGrid[i] - frequency) < std::abs(curve.g_freqGrid[best] - frequency))
                best = i;
        }
        return best;
    };
    if (marker.g_markerDrag) {
        const auto steps = static_cast<float>(marker.g_markerLabelX - plot.left) / curve.g_pxPerStep;
        marker.g_markerPos = curve.g_freqGrid[nearest(curve.g_freqGrid[0] + steps * curve.g_SweepStep)];
    }
    if (marker.g_markerPos < 0)
        return;
    const std::size_t column = nearest(marker.g_markerPos);
    const bool onGrid =
        std::abs(curve.g_freqGrid[column] - marker.g_markerPos) < static_cast<float>(GridTolerance);
    bool labelled = false;
    for (const bool down : {false, true}) {
        const bool here = (down ? marker.g_markerEnableDown : marker.g_markerEnableUp)[run];
        const float level = (down ? curve.m_LevelDown : curve.m_LevelUp).Row(run)[column];
        if (!(here || both) || !onGrid || !IsPresent(level))
            continue;
        (down ? marker.g_markerValueDown : marker.g_markerValueUp) = level;
        if (!here)
            continue;
        MarkerMark mark{number, true, XOfPoint(curve, plot, column), plot.YOf(level), down, 0, 0};
        if (!marker.g_markerDrag) {
            marker.g_markerLabelX = mark.x - LabelLeft;
            const bool flagged =
                static_cast<int>(column) == (down ? curve.g_maxDownIndex : curve.g_maxUpIndex);
            const int aside = flagged ? FlagText : 0;
            marker.g_markerLabelY = down ? mark.y + LabelBelow + aside : mark.y - LabelAbove - aside;
        }
        mark.labelX = marker.g_markerLabelX;
        mark.labelY = marker.g_markerLabelY;
        marks.push_back(mark);
        labelled = true;
    }
    if (labelled)
        return;
    // No point there: the label alone tells where the marker would stand.
    if (!marker.g_markerDrag) {
        marker.g_markerLabelX = XOfPoint(curve, plot, column) - LabelLeft;
        marker.g_markerLabelY = std::clamp(marker.g_markerLabelY, plot.top, plot.axis - Grip);
    }
    marks.push_back({number, false, 0, 0, marker.g_markerCurve == MarkerCurve::Down, marker.g_markerLabelX,
                     marker.g_markerLabelY});
}

} // namespace qor
