#include "measure/stepped_shape.h"

#include "base/tenths.h"
#include "base/text_format.h"
#include "curve/curve.h"
#include "curve/readout.h"
#include "link/commands.h"
#include "link/link_state.h"
#include "measure/run.h"
#include "measure/timer_ids.h"
#include "receivers/level_source.h"

#include <algorithm>
#include <array>
#include <span>

namespace qor {

namespace {

/// Tick of the wait for an external receiver that sets it up.
constexpr int ReceiverReady = 3;
/// A spoilt reading is asked for again so many times, with the tones where they are.
constexpr int MostRetries = 3;
/// Send ticks between the last commands of a pass and its end.
constexpr int ClosingTicks = 26;
/// No tick queues more than this.
constexpr std::size_t MostPerTick = 8;

/// A line much slower than the ticks fills the queue in a long sweep: the steps wait then, they are not lost.
bool HasRoom(const CommandQueue& queue) {
    return queue.CommSendPoint() + MostPerTick <= CommandQueue::Capacity;
}

} // namespace

SteppedShape::SteppedShape(const RunParts& parts, int stepTimer, int waitTimer)
    : RunShape(parts), m_StepTimer(parts.timers, stepTimer, [this] { OnStepTick(); }),
      m_WaitTimer(parts.timers, waitTimer, [this] { OnWaitTick(); }) {}

float SteppedShape::F1At(const FrequencyPlan& plan, int step) {
    return plan.f1Start + static_cast<float>(step) * plan.step;
}

bool SteppedShape::RisesTo(const FrequencyPlan& plan, int step) {
    return static_cast<double>(F1At(plan, step) - plan.f1Stop) < GridTolerance;
}

bool SteppedShape::IntoDown(bool down) const {
    // The carriers-off run of "Spectrum Analyze Enclosed" has one curve only.
    return down && !(m_Parts.settings.IsSaEnclosed() && m_Parts.curve.Run() == 0);
}

void SteppedShape::Expect(const std::vector<Step>& steps) {
    Curve& curve = m_Parts.curve;
    std::array<float, CurvePoints> grid{};
    std::size_t length = curve.Steps();
    std::copy_n(curve.Grid().begin(), length, grid.begin());
    for (const Step& step : steps)
        length = InsertIntoGrid(grid, length, step.product);
    if (length != curve.Steps())
        curve.SetGrid(std::span(grid).first(length), curve.SweepStep());
    m_Asked.reset();
    m_Placeless = 0;
    for (const Step& step : steps) {
        if (const int at = curve.Find(step.product); at >= 0)
            m_Asked.set(static_cast<std::size_t>(at) + (IntoDown(step.down) ? CurvePoints : 0));
        else
            ++m_Placeless;
    }
}

PassTally SteppedShape::Tally() const {
    return {static_cast<int>(m_Asked.count()) + m_Placeless, static_cast<int>((m_Taken & m_Asked).count())};
}

void SteppedShape::BeginSteps(const StartCommands& commands, int period) {
    BeginUpHalf(commands);
    m_StepTimer.Start(period);
    m_Parts.host.FollowCurve();
}

void SteppedShape::BeginUpHalf(const StartCommands& commands) {
    Queue(commands);
    m_Stage = Stage::Up;
    m_Step = 1;
    m_Taken.reset();
    m_Retries = 0;
    g_SweepMarkFirst = false;
}

void SteppedShape::BeginPass(const StartCommands& commands, int ticksWaited) {
    BeginUpHalf(commands);
    m_Parts.readout.ShowIm(FirstProduct(m_Parts.host.Situation()));
    const LevelSource& source = m_Parts.sources.Current();
    if (source.AnswersOverTheLine()) {
        m_StepTimer.Start(source.StepPeriod());
        m_Parts.host.FollowCurve();
    } else {
        g_RecvDelay = ticksWaited;
        m_WaitTimer.Start(AnalyserWaitPeriod);
    }
}

void SteppedShape::OnWaitTick() {
    if (++g_RecvDelay < ReceiverReady)
        return;
    m_WaitTimer.Stop();
    LevelSource& source = m_Parts.sources.Current();
    source.PrepareForSteps();
    if (!m_Parts.host.ReceiverAnswered())
        return;
    m_StepTimer.Start(source.StepPeriod());
    m_Parts.host.FollowCurve();
}

void SteppedShape::OnStepTick() {
    if ((m_Stage == Stage::Up || m_Stage == Stage::Down) && HasRoom(m_Parts.link.queue))
        NextStep();
}

void SteppedShape::QueueStep(std::string_view command, float frequency, int tag, float product) {
    CommandQueue& queue = m_Parts.link.queue;
    queue.Append(WithTenths(command, static_cast<double>(frequency)), tag, product);
    m_Parts.sources.Current().Ask(queue, tag + 10, product);
}

void SteppedShape::StopStepping() {
    m_StepTimer.Stop();
    m_Stage = Stage::Stepped;
}

void SteppedShape::Reply(const Reading& reading, int tag, float product) {
    if (tag == TagLevelUp || tag == TagLevelDown) {
        // Behind an error reply no level counts any more.
        if (!reading.IsLevel() && m_Retries < MostRetries && !m_Parts.curve.tally.HasError()) {
            ++m_Retries;
            m_Parts.sources.Current().AskAgain(m_Parts.link.queue, tag, product);
            return;
        }
        m_Retries = 0;
        Store(reading, product, tag == TagLevelDown);
    }
    if (!reading.IsLevel())
        return;
    m_Parts.curve.Touch();
    ShowKept(Kept(reading));
}

/// An external receiver is read just before the command that ends the step goes out, and tuned just before
/// the one that begins the next.
void SteppedShape::BeforeSend() {
    LinkState& link = m_Parts.link;
    LevelSource& source = m_Parts.sources.Current();
    const bool ofStep = link.transaction.Tag() == TagStepUp || link.transaction.Tag() == TagStepDown;
    if (link.transaction.Param() > 0 && ofStep && m_Parts.curve.Find(link.transaction.Param()) >= 0) {
        auto reading = source.ReadInStep();
        // One that did not come is not asked for again: that has taken long enough.
        for (int retries = 0; reading && reading->IsSpoilt() && retries < MostRetries; ++retries)
            reading = source.ReadInStep();
        if (reading) {
            if (!m_Parts.host.ReceiverAnswered())
                return;
            m_Retries = MostRetries;
            Reply(*reading, link.transaction.Tag() + 10, link.transaction.Param());
        }
    }
    const float next = link.queue.Head().param;
    if (next > 0) {
        m_Parts.readout.ShowIm(static_cast<double>(next));
        source.Tune(NumberIn(Fixed(static_cast<double>(next), 1)) * 1e6);
        static_cast<void>(m_Parts.host.ReceiverAnswered());
    }
}

void SteppedShape::Store(const Reading& reading, float product, bool down) {
    const int at = m_Parts.curve.Find(product);
    if (at >= 0 && reading.IsLevel()) {
        const auto place = static_cast<std::size_t>(at);
        const bool intoDown = IntoDown(down);
        const float level = Kept(reading);
        m_Parts.curve.Put(place, level, intoDown ? CurveSide::Down : CurveSide::Up);
        m_Taken.set(place + (intoDown ? CurvePoints : 0));
        Stored(product, level, down);
    }
    TonesMoved(product, down);
}

void SteppedShape::TonesMoved(float /*product*/, bool down) {
    const FrequencyPlan& plan = m_Parts.run.Record().plan;
    const auto step = static_cast<double>(plan.step);
    Readout& readout = m_Parts.readout;
    if (down) {
        readout.ShowF1(static_cast<double>(plan.f1Fix));
        const double f2 = readout.F2().value_or(0);
        if (g_SweepMarkFirst)
            readout.ShowF2(static_cast<double>(plan.f2Start));
        else if (f2 - static_cast<double>(plan.f2Stop) > GridTolerance)
            readout.ShowF2(f2 - step);
    } else if (!g_SweepMarkFirst) {
        const double f1 = readout.F1().value_or(0);
        if (static_cast<double>(plan.f1Stop) - f1 > GridTolerance)
            readout.ShowF1(f1 + step);
    }
    g_SweepMarkFirst = false;
}

void SteppedShape::Idle() {
    switch (m_Stage) {
    case Stage::Stepped:
        // A slow line may still owe the last level when the closing is over.
        if (m_Parts.link.queue.Empty() && m_Parts.link.transaction.IsIdle())
            CloseLine();
        return;
    case Stage::Closing:
        if (++m_ClosingTicks == ClosingTicks) {
            m_Parts.sources.Current().Release();
            m_Stage = Stage::Over;
        }
        return;
    case Stage::Over:
        m_Parts.readout.ShowF2(static_cast<double>(m_Parts.run.Record().plan.f2Fix));
        m_Parts.host.PassIsOver();
        return;
    default:
        return;
    }
}

bool SteppedShape::IsLastPass() const {
    return m_Parts.curve.Runs() == m_Parts.curve.Run() + 1 && !m_Parts.settings.IsContinuous();
}

void SteppedShape::CloseLine() {
    CommandQueue& queue = m_Parts.link.queue;
    if (IsLastPass())
        for (const std::string_view text : {command::Tone1Off, command::Tone2Off, command::SweepOff})
            queue.Append(text);
    queue.Append(WithTenths(command::Frequency2, static_cast<double>(m_Parts.run.Record().plan.f2Fix)));
    m_Stage = Stage::Closing;
    m_ClosingTicks = 0;
}

void SteppedShape::Finish() {
    m_Stage = Stage::None;
    for (const std::string_view text : {command::Reflection, command::Tone1Off, command::Tone2Off})
        m_Parts.link.queue.Append(text);
}

void SteppedShape::Stop() {
    m_StepTimer.Stop();
    m_WaitTimer.Stop();
    m_Stage = Stage::None;
    m_Parts.link.transaction.ForgetStep(); // an external receiver is not read any more for the step under way
    const FrequencyPlan& plan = m_Parts.run.Record().plan;
    m_Parts.readout.ShowTones(static_cast<double>(plan.f1Fix), static_cast<double>(plan.f2Fix));
    QueueCarriersOff();
    m_Parts.link.queue.Append(command::Reflection);
}

} // namespace qor
