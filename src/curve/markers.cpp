// The controls of the markers, and the tick that brings their texts up to date.
#include "curve/markers.h"

#include "base/tenths.h"
#include "base/text_format.h"
#include "curve/curve.h"

#include <algorithm>

namespace qor {

namespace {

constexpr int RefreshAfterChange = 10; ///< ticks; at this count the maxima of the runs are searched
constexpr int RefreshInRun = 30;

// shown to the operator
constexpr std::string_view Seconds = "Sec.";

void ForgetLevels(Marker& marker) {
    marker.m_MarkerLevelText.clear();
    marker.g_markerValueUp.clear();
    marker.g_markerValueDown.clear();
}

/// Without a place: nothing is shown beside the boxes and nothing drawn.
void Blank(Marker& marker) {
    marker.m_MarkerPosText.clear();
    marker.m_MarkerLevelText.clear();
    marker.g_markerEnableUp.fill(false);
    marker.g_markerEnableDown.fill(false);
}

void EnableOnly(Marker& marker, bool up) {
    const auto run = static_cast<std::size_t>(marker.g_markerRun);
    marker.g_markerCurve = up ? MarkerOnUp : MarkerOnDown;
    marker.g_markerEnableUp[run] = up;
    marker.g_markerEnableDown[run] = !up;
}

} // namespace

void Markers::Touch(Marker& marker) {
    marker.g_markerFresh = true;
    ForgetLevels(marker);
    Refresh();
}

void Markers::Toggle(std::size_t marker) {
    Marker& m = m_Markers[marker];
    m.m_MarkerOn = !m.m_MarkerOn;
    if (m.m_MarkerOn)
        Touch(m);
    Refresh();
}

void Markers::SetChecks(std::size_t marker, bool max, bool up, bool down) {
    Marker& m = m_Markers[marker];
    const bool curves = MarkersHaveCurves(m_Curve);
    m.m_MarkerMax = max;
    m.m_MarkerUp = curves && up;
    m.m_MarkerDown = curves && down;
    Touch(m);
}

void Markers::SetPosition(std::size_t marker, std::string_view position) {
    Marker& m = m_Markers[marker];
    m.m_MarkerPosText = position;
    m.g_markerDrag = false;
    TakePosition(m); // at once: a paint before the next tick would bring the old place back
    Touch(m);
}

void Markers::ShowLevel(std::string& text, float level) const {
    const Curve& curve = m_Curve;
    text.clear();
    AppendFixed(text, static_cast<double>(curve.scale.InDbc() ? level - curve.scale.Carrier() : level), 1);
}

/// The label under the mouse rules the position text; otherwise the text rules the position.
void Markers::TakePosition(Marker& marker) {
    if (marker.g_markerDrag) {
        marker.m_MarkerPosText = Fixed(static_cast<double>(marker.g_markerPos), 1);
        return;
    }
    const auto entered = EnteredNumber(marker.m_MarkerPosText);
    if (!entered || *entered < 0 || *entered > 1e9) { // beyond any time or frequency
        marker.g_markerPos = -1;
        return;
    }
    const bool sweep = m_Curve.IsSweep();
    marker.g_markerPos = static_cast<float>(sweep ? *entered : NumberIn(Fixed(*entered, 1)));
}

void Markers::UpdateInTwoTone(Marker& marker) {
    const Curve& curve = m_Curve;
    marker.g_markerCurve = MarkerOnTime;
    marker.m_MarkerUp = marker.m_MarkerDown = false;
    marker.g_markerEnableDown[0] = !marker.m_MarkerMax; // the maximum has its own flag
    if (marker.m_MarkerMax) {
        marker.m_MarkerPosText.clear();
        marker.m_MarkerLevelText.clear();
        if (IsPresent(curve.MaxUp().level)) {
            marker.m_MarkerPosText = Fixed(curve.MaxUp().index * curve.TimePerPoint() / 1000.0, 1);
            ShowLevel(marker.m_MarkerLevelText, curve.MaxUp().level);
        }
    } else {
        TakePosition(marker);
        if (marker.g_markerFresh)
            ForgetLevels(marker);
        marker.m_MarkerLevelText = marker.g_markerValueUp;
    }
    marker.g_markerFresh = false;
}

void Markers::StandOnMaximum(Marker& marker, bool up) {
    const auto run = static_cast<std::size_t>(marker.g_markerRun);
    const float level = up ? g_runUpMax[run] : g_runDownMax[run];
    const int index = up ? g_runUpMaxIndex[run] : g_runDownMaxIndex[run];
    EnableOnly(marker, up);
    marker.g_markerPos = -1;
    marker.m_MarkerPosText.clear();
    marker.m_MarkerLevelText.clear();
    if (!IsPresent(level))
        return;
    marker.g_markerPos = m_Curve.Grid()[static_cast<std::size_t>(index)];
    marker.m_MarkerPosText = Fixed(static_cast<double>(marker.g_markerPos), 1);
    ShowLevel(marker.m_MarkerLevelText, level);
}

void Markers::UpdateInSweep(Marker& marker) {
    const auto run = static_cast<std::size_t>(marker.g_markerRun);
    const bool up = marker.m_MarkerUp;
    const bool down = marker.m_MarkerDown;
    if (!up && !down) {
        Blank(marker);
        return;
    }
    if (marker.m_MarkerMax) {
        const float highestUp = g_runUpMax[run];
        const float highestDown = g_runDownMax[run];
        const bool upWins = !IsPresent(highestDown) || (IsPresent(highestUp) && highestUp >= highestDown);
        StandOnMaximum(marker, up && (!down || upWins));
        marker.g_markerFresh = false;
        return;
    }
    TakePosition(marker);
    if (marker.g_markerFresh)
        ForgetLevels(marker); // a paint may have found them at the old place
    marker.g_markerFresh = false;
    const bool onUp = !marker.g_markerValueUp.empty();
    const bool onDown = !marker.g_markerValueDown.empty();
    if (up != down || (onUp && onDown)) {
        const bool upWins =
            up && (!down || NumberIn(marker.g_markerValueUp) >= NumberIn(marker.g_markerValueDown));
        EnableOnly(marker, upWins);
        marker.m_MarkerLevelText = upWins ? marker.g_markerValueUp : marker.g_markerValueDown;
    } else {
        marker.g_markerEnableUp[run] = marker.g_markerEnableDown[run] = true;
        marker.m_MarkerLevelText = onDown ? marker.g_markerValueDown : marker.g_markerValueUp;
    }
}

void Markers::SearchRunMaxima() {
    const Curve& curve = m_Curve;
    for (std::size_t run = 0; run < MarkerRuns; ++run) {
        const CurveMaximum up = HighestOf(curve.KeptUp(run));
        const CurveMaximum down = HighestOf(curve.KeptDown(run));
        g_runUpMax[run] = up.level;
        g_runUpMaxIndex[run] = up.index;
        g_runDownMax[run] = down.level;
        g_runDownMaxIndex[run] = down.index;
    }
}

void Markers::OnMarkerTimer(bool runOn) {
    for (Marker& marker : m_Markers) {
        if (!marker.m_MarkerOn) {
            Blank(marker);
            ForgetLevels(marker);
        } else if (m_Curve.IsSweep()) {
            UpdateInSweep(marker);
        } else {
            UpdateInTwoTone(marker);
        }
    }
    if (runOn)
        g_markerRefresh = RefreshInRun;
    if (g_markerRefresh == RefreshAfterChange)
        SearchRunMaxima();
    g_markerRefresh = std::max(g_markerRefresh - 1, 0);
}

MarkerRunChoice::MarkerRunChoice(Markers& markers, std::size_t marker)
    : m_Markers(markers), m_Marker(markers.m_Markers[marker]), m_On(m_Marker.m_MarkerOn),
      m_Position(m_Marker.m_MarkerPosText) {
    m_Marker.m_MarkerOn = false;
}

MarkerRunChoice::~MarkerRunChoice() {
    m_Marker.m_MarkerOn = m_On;
    if (!m_On)
        return;
    m_Marker.m_MarkerPosText = m_Position; // being off has cost it its texts
    m_Markers.Touch(m_Marker);
}

void MarkerRunChoice::Take(int run) {
    const int runs = std::min(m_Markers.m_Curve.Runs(), static_cast<int>(MarkerRuns));
    if (run < 0 || run >= runs)
        return;
    m_Marker.g_markerEnableUp.fill(false);
    m_Marker.g_markerEnableDown.fill(false);
    m_Marker.g_markerRun = run;
}

bool MarkersHaveCurves(const Curve& curve) {
    return curve.IsSweep();
}

std::string_view MarkerUnit(const Curve& curve) {
    return curve.IsSweep() ? "MHz" : Seconds;
}

void Markers::Clear() {
    for (Marker& marker : m_Markers) {
        Blank(marker);
        ForgetLevels(marker);
        marker.g_markerPos = -1;
        marker.g_markerDrag = false;
    }
    for (auto* maxima : {&g_runUpMax, &g_runDownMax})
        maxima->fill(0); // of a curve that is gone
}

void Markers::Refresh() {
    g_markerRefresh = RefreshAfterChange;
}

void Markers::ForgetCurves() {
    for (Marker& marker : m_Markers)
        marker.m_MarkerUp = marker.m_MarkerDown = false;
}

void ClearPlot(Curve& curve, Markers& markers) {
    markers.Clear();
    curve.Clear();
}

} // namespace qor
