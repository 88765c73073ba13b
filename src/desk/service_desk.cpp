#include "desk/service_desk.h"

#include "desk/dialogs.h"
#include "desk/guards.h"
#include "desk/session.h"
#include "link/commands.h"
#include "measure/measurement.h"
#include "platform/clock.h"
#include "platform/operator.h"
#include "platform/platform.h"
#include "platform/serial_control.h"
#include "service/service_activity.h"

namespace qor {

ServiceDesk::ServiceDesk(Session& session, const Platform& platform, SetupStore& store, Channel& channel,
                         Connection& connection, Measurement& measurement)
    : m_Session(session), m_Platform(platform), m_Channel(channel), m_Measurement(measurement),
      m_Memory(session, platform, store), m_Hardware(session, platform, channel, connection, m_Memory) {
    Join(m_Memory);
    Join(m_Hardware);
}

Outcome ServiceDesk::Home(Dialogs& dialogs) {
    FactoryMode& factory = m_Session.factory;
    if (!factory.IsOn()) {
        if (!factory.IsShut(m_Platform.clock.TickMs()))
            dialogs.Open("factory_mode");
        return Outcome::Done();
    }
    SwitchOff(); // no question stands over carriers
    if (!m_Platform.user.Ask("Do you want to exit factory mode?", "FACTORY MODE"))
        return Outcome::Done();
    if (factory.Page() != ServicePage::None)
        ClosePage();
    factory.Leave();
    return Outcome::Done();
}

void ServiceDesk::EnterPin(std::string_view pin) {
    m_Session.factory.Enter(pin, m_Platform.clock.TickMs());
}

Outcome ServiceDesk::PressPage(ServicePage page) {
    FactoryMode& factory = m_Session.factory;
    if (!factory.IsOn())
        return Outcome::Refused({});
    if (factory.IsOpen(page)) {
        ClosePage();
        return Outcome::Done();
    }
    if (m_Session.run.IsOn() || factory.Page() != ServicePage::None)
        return Outcome::Refused("\nHalten Messung erst!");
    m_Measurement.DropStart();
    m_Channel.HoldStatusPoll();
    factory.Open(page);
    m_Memory.BackUp({}, {});
    return Outcome::Done();
}

/// Everything that goes on ends, and the panel is as before.
void ServiceDesk::ClosePage() {
    for (ServiceActivity* const activity : m_Activities)
        activity->Stop();
    m_Measurement.Stop();
    m_Session.factory.Close();
    m_Session.response.End();
    SwitchOff();
    if (m_Platform.comm.GetPortOpen())
        m_Channel.ResumeStatusPoll();
}

/// What the page has queued is not wanted any more; the off commands go ahead of all else.
void ServiceDesk::SwitchOff() {
    LinkState& link = m_Session.link;
    m_Session.factory.KeepCarriers(false);
    if (link.chain.IsUnderWay() || !m_Platform.comm.GetPortOpen())
        return;
    link.queue.Clear();
    link.queue.Append(command::InputText);
    if (link.carriers.MayBeOn())
        for (const std::string& off : link.carriers.OffCommands())
            link.queue.Append(off);
    m_Channel.Start();
}

Outcome ServiceDesk::Send(const std::string& text) {
    if (Outcome open = PortIsOpen(m_Platform); !open)
        return open;
    if (Outcome off = NothingRuns(m_Session); !off)
        return off;
    if (text.empty())
        return Outcome::Refused({});
    m_Session.response.Begin();
    m_Session.response.Note(text);
    if (Carriers::SwitchesOn(text))
        m_Session.factory.KeepCarriers(true);
    m_Session.link.queue.Append(text);
    m_Channel.Start();
    return Outcome::Done();
}

void ServiceDesk::ContactIsLost() {
    for (ServiceActivity* const activity : m_Activities)
        activity->ContactIsLost();
    m_Session.factory.KeepCarriers(false);
}

/// The poll that the end of a chain has armed does not disturb an open page; what could not be kept before
/// can be now.
void ServiceDesk::Initialised() {
    if (m_Session.factory.Page() == ServicePage::None)
        return;
    m_Channel.HoldStatusPoll();
    m_Memory.BackUp({}, {});
}

void ServiceDesk::Leave() {
    if (m_Session.factory.Page() != ServicePage::None)
        ClosePage();
}

void ServiceDesk::BeforeSend() {
    if (m_Session.response.IsShown())
        m_Session.response.Clear();
}

void ServiceDesk::Heard(std::string_view piece) {
    m_Session.response.Take(piece);
}

} // namespace qor
