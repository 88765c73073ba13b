#pragma once

#include "measure/run_record.h"

#include <utility>

namespace qor {

/// What the operator has set for the runs of a press.
class RunSettings {
public:
    [[nodiscard]] bool IsContinuous() const { return tagEndless; }
    /// Further passes of a continuous measurement; 0: until it is stopped.
    [[nodiscard]] int ContinuousTimes() const { return EndlessTimes; }
    /// A further pass replaces the points of the one before; else each is saved and the plot cleared.
    [[nodiscard]] bool ReplacesData() const { return g_bReplaceData; }
    /// Two sweeps, the first one with the carriers off.
    [[nodiscard]] bool IsSaEnclosed() const { return g_bSaEnclosed; }
    [[nodiscard]] int Interval() const { return g_SweepInterval; } ///< s between the sweeps of a series

    void SetContinuous(bool on) { tagEndless = on; }
    void SetContinuousTimes(int times) { EndlessTimes = times; }
    void SetReplacesData(bool on) { g_bReplaceData = on; }
    void SetSaEnclosed(bool on) { g_bSaEnclosed = on; }
    void SetInterval(int seconds) { g_SweepInterval = seconds; }

private:
    bool tagEndless = false;     ///< continuous measurement
    int EndlessTimes = 10;       ///< 0: without end
    bool g_bReplaceData = false; ///< "Replace data", else "Clear screen"
    bool g_bSaEnclosed = false;  ///< "Spectrum Analyze Enclosed"
    int g_SweepInterval = 0;     ///< s
};

/// What became of the last press of the start button, for whoever presses it in the operator's stead.
enum StartOutcome : int { StartDone = 0, StartRefused = 1, StartAsking = 2 };

/// The runs of one press of the start button: none, asked for, or on.
class Run {
public:
    enum class Wait { None, Contact, Queue };

    [[nodiscard]] bool IsOn() const { return m_On; }
    /// Asked for, and waiting for the instrument or for what is queued.
    [[nodiscard]] bool IsWaiting() const { return m_Wait != Wait::None; }
    [[nodiscard]] bool WaitsForContact() const { return m_Wait == Wait::Contact; }
    [[nodiscard]] int StartFail() const { return g_StartFail; }
    /// The run in progress is the one that the button began, not an automatic further one.
    [[nodiscard]] bool IsFirst() const { return g_FirstRun; }
    [[nodiscard]] int Passes() const { return m_Passes; } ///< of the curve, completed since the press
    /// The carriers rest between two sweeps of a series.
    [[nodiscard]] bool IsInPause() const { return !g_bSweepIntervalOk; }
    [[nodiscard]] int PauseLeft() const { return g_SweepIntervalLeft; } ///< s
    /// Further passes of a continuous measurement that have been begun.
    [[nodiscard]] int FinishedTimes() const { return FinishedEndlessTimes; }
    /// What is measured, or was measured last.
    [[nodiscard]] const RunRecord& Record() const { return m_Record; }

    void Press(const RunSettings& settings) {
        g_FirstRun = true;
        FinishedEndlessTimes = 0;
        m_Passes = 0;
        ResetPause(settings);
    }
    void Refuse() {
        m_Wait = Wait::None;
        g_StartFail = StartRefused;
    }
    void Ask() { g_StartFail = StartAsking; }
    void WaitFor(Wait what) {
        m_Wait = what;
        g_StartFail = StartDone;
    }
    void DropWait() { m_Wait = Wait::None; }
    void Begin(RunRecord record) {
        m_Record = std::move(record);
        m_Wait = Wait::None;
        g_StartFail = StartDone;
        m_On = true;
    }
    void End() { m_On = false; }
    void CountPass() { ++m_Passes; }
    /// A further run of the same press begins.
    void GoOn() { g_FirstRun = false; }
    /// Counts a further pass of a continuous measurement; false when it has had all of them.
    [[nodiscard]] bool CountFurther(const RunSettings& settings) {
        if (!HasFurther(settings))
            return false;
        if (settings.ContinuousTimes() != 0)
            ++FinishedEndlessTimes;
        return true;
    }
    [[nodiscard]] bool HasFurther(const RunSettings& settings) const {
        return settings.ContinuousTimes() == 0 || settings.ContinuousTimes() > FinishedEndlessTimes;
    }

    void BeginPause() { g_bSweepIntervalOk = false; }
    /// A second of the pause; true when it is over.
    [[nodiscard]] bool CountPause() { return g_SweepIntervalLeft-- <= 0; }
    void ResetPause(const RunSettings& settings) {
        g_bSweepIntervalOk = true;
        g_SweepIntervalLeft = settings.Interval();
    }

private:
    bool m_On = false; ///< the start button reads "Halten Messung"
    Wait m_Wait = Wait::None;
    int g_StartFail = StartDone;
    bool g_FirstRun = true;       ///< the first run of a press sends what goes once
    int FinishedEndlessTimes = 0; ///< of EndlessTimes
    int m_Passes = 0;
    int g_SweepIntervalLeft = 0;    ///< s
    bool g_bSweepIntervalOk = true; ///< no pause is in progress
    RunRecord m_Record;
};

} // namespace qor
