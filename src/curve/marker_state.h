#pragma once

#include <array>
#include <cstddef>
#include <string>

namespace qor {

inline constexpr std::size_t MarkerCount = 3;
inline constexpr std::size_t MarkerRuns = 10; ///< runs a marker can belong to; a later run counts modulo ten

/// What a marker stands on.
enum MarkerCurve : int { MarkerOnDown = 0, MarkerOnUp = 1, MarkerOnTime = 2 };

/// One of the markers M1 to M3. It stands on a time of a 2-tone trace, or on a frequency of one run of a
/// sweep, on its up or its down curve.
struct Marker {
    // The controls of the panel.
    bool m_MarkerOn = false;
    bool m_MarkerMax = false;      ///< "Max": stands on the highest point
    bool m_MarkerUp = false;       ///< "Oben": the up curve
    bool m_MarkerDown = false;     ///< "Unter": the down curve
    std::string m_MarkerPosText;   ///< seconds or MHz
    std::string m_MarkerLevelText; ///< in the display unit

    float g_markerPos = -1; ///< the position as a number; -1 none
    int g_markerLabelX = 0; ///< of the label, pixels of the plot's window: also the grip for the mouse
    int g_markerLabelY = 0;
    bool labelShown = false;   ///< the last paint has drawn the label
    bool g_markerDrag = false; ///< the label is at the mouse
    int g_markerCurve = MarkerOnTime;
    bool g_markerFresh = false; ///< a control has just changed: the levels found belong to the old place
    int g_markerRun = 0;        ///< 0 to 9
    std::array<bool, MarkerRuns> g_markerEnableUp{};   ///< drawn on the up curve of that run
    std::array<bool, MarkerRuns> g_markerEnableDown{}; ///< on the down curve; entry 0 also on a 2-tone trace
    std::string g_markerValueUp;                       ///< level the last paint found, in the display unit
    std::string g_markerValueDown;
};

} // namespace qor
