// 2-tone: both tones fixed, level against time.
#include "bands/tenths.h"
#include "core/session.h"
#include "core/timer_ids.h"
#include "display/curve_store.h"
#include "measure/measurement.h"
#include "platform/platform.h"
#include "platform/timers.h"
#include "receivers/receiver_access.h"

namespace qor {

namespace {

/// An external receiver needs this long before its readings count.
constexpr int SettleMs = 1600;

} // namespace

void Measurement::OnTwoToneTimer() {
    CurveState& curve = m_Session.curve;
    RunState& run = m_Session.run;
    // The running timer keeps its period until the next start; the count follows at once.
    if (Internal() && curve.RealReceiveTime != 0 && curve.tone2SetTimes < curve.RealReceiveTime)
        curve.tone2SetTimes = curve.RealReceiveTime;
    curve.tone2SetTimes = std::max(curve.tone2SetTimes, 100);
    run.curvepointcounter = curve.g_testTimeMs / curve.tone2SetTimes + 1 + (Internal() ? 1 : 0);
    // After an error reply no level counts any more: the run then ends by its time, as an instrument error.
    const bool timeIsUp = IsInstrumentError(curve.g_MeasVerdict) && run.ticks > run.curvepointcounter;
    if (curve.StoreDataPot >= run.curvepointcounter || timeIsUp) {
        DecideTwoToneEnd();
        return;
    }
    ++run.ticks;
    std::string reading;
    if (Internal())
        m_Session.link.queue.Append("#IMP?", TagLevel);
    else
        reading = m_Receiver.ReadLevel(false);
    RefreshWorstTexts();
    if (run.g_SettleTicks < SettleMs / curve.tone2SetTimes + 1) {
        ++run.g_SettleTicks;
        return;
    }
    if (Internal() || static_cast<std::size_t>(curve.StoreDataPot) >= curve.g_levelUp.size())
        return;
    float& place = curve.g_levelUp[static_cast<std::size_t>(curve.StoreDataPot++)];
    StoreLevel(place, static_cast<float>(NumberIn(reading)));
    curve.g_curveDirty = 1;
    ShowLevel(place);
}

void Measurement::DecideTwoToneEnd() {
    RunState& run = m_Session.run;
    if (run.tagEndless && (run.EndlessTimes == 0 || run.FinishedEndlessTimes < run.EndlessTimes)) {
        SettleCurve();
        if (run.EndlessTimes != 0)
            ++run.FinishedEndlessTimes;
        if (run.g_bReplaceData) {
            StartMeasRepData();
            return;
        }
        ++run.passes;
        if (SaveRepeat() && (run.EndlessTimes == 0 || run.EndlessTimes > run.FinishedEndlessTimes))
            StartMeas();
        return; // the last one ends on the next tick
    }
    CountLastPass();
    m_Session.link.queue.Clear();
    m_Platform.timers.KillTimer(T2messuretimer);
    if (!Internal())
        m_Receiver.VisaIO("INIT:CONT ON");
    m_Session.link.queue.Append("#M2T0");
    SettleCurve();
    m_Session.panel.m_ReadingText = m_Session.panel.m_WorstLevelText;
    m_Session.panel.m_fIM_text = m_Session.panel.m_WorstFreqText;
    m_Session.link.queue.Append("#SMREF");
    CommonFinish();
    SettleVerdict(m_Session.curve);
    m_Platform.timers.KillTimer(CurveTimer);
}

} // namespace qor
