#include "desk/start_button.h"

#include "desk/dialogs.h"
#include "desk/session.h"
#include "link/connection.h"
#include "measure/measurement.h"
#include "platform/operator.h"
#include "platform/platform.h"

#include <utility>

namespace qor {

Outcome StartButton::Press() {
    m_Session.results.device.ForgetSerialUnlessKept();
    if (m_Session.run.IsOn()) {
        m_Measurement.Stop();
        return Outcome::Done();
    }
    m_Session.results.list.Clear();
    StartAnswer answer = m_Measurement.Start();
    switch (answer.needs) {
    case StartAnswer::Needs::Connection:
        return Connect();
    case StartAnswer::Needs::InterBandPlan:
        return AskForInterBand();
    default:
        return std::move(answer.outcome);
    }
}

Outcome StartButton::Connect() {
    if (m_Platform.user.Ask("The device is disconnect. Connect it now?", "Oeffnen port erst!") &&
        m_Connection.ConnectDev()) {
        m_Measurement.StartOnceConnected();
        return Outcome::Done();
    }
    m_Measurement.GiveUpStart();
    return Outcome::Refused({});
}

/// The frequencies were set for another carrier band: the operator sets them anew, or switches the mode off,
/// and the start button acts once more. Left as they are, there is no start.
Outcome StartButton::AskForInterBand() {
    if (!m_Platform.dialogs || !m_Platform.dialogs->Open("inter_band"))
        return Outcome::Refused("Falsch, dichtesortierung.");
    const InterBandMode& mode = m_Session.interBand;
    const bool fits = !mode.IsOn() || InterBandFits(mode.Plan(), m_Session.working.Band());
    return fits ? Press() : Outcome::Refused({});
}

} // namespace qor
