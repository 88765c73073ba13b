#pragma once

namespace qor {

/// Timers of a run and their periods in ms.
enum RunTimer : int {
    CurveTimer = 0, ///< brings what is drawn up to the points that have come
    T2messuretimer = 40,
    sweeptimer = 41,
    spectrumtimer = 42,
    analyzerwaittimer = 43,
    spectrumwaittimer = 44,
    intervaltimer = 45,
    restarttimer = 46,
    readbacktimer = 38,
    readbackwaittimer = 39,
};
inline constexpr int CurvePeriod = 100;
inline constexpr int AnalyserWaitPeriod = 100;
inline constexpr int IntervalPeriod = 1000;
inline constexpr int RestartPeriod = 300;

} // namespace qor
