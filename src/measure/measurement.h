#pragma once

#include "base/outcome.h"
#include "measure/read_back.h"
#include "measure/run.h"
#include "measure/run_shape.h"
#include "measure/spectrum.h"
#include "measure/sweep.h"
#include "measure/two_tone.h"
#include "platform/timers.h"

#include <string_view>

namespace qor {

class Channel;
class InstrumentSelection;
class InterBandMode;
class SetupStore;
class WorkingSet;
struct BandInfo;
struct Platform;

/// What became of a press of the start button. A start that is not done needs nothing more, or first the
/// answer of the operator: a connection, or frequencies for the band.
struct StartAnswer {
    enum class Needs { Nothing, Connection, InterBandPlan };

    Outcome outcome = Outcome::Done();
    Needs needs = Needs::Nothing;
};

/// What a run asks of whoever stands above it.
class RunEvents {
public:
    RunEvents() = default;
    RunEvents(const RunEvents&) = delete;
    RunEvents& operator=(const RunEvents&) = delete;
    virtual ~RunEvents() = default;

    /// What a start has to say that nobody waits for: it could not begin, or its run will have no verdict.
    virtual void Tell(const Outcome& outcome) = 0;
    /// The first run of a press begins: the last result goes, and what it has set aside comes back in force.
    virtual void RunBegins() = 0;
    /// Saves the pass just over as the next numbered file of the series. False when it cannot be written.
    virtual bool SaveNumbered() = 0;
    /// The beeper: readings will come, one is shown, none come any more.
    virtual void RunIsAskedFor() = 0;
    virtual void LevelIsShown() = 0;
    virtual void RunIsOver() = 0;
    /// The external receiver was told that the run is over; it may not have taken it.
    virtual void ReceiverIsReleased() = 0;
};

/// The states that a measurement reads and writes.
struct MeasurementRooms {
    Run& run;
    const RunSettings& settings;
    WorkingSet& working;
    const InterBandMode& interBand;
    LinkState& link;
    Curve& curve;
    Readout& readout;
    LevelSources& sources;
};

/// A run from the press of the start button to its end or stop. Everything happens in timer ticks and level
/// replies; the curve is drawn by whoever shows it.
///
/// start.cpp is the road from the button to the first command; measurement.cpp holds what comes afterwards,
/// the further passes and the ways to end. A shape (run_shape.h) measures one pass.
class Measurement final : private RunHost {
public:
    Measurement(const MeasurementRooms& rooms, const Platform& platform, SetupStore& store, Channel& channel,
                InstrumentSelection& instrument, RunEvents& events);

    /// The start button with no run on. A start that is refused leaves the curve and its verdict.
    [[nodiscard]] StartAnswer Start();
    /// The operator has had the port connected: the run begins once the instrument is ready.
    void StartOnceConnected();
    /// The operator does not want what the start needs, or it was not to be had.
    void GiveUpStart();
    /// Reads back what a power calibration has written. The plan fits the tables, the instrument is ready,
    /// and an external receiver is in use. Refused when that is not there.
    [[nodiscard]] Outcome StartReadBack(const CalibrationPlan& plan);
    /// Nothing goes out at present.
    [[nodiscard]] bool HoldsLine() const;
    /// The start button with a run on.
    void Stop();
    /// The call to a receiver under way is given up: so the run that it belongs to ends.
    void EndCallAs(RunEnd how) { m_CallEndsAs = how; }
    /// A run that was asked for and waits for the instrument or its turn does not begin.
    void DropStart();

    /// The instrument is ready: begins a run that waits for it.
    void InstrumentIsReady();
    /// Ends a run whose instrument is gone, and drops one that waits; neither counts as passed.
    void Abandon();

    void Reply(const Reading& reading); ///< a level of the instrument, to the command last sent
    void BeforeSend();                  ///< the head of the queue is about to go out
    void LineIdle();                    ///< a send tick that sends nothing

private:
    // The start, in start.cpp.
    void ClearForPress();
    [[nodiscard]] StartAnswer Begin();
    [[nodiscard]] StartAnswer BringToInstrument();
    [[nodiscard]] StartAnswer BeginFirstRun();
    [[nodiscard]] StartAnswer GoBackToIdle(StartAnswer answer);
    [[nodiscard]] bool InstrumentDiffers() const;
    [[nodiscard]] StartAnswer BeginRun();
    [[nodiscard]] StartAnswer TakeRecord(RunRecord& record);
    void TakeCorrections(RunRecord& record) const;
    [[nodiscard]] bool CannotJudge(const RunRecord& record) const;
    [[nodiscard]] Outcome TakePlan(const BandInfo& band, RunRecord& record);
    [[nodiscard]] Outcome Refuse(const char* words);
    [[nodiscard]] std::string_view BandCommand() const;
    [[nodiscard]] RunShape* ShapeOf(int method);
    void OnRestartTimer();

    [[nodiscard]] RunParts PartsOfShape();
    void FollowPoints();
    void RepeatPass();
    void BeginFurtherPass();
    [[nodiscard]] bool HasFurtherSweep() const;
    void BeginFurtherSweep();
    void OnIntervalTimer();
    void NextSweep();
    void NextReadBackLevel();
    [[nodiscard]] bool IsContinuous() const;
    [[nodiscard]] std::optional<float> WorstAsShown() const;
    void BeginFurtherRun();
    void ReleaseReceiver();
    void EndRun();
    void EndWithin(RunEnd how);
    void CountPass();
    void GoIdle();

    StartSituation Situation() const override;
    void FollowCurve() override;
    void LevelShown() override { m_Events.LevelIsShown(); }
    bool ReceiverAnswered() override;
    void EndWithFault(const Outcome& fault) override;
    void PassIsOver() override;

    MeasurementRooms m_Rooms;
    const Platform& m_Platform;
    SetupStore& m_Store;
    Channel& m_Channel;
    InstrumentSelection& m_Instrument;
    RunEvents& m_Events;
    Timer m_CurveTimer;
    Timer m_IntervalTimer;
    Timer m_RestartTimer;
    TwoTone m_TwoTone;
    Sweep m_Sweep;
    Spectrum m_Spectrum;
    ReadBack m_ReadBack;
    RunEnd m_CallEndsAs = RunEnd::Stopped;
    int m_Tells = 0;   ///< times that this start has told the instrument what is in force
    RunShape* m_Shape; ///< of the run in progress, or of the last one
};

} // namespace qor
