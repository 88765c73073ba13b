#pragma once

namespace qor {

/// Numbers of the program's timers and their periods in ms.
enum TimerId : int {
    CurveTimer = 0, ///< copies new points to the display layer
    commsendtimer = 3,
    openWatch = 6,
    commScan = 7,
    HousekeepingTimer = 8,
    WaitCommTimer = 10,
    MarkerTimer = 15,
    SlowBeepTimer = 16,
    FastBeepTimer = 17,
    settingchecktimer = 18,
    HardBandInitOn = 24,
    scanCommtimer = 25,
    ReadEachType = 27,
    UnderBeepTimer = 28,
    CloseQOR = 29,
    T2messuretimer = 40,
    sweeptimer = 41,
    spectrumtimer = 42,
    analyzerwaittimer = 43,
    spectrumwaittimer = 44,
    intervaltimer = 45,
    restarttimer = 46,
};

inline constexpr int TimerCount = 64; ///< numbers 0 to 63

inline constexpr int CurvePeriod = 100;
inline constexpr int SendPeriod = 10;
inline constexpr int ConnectWatchPeriod = 100;
inline constexpr int HousekeepingPeriod = 100;
inline constexpr int WaitPeriod = 1000;
inline constexpr int StatusPollPeriod = 2000;
inline constexpr int BandWaitPeriod = 10;
inline constexpr int SearchPeriod = 2000;
inline constexpr int ProbePeriod = 500;
inline constexpr int ClosePeriod = 200;
inline constexpr int StepPeriod = 103;         ///< sweep and spectrum steps with the instrument's receiver
inline constexpr int ExternalStepPeriod = 100; ///< the same with an external receiver
inline constexpr int AnalyserWaitPeriod = 100;
inline constexpr int MarkerPeriod = 300;
inline constexpr int SlowBeepPeriod = 800;
inline constexpr int FastBeepPeriod = 300;
inline constexpr int UnderBeepPeriod = 1500;
inline constexpr int IntervalPeriod = 1000;
inline constexpr int RestartPeriod = 300;

} // namespace qor
