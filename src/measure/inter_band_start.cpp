// The start of a run whose product lies in the receive band of another band.
#include "bands/catalogue.h"
#include "bands/working_plan.h"
#include "core/dialogs.h"
#include "core/session.h"
#include "measure/inter_band.h"
#include "measure/measurement.h"
#include "platform/operator.h"
#include "platform/platform.h"

namespace qor {

void Measurement::StartMeasInterBand() {
    const InterBandState& state = m_Session.interBand;
    PlanState& plan = m_Session.plan;
    FillFixedReportTexts();
    if (!TakePath())
        return;
    const int number = m_Session.select.m_BandId;
    const BandInfo* band = TakeBand(InterBandChoiceOf(number) ? FindBand(number) : nullptr);
    if (!band)
        return;
    if (!InterBandFits(state, number)) {
        AskForInterBand();
        return;
    }
    SetWorkingPlan(m_Session, state.plan);
    const ImCoefficients c = InterBandCoefficients(InterBandOrder(state));
    plan.g_IMCoefHigh = c.high;
    plan.g_IMCoefLow = c.low;
    // A result shown since, or a band that knows one order only, has put another order there.
    m_Session.select.m_IMIndex = InterBandIndex;
    m_Session.panel.m_IM_sel = InterBandText(state);
    TakePower(band->prefix);
    FillBandReport(*band, m_Session.panel.m_IM_sel);
    StartShape(false);
}

/// The frequencies were set for another carrier band: the operator sets them anew, or switches the mode off,
/// and the start button acts once more. Left as they are, there is no start.
void Measurement::AskForInterBand() {
    m_Session.run.g_StartFail = StartRefused;
    if (!m_Platform.dialogs || !m_Platform.dialogs->Open(DialogId::InterBand)) {
        m_Platform.user.Message("Falsch, dichtesortierung.");
        return;
    }
    const bool stillWrong =
        m_Session.interBand.g_bInterBand && !InterBandFits(m_Session.interBand, m_Session.select.m_BandId);
    if (!stillWrong && m_StartButton)
        OnMeasButton(*m_StartButton);
}

/// The first inter-band run of a press sends the powers along.
void Measurement::QueueInterBandPower() {
    if (!m_Session.interBand.g_bInterBand || !m_Session.run.g_FirstRun)
        return;
    m_Session.link.queue.Append("#SPWA" + m_Session.plan.strpow1.substr(0, 5));
    m_Session.link.queue.Append("#SPWB" + m_Session.plan.strpow2.substr(0, 5));
}

} // namespace qor
