#include "desk/start_button.h"

#include "desk/dialogs.h"
#include "desk/session.h"
#include "link/connection.h"
#include "measure/measurement.h"
#include "platform/operator.h"
#include "platform/platform.h"

namespace qor {

void StartButton::Press() {
    m_Session.results.device.ForgetSerialUnlessKept();
    if (m_Session.run.IsOn()) {
        m_Measurement.Stop();
        return;
    }
    m_Session.results.list.Clear();
    const StartAnswer answer = m_Measurement.Start();
    switch (answer.needs) {
    case StartAnswer::Needs::Nothing:
        if (!answer.outcome)
            m_Platform.user.Failure(answer.outcome.Text());
        return;
    case StartAnswer::Needs::Connection:
        Connect();
        return;
    case StartAnswer::Needs::InterBandPlan:
        AskForInterBand();
        return;
    }
}

void StartButton::Connect() {
    if (m_Platform.user.Ask("The device is disconnect. Connect it now?", "Oeffnen port erst!") &&
        m_Connection.ConnectDev())
        m_Measurement.StartOnceConnected();
    else
        m_Measurement.GiveUpStart();
}

/// The frequencies were set for another carrier band: the operator sets them anew, or switches the mode off,
/// and the start button acts once more. Left as they are, there is no start.
void StartButton::AskForInterBand() {
    if (!m_Platform.dialogs || !m_Platform.dialogs->Open("inter_band")) {
        m_Platform.user.Failure("Falsch, dichtesortierung.");
        return;
    }
    const InterBandMode& mode = m_Session.interBand;
    if (!mode.IsOn() || InterBandFits(mode.Plan(), m_Session.working.Band()))
        Press();
}

} // namespace qor
