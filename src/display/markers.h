#pragma once

#include "display/marker_mark.h"
#include "display/plot_geometry.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

struct Session;

inline constexpr std::size_t MarkerCount = 3;
inline constexpr std::size_t MarkerRuns = 10; ///< runs that a marker can belong to; later ones share them

/// Curve that a marker stands on.
enum class MarkerCurve { Down = 0, Up = 1, Time = 2 };

/// One marker: what its row on the panel says, and where it stands.
struct Marker {
    bool m_MarkerOn = false;
    bool m_MarkerMax = false;      ///< stands on the highest point
    bool m_MarkerUp = false;       ///< of the up curve; means nothing in 2-tone
    bool m_MarkerDown = false;     ///< of the down curve; the same
    std::string m_MarkerPosText;   ///< "%.1f", s or MHz
    std::string m_MarkerLevelText; ///< "%.1f" in the unit shown

    float g_markerPos = -1; ///< the position as a number; below 0: none
    int g_markerLabelX = 0; ///< label and grip, pixels of the plot's window
    int g_markerLabelY = 0;
    bool g_markerDrag = false;
    MarkerCurve g_markerCurve = MarkerCurve::Time;
    bool g_markerFresh = false; ///< a control has just changed: the value found is still that of before
    int g_markerRun = 0;        ///< 0 to 9
    std::array<bool, MarkerRuns> g_markerEnableUp{};
    std::array<bool, MarkerRuns> g_markerEnableDown{}; ///< entry 0 also stands for the 2-tone trace
    std::optional<float> g_markerValueUp;              ///< dBm, found by the last paint
    std::optional<float> g_markerValueDown;            ///< the same
};

struct MarkerState {
    std::array<Marker, MarkerCount> marker;
    bool sweep = false;                         ///< kind of curve that the check boxes are for
    std::array<float, MarkerRuns> g_runUpMax{}; ///< dBm, 0: the run has no point
    std::array<float, MarkerRuns> g_runDownMax{};
    std::array<int, MarkerRuns> g_runUpMaxIndex{};
    std::array<int, MarkerRuns> g_runDownMaxIndex{};
};

/// Three markers that read single points off the plot: at a position that is typed, dragged, or the highest
/// point. Painting finds the levels, the marker timer puts them on the panel.
class Markers {
public:
    explicit Markers(Session& session) : m_Session(session) {}

    // The row of a marker, 0 to 2.
    void Toggle(std::size_t marker);
    void SetChecks(std::size_t marker, bool max, bool up, bool down);
    void SetPosition(std::size_t marker, std::string_view text);
    /// Gives a marker to a run, 0 and up; a run beyond those set up changes nothing.
    void ChooseRun(std::size_t marker, int run);

    // The mouse on the plot, pixels of its window. Press tells whether a label was grabbed.
    bool Press(int x, int y);
    void Move(int x, int y);
    void Release();
    [[nodiscard]] bool IsDragging() const;

    void OnMarkerTimer();
    /// Where the markers are drawn on this plot. Finds their levels.
    [[nodiscard]] std::vector<MarkerMark> Place(const PlotGeometry& plot);
    /// A new curve: positions and levels are gone.
    void Clear();

private:
    void FollowCurveKind();
    void FindRunMaxima();
    void UpdateTwoTone(Marker& marker);
    void UpdateSweep(Marker& marker);
    void TakeMaximum(Marker& marker, bool up);
    void TakePosition(Marker& marker);
    void ShowValue(Marker& marker, std::optional<float> value);
    void PlaceTwoTone(int number, Marker& marker, const PlotGeometry& plot, std::vector<MarkerMark>& marks);
    void PlaceSweep(int number, Marker& marker, const PlotGeometry& plot, std::vector<MarkerMark>& marks);
    [[nodiscard]] std::string LevelText(float level) const;

    Session& m_Session;
};

} // namespace qor
