#pragma once

#include "curve/marker_mark.h"
#include "curve/marker_state.h"
#include "curve/plot_geometry.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

namespace qor {

class Curve;

inline constexpr int MarkerTimer = 15;
inline constexpr int MarkerPeriod = 300; ///< ms

/// The markers: their controls on the panel, the mouse on the plot, the 300 ms tick that brings their texts
/// up to date, and the place a paint gives them. A paint finds a level, the next tick shows it.
///
/// markers.cpp holds the controls and the tick, marker_place.cpp the mouse and the paint. Markers are counted
/// from 0 here; places of the mouse are pixels of the plot's window.
class Markers {
public:
    explicit Markers(Curve& curve) : m_Curve(curve) {}

    [[nodiscard]] const Marker& At(std::size_t marker) const { return m_Markers[marker]; }
    /// Takes the texts and places away; the boxes stay ticked.
    void Clear();
    /// The panel and the maxima of the runs have to follow a change of curve, unit or control.
    void Refresh();
    /// The curve is over time from now on: "Oben" and "Unter" mean nothing.
    void ForgetCurves();

    void Toggle(std::size_t marker); ///< its button
    /// The three check boxes. In 2-tone there is but one curve, and the last two mean nothing.
    void SetChecks(std::size_t marker, bool max, bool up, bool down);
    /// Each change of the position box. What is no number is no place.
    void SetPosition(std::size_t marker, std::string_view position);

    // The mouse on the plot.
    bool Press(int x, int y); ///< true when it has taken hold of a label
    void Move(int x, int y);
    void Release(); ///< the marker stays where its label is
    [[nodiscard]] bool IsDragging() const;

    void OnMarkerTimer(bool runOn); ///< MarkerTimer
    /// Part of each paint, after the maxima: finds the points and their levels, gives the labels their places
    /// and says what to draw. Allocates nothing while no marker is on.
    [[nodiscard]] std::vector<MarkerMark> Place(const PlotGeometry& plot);

private:
    friend class MarkerRunChoice;

    void Touch(Marker& marker);
    void UpdateInTwoTone(Marker& marker);
    void UpdateInSweep(Marker& marker);
    void StandOnMaximum(Marker& marker, bool up);
    void TakePosition(Marker& marker);
    void SearchRunMaxima();
    void ShowLevel(std::string& text, float level) const;
    void FollowMouse(Marker& marker);
    void PlaceInTwoTone(Marker& marker, MarkerMark mark, std::vector<MarkerMark>& marks);
    void PlaceInSweep(Marker& marker, MarkerMark mark, std::vector<MarkerMark>& marks);
    void KeepLabelsApart(std::vector<MarkerMark>& marks);
    bool FindOnCurve(Marker& marker, MarkerMark mark, std::vector<MarkerMark>& marks);

    Curve& m_Curve;
    std::array<Marker, MarkerCount> m_Markers;
    PlotGeometry m_Plot; ///< of the last paint

    // Highest point of each of the first ten runs, 0 for none. They stand still during a run.
    std::array<float, MarkerRuns> g_runUpMax{};
    std::array<float, MarkerRuns> g_runDownMax{};
    std::array<int, MarkerRuns> g_runUpMaxIndex{};
    std::array<int, MarkerRuns> g_runDownMaxIndex{};
    /// Ticks for which the panel still follows the markers; at 10 the maxima above do.
    int g_markerRefresh = 0;
};

/// The dialog "Marker n Einbauen", which gives a marker its run. The marker is off while this lives, and
/// afterwards as it was.
class MarkerRunChoice {
public:
    MarkerRunChoice(Markers& markers, std::size_t marker);
    ~MarkerRunChoice();
    MarkerRunChoice(const MarkerRunChoice&) = delete;
    MarkerRunChoice& operator=(const MarkerRunChoice&) = delete;

    /// The run chosen, counted from 0. One that is not set up, or beyond the tenth, changes nothing.
    void Take(int run);

private:
    Markers& m_Markers;
    Marker& m_Marker;
    bool m_On;
    std::string m_Position;
};

/// True when "Oben" and "Unter" can be ticked: only a sweep has the two curves.
[[nodiscard]] bool MarkersHaveCurves(const Curve& curve);
/// Unit of the positions: "Sec." or "MHz".
[[nodiscard]] std::string_view MarkerUnit(const Curve& curve);

/// An empty plot, and no texts of the markers.
void ClearPlot(Curve& curve, Markers& markers);

} // namespace qor
