#include "measure/sweep.h"

#include "bands/inter_band.h"
#include "curve/curve.h"
#include "curve/readout.h"
#include "link/commands.h"
#include "link/firmware.h"
#include "link/link_state.h"
#include "measure/run.h"
#include "measure/timer_ids.h"
#include "receivers/level_source.h"

namespace qor {

namespace {

/// Ticks of the rest between the two halves.
constexpr int RestCarriersOff = 0;
constexpr int RestNameHalf = 6;
constexpr int RestCarriersOn = 12;
constexpr int RestOver = 15;
/// Of a further pass, an external receiver is waited for one tick.
constexpr int WaitedForRepeat = 2;

/// Tone 2 of a step of the falling half, and whether the half has such a step.
float F2At(const FrequencyPlan& plan, int step) {
    return plan.f2Start - static_cast<float>(step) * plan.step;
}
bool FallsTo(const FrequencyPlan& plan, int step) {
    return static_cast<double>(F2At(plan, step) - plan.f2Stop) > -GridTolerance;
}

} // namespace

Sweep::Sweep(const RunParts& parts) : SteppedShape(parts, sweeptimer, analyzerwaittimer) {}

void Sweep::Begin() {
    const RunRecord& record = m_Parts.run.Record();
    m_Parts.readout.ShowTones(record.plan.f1Start, record.plan.f2Fix);
    if (record.interBand.empty())
        BuildSweepGrid(m_Parts.curve, record.band, record.product, record.plan);
    else
        m_Parts.curve.SetGrid(InterBandGrid(record.order, record.interBand, record.plan.step),
                              record.plan.step);
    Expect(Steps());
    m_Parts.curve.BeginSweep();
    g_SweepPause = 0;
    BeginPass(StartOfSweep(m_Parts.host.Situation()), 0);
}

void Sweep::Repeat() {
    m_Parts.curve.EndPass();
    g_SweepPause = 0;
    BeginPass(RepeatOfSweep(m_Parts.host.Situation()), WaitedForRepeat);
}

/// Both halves; the first step of each is asked for wherever it lies.
std::vector<SteppedShape::Step> Sweep::Steps() const {
    const RunRecord& record = m_Parts.run.Record();
    const FrequencyPlan& plan = record.plan;
    std::vector<Step> steps{{record.Product(plan.f1Start, plan.f2Fix), false}};
    for (int k = 1; RisesTo(plan, k); ++k)
        steps.push_back({record.Product(F1At(plan, k), plan.f2Fix), false});
    steps.push_back({record.Product(plan.f1Fix, plan.f2Start), true});
    for (int k = 1; FallsTo(plan, k); ++k)
        steps.push_back({record.Product(plan.f1Fix, F2At(plan, k)), true});
    return steps;
}

void Sweep::NextStep() {
    const RunRecord& record = m_Parts.run.Record();
    const FrequencyPlan& plan = record.plan;
    if (m_Stage == Stage::Up) {
        if (RisesTo(plan, m_Step)) {
            const float f1 = F1At(plan, m_Step++);
            QueueStep(command::Frequency1, f1, TagStepUp, record.Product(f1, plan.f2Fix));
        } else if (!RestsBetweenHalves(m_Parts.link.identity.Firmware()) || !RestBetweenHalves()) {
            TurnToFallingHalf();
        }
    } else if (FallsTo(plan, m_Step)) {
        const float f2 = F2At(plan, m_Step++);
        QueueStep(command::Frequency2, f2, TagStepDown, record.Product(plan.f1Fix, f2));
    } else {
        StopStepping();
    }
}

/// True while the carriers rest between the two halves.
bool Sweep::RestBetweenHalves() {
    CommandQueue& queue = m_Parts.link.queue;
    switch (g_SweepPause) {
    case RestCarriersOff:
        queue.Append(command::Tone1Off);
        queue.Append(command::Tone2Off);
        break;
    case RestNameHalf:
        queue.Append(command::DownHalf);
        break;
    case RestCarriersOn:
        queue.Append(command::Tone1On);
        queue.Append(command::Tone2On);
        break;
    case RestOver:
        g_SweepPause = 0;
        return false;
    default:
        break;
    }
    ++g_SweepPause;
    return true;
}

void Sweep::TurnToFallingHalf() {
    const RunRecord& record = m_Parts.run.Record();
    const FrequencyPlan& plan = record.plan;
    const float firmware = m_Parts.link.identity.Firmware();
    CommandQueue& queue = m_Parts.link.queue;
    m_Stage = Stage::Down;
    if (SelectsHalvesInPairs(firmware)) {
        queue.Append(command::DownHalf);
        queue.Append(command::UpHalfOff);
    } else if (m_Parts.sources.Current().AnswersOverTheLine() && SelectsHalves(firmware)) {
        queue.Append(command::DownHalf);
    }
    queue.Append(WithTenths(command::Frequency1, static_cast<double>(plan.f1Fix)));
    g_SweepMarkFirst = true;
    m_Step = 1;
    QueueStep(command::Frequency2, plan.f2Start, TagStepDown, record.Product(plan.f1Fix, plan.f2Start));
}

void Sweep::QueueCarriersOff() {
    for (const std::string_view text : {command::SweepOff, command::Tone1Off, command::Tone2Off})
        m_Parts.link.queue.Append(text);
}

} // namespace qor
