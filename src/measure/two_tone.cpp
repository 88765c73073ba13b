#include "measure/two_tone.h"

#include "curve/curve.h"
#include "curve/readout.h"
#include "link/commands.h"
#include "link/link_state.h"
#include "measure/run.h"
#include "measure/start_commands.h"
#include "measure/timer_ids.h"
#include "receivers/level_source.h"

#include <cmath>

namespace qor {

namespace {

constexpr float NoPoint = 0; ///< in the place of a level

} // namespace

TwoTone::TwoTone(const RunParts& parts)
    : RunShape(parts), m_Timer(parts.timers, T2messuretimer, [this] { OnTick(); }) {}

void TwoTone::Begin() {
    const RunRecord& record = m_Parts.run.Record();
    const float product = record.Product(record.plan.f1, record.plan.f2);
    m_Parts.readout.ShowTones(record.plan.f1, record.plan.f2);
    m_Parts.readout.ShowIm(product);
    m_Parts.curve.BeginTwoTone(product);
    g_SettleTicks = 0;
    LevelSource& source = m_Parts.sources.Current();
    source.HoldForTones();
    source.ListenAt(std::round(static_cast<double>(product) * 1e6));
    if (!m_Parts.host.ReceiverAnswered())
        return; // before any carrier
    m_Repeated = false;
    BeginPass(StartOfTwoTone(m_Parts.host.Situation()));
}

void TwoTone::Repeat() {
    m_Repeated = true;
    BeginPass(RepeatOfTwoTone(m_Parts.host.Situation()));
}

void TwoTone::BeginPass(const StartCommands& commands) {
    Curve& curve = m_Parts.curve;
    curve.EndPass();
    m_Ticks = m_Spoilt = m_Gaps = 0;
    curve.UpdateTimePerPoint(m_Parts.sources.Current().AnswersOverTheLine());
    Queue(commands);
    m_Timer.Start(curve.TimePerPoint());
    m_Parts.host.FollowCurve();
}

/// Points of a pass. Of a source that answers over the line the first reading only primes it.
int TwoTone::Points() const {
    const Curve& curve = m_Parts.curve;
    return curve.Length() / curve.TimePerPoint() + 1 +
           (m_Parts.sources.Current().AnswersOverTheLine() ? 1 : 0);
}

PassTally TwoTone::Tally() const {
    return {Points(), m_Parts.curve.NextPoint() - m_Gaps};
}

/// Readings that are spoilt make a pass longer, by half at most; without one that is not it ends with as many
/// as its time holds. Those of an external receiver leave their places empty instead. Behind an error reply
/// no level counts any more: the pass then ends by its ticks.
bool TwoTone::TimeIsUp() const {
    const Curve& curve = m_Parts.curve;
    const int points = Points();
    if (curve.tally.HasError())
        return m_Ticks > points;
    const int most = curve.NextPoint() == 0 ? points : points + points / 2;
    return m_Spoilt > 0 && curve.NextPoint() + m_Spoilt >= most;
}

void TwoTone::OnTick() {
    Curve& curve = m_Parts.curve;
    LevelSource& source = m_Parts.sources.Current();
    // The running timer keeps its period until the next start; the count follows at once.
    curve.HoldTimePerPoint(source.AnswersOverTheLine());
    if (curve.NextPoint() >= Points() || TimeIsUp()) {
        m_Parts.host.PassIsOver();
        return;
    }
    ++m_Ticks;
    source.Ask(m_Parts.link.queue, TagLevel, 0);
    const auto reading = source.ReadInTick();
    if (reading && !m_Parts.host.ReceiverAnswered())
        return;
    if (g_SettleTicks < source.SettleMs() / curve.TimePerPoint() + 1) {
        ++g_SettleTicks;
        return;
    }
    if (reading)
        Reply(*reading, TagLevel, 0);
}

void TwoTone::Reply(const Reading& reading, int tag, float) {
    if (!reading.IsLevel()) {
        if (tag == TagLevel && m_Parts.sources.Current().AnswersOverTheLine()) {
            ++m_Spoilt;
        } else if (tag == TagLevel) {
            m_Parts.curve.Add(NoPoint);
            ++m_Gaps;
        }
        return;
    }
    const float level = Corrected(reading);
    if (tag == TagLevel) // the first one of a pass only primes the receiver
        m_Parts.curve.Add(level);
    else if (m_Repeated) // between two passes the carriers stay on, and it is shown: no point, but it was
                         // measured
        m_Parts.curve.tally.Take(level);
    m_Parts.curve.Touch();
    Show(level);
}

void TwoTone::Finish() {
    m_Parts.link.queue.Clear();
    m_Timer.Stop();
    m_Parts.link.queue.Append(command::TwoToneOff);
    m_Parts.link.queue.Append(command::Reflection);
}

void TwoTone::Stop() {
    Finish();
}

} // namespace qor
