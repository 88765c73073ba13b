// The road of a reading into the curve and onto the panel.
#include "bands/tenths.h"
#include "core/session.h"
#include "core/text_format.h"
#include "display/alarm.h"
#include "display/curve_store.h"
#include "measure/measurement.h"

namespace qor {

void Measurement::LevelReply(std::string_view level) {
    CurveState& curve = m_Session.curve;
    const LinkState& link = m_Session.link;
    switch (link.g_CurTag) {
    case TagLevel:
        if (static_cast<std::size_t>(curve.StoreDataPot) < curve.g_levelUp.size()) {
            const auto at = static_cast<std::size_t>(curve.StoreDataPot++);
            StoreLevel(curve.g_levelUp[at], static_cast<float>(NumberIn(level)));
        }
        break;
    case TagLevelUp:
    case TagLevelDown:
        StoreAtGrid(level, link.g_CurParam, link.g_CurTag == TagLevelDown);
        break;
    default:
        break; // the first reading of a run only primes the receiver
    }
    const PlanState& plan = m_Session.plan;
    curve.g_curveDirty = 1;
    ShowLevel(static_cast<float>(NumberIn(level)) + plan.g_RxLoss + plan.g_BandRxLoss);
    RefreshWorstTexts();
}

/// One reading is one point, always in dBm: raw level plus the two corrections of the run.
void Measurement::StoreLevel(float& place, float level) {
    place = level + m_Session.plan.g_RxLoss + m_Session.plan.g_BandRxLoss;
}

void Measurement::StoreAtGrid(std::string_view level, float frequency, bool down) {
    CurveState& curve = m_Session.curve;
    if (const int at = FindOnGrid(curve, frequency); at >= 0) {
        const auto index = static_cast<std::size_t>(at);
        // The carriers-off run of "Spectrum Analyze Enclosed" has one curve only.
        const bool intoUp = !down || (m_Session.run.g_bSaEnclosed && curve.g_runIndex == 0);
        if (intoUp)
            StoreLevel(curve.g_levelUp[index], static_cast<float>(NumberIn(level)));
        else if (index < curve.g_levelDown.size())
            StoreLevel(curve.g_levelDown[index], static_cast<float>(NumberIn(level)));
    }
    StepPanelTexts(down);
}

void Measurement::ShowLevel(float stored) {
    CurveState& curve = m_Session.curve;
    Panel& panel = m_Session.panel;
    if (panel.m_ReadingText.find(' ') != std::string::npos)
        return; // the frozen text of a run that was stopped
    panel.m_ReadingText.clear();
    AppendFixed(panel.m_ReadingText, curve.g_UnitDbc ? stored - curve.g_CarrierDbm : stored, 1);
    if (NumberIn(panel.m_ReadingText) > NumberIn(curve.g_worstText))
        curve.g_worstText = panel.m_ReadingText;
    LevelShown(m_Session);
}

/// The frequency texts follow the points, not the commands: the queue may run behind the ticks.
void Measurement::StepPanelTexts(bool down) {
    RunState& run = m_Session.run;
    const PlanState& plan = m_Session.plan;
    Panel& panel = m_Session.panel;
    const auto step = static_cast<double>(m_Session.curve.g_SweepStep);
    if (down) {
        panel.m_f1_text = Fixed(plan.g_f1Fix, 1);
        if (run.g_SweepMarkFirst) {
            panel.m_f2_text = Fixed(plan.g_f2Start, 1);
            run.g_SweepMarkFirst = false;
        } else if (const double f2 = NumberIn(panel.m_f2_text);
                   f2 - static_cast<double>(plan.g_f2Stop) > GridTolerance) {
            panel.m_f2_text = Fixed(f2 - step, 1);
        }
    } else if (run.g_SweepMarkFirst) {
        run.g_SweepMarkFirst = false;
    } else if (const double f1 = NumberIn(panel.m_f1_text);
               static_cast<double>(plan.g_f1Stop) - f1 > GridTolerance) {
        panel.m_f1_text = Fixed(f1 + step, 1);
    }
}

void Measurement::RefreshWorstTexts() {
    const CurveState& curve = m_Session.curve;
    Panel& panel = m_Session.panel;
    if (curve.g_worstFreq <= 0)
        return;
    panel.m_WorstFreqText.clear();
    AppendFixed(panel.m_WorstFreqText, curve.g_worstFreq, 1);
    panel.m_WorstLevelText.clear();
    AppendFixed(panel.m_WorstLevelText, curve.g_worstLevel, 1);
}

void Measurement::OnCurveTimer() {
    if (!m_Session.curve.g_curveDirty)
        return;
    m_Session.curve.g_curveDirty = 0;
    UpdateCurveArrays(m_Session.curve, Internal());
    SearchMaxima(m_Session.curve);
}

/// Brings limit check and worst point up to the last reading, which may be younger than the last tick of the
/// curve: the verdict covers every point of the run.
void Measurement::SettleCurve() {
    OnCurveTimer();
    RefreshWorstTexts();
}

} // namespace qor
