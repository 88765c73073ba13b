// What comes behind a start: further passes and runs, and the ways in which a measurement ends.
#include "measure/measurement.h"

#include "base/setup_store.h"
#include "curve/curve.h"
#include "curve/readout.h"
#include "link/channel.h"
#include "link/commands.h"
#include "link/link_state.h"
#include "link/working_set.h"
#include "measure/timer_ids.h"
#include "platform/platform.h"
#include "platform/serial_control.h"
#include "receivers/level_source.h"

namespace qor {

Measurement::Measurement(const MeasurementRooms& rooms, const Platform& platform, SetupStore& store,
                         Channel& channel, InstrumentSelection& instrument, RunEvents& events)
    : m_Rooms(rooms), m_Platform(platform), m_Store(store), m_Channel(channel), m_Instrument(instrument),
      m_Events(events), m_CurveTimer(platform.timers, CurveTimer, [this] { FollowPoints(); }),
      m_IntervalTimer(platform.timers, intervaltimer, [this] { OnIntervalTimer(); }),
      m_RestartTimer(platform.timers, restarttimer, [this] { OnRestartTimer(); }), m_TwoTone(PartsOfShape()),
      m_Sweep(PartsOfShape()), m_Spectrum(PartsOfShape()),
      m_ReadBack(PartsOfShape(), store.Directory(), platform.clock), m_Shape(&m_TwoTone) {}

RunParts Measurement::PartsOfShape() {
    return {*this,         m_Rooms.run,     m_Rooms.settings, m_Rooms.link,
            m_Rooms.curve, m_Rooms.readout, m_Rooms.sources,  m_Platform.timers};
}

void Measurement::Reply(const Reading& reading) {
    if (m_Rooms.run.IsOn())
        m_Shape->Reply(reading, m_Rooms.link.transaction.Tag(), m_Rooms.link.transaction.Param());
}

void Measurement::BeforeSend() {
    if (m_Rooms.run.IsOn())
        m_Shape->BeforeSend();
}

void Measurement::LineIdle() {
    if (m_Rooms.run.IsOn())
        m_Shape->Idle();
    else if (m_Rooms.link.queue.Empty() && m_Rooms.link.transaction.IsIdle())
        ReleaseReceiver();
}

/// Behind the off commands: a receiver that does not answer takes its time.
void Measurement::ReleaseReceiver() {
    LevelSource& source = m_Rooms.sources.Current();
    if (!source.IsHeld())
        return;
    source.Release();
    m_Events.ReceiverIsReleased();
}

void Measurement::FollowCurve() {
    m_CurveTimer.Start(CurvePeriod);
}

void Measurement::FollowPoints() {
    if (m_Rooms.curve.Follow(m_Rooms.sources.Current().AnswersOverTheLine()))
        m_Rooms.curve.SearchMaxima();
}

void Measurement::PassIsOver() {
    FollowPoints();
    if (m_Shape == &m_ReadBack)
        NextReadBackLevel();
    else if (m_Shape == &m_Spectrum)
        RepeatPass();
    else if (m_Rooms.settings.IsContinuous() && m_Rooms.run.CountFurther(m_Rooms.settings))
        BeginFurtherPass();
    else if (m_Shape == &m_Sweep && HasFurtherSweep())
        BeginFurtherSweep();
    else
        EndRun();
}

/// A receiver that is lost ends everything that was asked for; a stop that came while it was waited for is
/// carried out now.
bool Measurement::ReceiverAnswered() {
    const LevelSource& source = m_Rooms.sources.Current();
    if (source.IsBrokenOff())
        EndWithin(m_CallEndsAs);
    else if (source.IsLost())
        EndWithin(RunEnd::CutShort);
    return m_Rooms.run.IsOn();
}

void Measurement::EndWithFault(const Outcome& fault) {
    EndWithin(RunEnd::CutShort);
    m_Events.Tell(fault);
}

bool Measurement::HoldsLine() const {
    return m_Rooms.run.IsOn() && m_Shape == &m_ReadBack && m_ReadBack.HoldsLine();
}

/// A read-back run goes through its levels, however the operator's runs repeat.
void Measurement::NextReadBackLevel() {
    if (!m_ReadBack.HasFurtherLevel()) {
        EndRun();
        return;
    }
    CountPass();
    m_Rooms.run.GoOn();
    m_Rooms.curve.EndRun();
    m_ReadBack.NextLevel();
}

bool Measurement::IsContinuous() const {
    return m_Rooms.settings.IsContinuous() && m_Shape != &m_ReadBack;
}

std::optional<float> Measurement::WorstAsShown() const {
    const auto worst = m_Rooms.curve.WorstLevel();
    return worst && m_Rooms.curve.powers.IsOn() ? *worst + CalibrationDisplay::Shift : worst;
}

void Measurement::RepeatPass() {
    CountPass();
    m_Shape->Repeat();
}

void Measurement::CountPass() {
    m_Rooms.run.CountPass();
    m_Rooms.curve.tally.Count(m_Shape->Tally());
}

/// A continuous measurement goes on: over the points in the plot, or, saved, from an empty one. The last one
/// that is saved ends with the next tick.
void Measurement::BeginFurtherPass() {
    Run& run = m_Rooms.run;
    if (m_Rooms.settings.ReplacesData()) {
        RepeatPass();
        return;
    }
    CountPass();
    run.GoOn();
    if (!m_Events.SaveNumbered())
        EndRun();
    else if (run.HasFurther(m_Rooms.settings))
        BeginFurtherRun();
}

bool Measurement::HasFurtherSweep() const {
    const Curve& curve = m_Rooms.curve;
    return !IsContinuous() && curve.Runs() > curve.Run() + 1;
}

void Measurement::BeginFurtherSweep() {
    if (m_Rooms.run.IsInPause())
        return;
    if (m_Rooms.settings.Interval() == 0) {
        NextSweep();
        return;
    }
    for (const std::string_view text : {command::SweepOff, command::Tone1Off, command::Tone2Off})
        m_Rooms.link.queue.Append(text);
    m_Rooms.run.BeginPause();
    m_IntervalTimer.Start(IntervalPeriod);
}

void Measurement::OnIntervalTimer() {
    if (!m_Rooms.run.CountPause())
        return;
    m_IntervalTimer.Stop();
    m_Rooms.run.ResetPause(m_Rooms.settings);
    NextSweep();
}

void Measurement::NextSweep() {
    CountPass();
    m_Rooms.run.GoOn();
    m_Rooms.curve.EndRun();
    BeginFurtherRun();
}

void Measurement::BeginFurtherRun() {
    if (const StartAnswer answer = BeginRun(); !answer.outcome) {
        Abandon(); // what is in force can be measured no more
        m_Events.Tell(answer.outcome);
    }
}

/// The measurement has ended by itself.
void Measurement::EndRun() {
    if (!IsContinuous() || m_Rooms.settings.ReplacesData())
        CountPass(); // its numbered file has counted it otherwise
    m_Shape->Finish();
    m_Rooms.run.End();
    m_Rooms.curve.tally.EndByItself();
    m_Rooms.readout.EndWith(WorstAsShown());
    GoIdle();
}

void Measurement::Stop() {
    if (m_Rooms.run.IsOn())
        EndWithin(RunEnd::Stopped);
}

void Measurement::EndWithin(RunEnd how) {
    const bool repeats = m_Shape == &m_Spectrum || IsContinuous();
    const int runsLeft = HasFurtherSweep() ? m_Rooms.curve.Runs() - m_Rooms.curve.Run() - 1 : 0;
    m_Rooms.link.queue.Clear();
    m_IntervalTimer.Stop();
    m_Rooms.run.ResetPause(m_Rooms.settings);
    m_Rooms.run.End();
    m_Rooms.curve.tally.EndWithin(how, m_Shape->Tally(),
                                  m_Shape == &m_Sweep || m_Shape == &m_ReadBack ? runsLeft : 0, repeats);
    m_Shape->Stop();
    FollowPoints();
    m_Rooms.readout.FreezeAt(WorstAsShown());
    GoIdle();
}

/// The same after every way a run ends: its worst point is shown, the idle link is watched.
void Measurement::GoIdle() {
    if (const auto worst = WorstFrequency(m_Rooms.curve))
        m_Rooms.readout.ShowIm(*worst);
    m_CurveTimer.Stop();
    if (!m_Platform.comm.GetPortOpen())
        ReleaseReceiver(); // nothing more can be told to the instrument
    m_Events.RunIsOver();
    m_Channel.ArmStatusPoll();
    m_Channel.ExpectLevels(false);
}

void Measurement::Abandon() {
    m_Rooms.run.DropWait();
    m_RestartTimer.Stop();
    if (m_Rooms.run.IsOn())
        EndWithin(RunEnd::CutShort);
    else
        m_Events.RunIsOver(); // of a run that waited for its turn
}

void Measurement::DropStart() {
    if (m_Rooms.run.IsOn())
        return;
    Abandon();
    if (IsInitialised(m_Rooms.link))
        m_Channel.ArmStatusPoll();
}

} // namespace qor
