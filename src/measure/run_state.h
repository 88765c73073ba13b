#pragma once

namespace qor {

enum TestMode : int { ModeTwoTone = 1, ModeSweep = 2, ModeSpectrum = 3 };

enum StartOutcome : int { StartDone = 0, StartRefused = 1, StartAsking = 2 };

/// Phases of a sweep; 30 down to 4 is the closing delay.
enum SweepPhase : int {
    PhaseIdle = 0,
    PhaseUp = 1,
    PhaseDown = 2,
    PhaseStepped = 3,
    PhaseDecide = 4,
    PhaseClosing = 30
};

struct RunState {
    bool runOn = false; ///< the start button reads "Halten Messung"
    int g_TestMode = ModeTwoTone;
    int g_StartFail = StartDone;
    bool g_FirstRun = true; ///< a press of the button, not an automatic further run

    // Set-up of the runs.
    bool tagEndless = false;
    int EndlessTimes = 10; ///< 0: without end
    int FinishedEndlessTimes = 0;
    bool g_bReplaceData = false;
    bool g_bSaEnclosed = false;
    int g_SweepInterval = 0; ///< s between sweep runs
    int g_SweepIntervalLeft = 0;
    bool g_bSweepIntervalOk = true;

    // The run in progress.
    int curvepointcounter = 0;
    int ticks = 0; ///< of the 2-tone pass in progress
    int g_SettleTicks = 0;
    int g_SweepPhase = PhaseIdle;
    int stepIndex = 0; ///< of the next step; g_f1Now and g_f2Now follow from it without adding up errors
    float g_f1Now = 0;
    float g_f2Now = 0;
    int passes = 0; ///< passes of the curve completed since the start button
    int g_SweepPause = 0;
    bool g_SweepMarkFirst = false;
    int g_RecvDelay = 0;
};

} // namespace qor
