#include "measure/spectrum.h"

#include "curve/curve.h"
#include "curve/readout.h"
#include "link/commands.h"
#include "link/link_state.h"
#include "measure/run.h"
#include "measure/timer_ids.h"
#include "receivers/level_source.h"

namespace qor {

namespace {

/// Of a further pass, an external receiver is waited for one tick.
constexpr int WaitedForRepeat = 2;

} // namespace

Spectrum::Spectrum(const RunParts& parts) : SteppedShape(parts, spectrumtimer, spectrumwaittimer) {}

void Spectrum::Begin() {
    const RunRecord& record = m_Parts.run.Record();
    m_Parts.readout.ShowTones(record.plan.f1Start, record.plan.f2Fix);
    BuildSpectrumGrid(m_Parts.curve, record.band, record.plan);
    std::vector<Step> steps{{record.Product(record.plan.f1Start, record.plan.f2Fix), false}};
    for (int k = 1; RisesTo(record.plan, k); ++k)
        steps.push_back({record.Product(F1At(record.plan, k), record.plan.f2Fix), false});
    Expect(steps);
    m_Parts.curve.BeginSweep();
    BeginPass(StartOfSpectrum(m_Parts.host.Situation()), 0);
}

void Spectrum::Repeat() {
    m_Parts.curve.EndPass();
    BeginPass(RepeatOfSpectrum(m_Parts.host.Situation()), WaitedForRepeat);
}

void Spectrum::Stop() {
    SteppedShape::Stop();
    // The receiver listens at IM3; the next run may be of the operator's order.
    const int imIndex = m_Parts.run.Record().imIndex;
    if (imIndex > 1 && m_Parts.sources.Current().AnswersOverTheLine())
        m_Parts.link.queue.Append(UseReceiver(imIndex));
}

void Spectrum::NextStep() {
    const RunRecord& record = m_Parts.run.Record();
    if (RisesTo(record.plan, m_Step)) {
        const float f1 = F1At(record.plan, m_Step++);
        QueueStep(command::Frequency1, f1, TagStepUp, record.Product(f1, record.plan.f2Fix));
        return;
    }
    QueueStep(command::Frequency1, record.plan.f1Fix, TagPlain, 0); // its reading stores nothing
    g_SweepMarkFirst = true;
    StopStepping();
}

} // namespace qor
