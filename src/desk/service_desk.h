#pragma once

#include "base/outcome.h"
#include "desk/hardware_setup.h"
#include "desk/memory_desk.h"
#include "link/channel.h"
#include "service/factory_mode.h"
#include "service/memory_talk.h"

#include <string>
#include <string_view>
#include <vector>

namespace qor {

class Connection;
class Dialogs;
class Measurement;
class ServiceActivity;
struct Platform;
struct Session;

/// The maker's service pages as the operator has them: in by the PIN, from page to page by two buttons, out
/// by a question. However a page is left, both carriers are off within two seconds.
class ServiceDesk {
public:
    ServiceDesk(Session& session, const Platform& platform, SetupStore& store, Channel& channel,
                Connection& connection, Measurement& measurement);

    /// What goes on on a page ends with it from now on. It outlives this desk.
    void Join(ServiceActivity& activity) { m_Activities.push_back(&activity); }

    /// The Home key: asks for the PIN, or whether to leave.
    Outcome Home(Dialogs& dialogs);
    /// What was typed into the PIN's dialog; a wrong one is met with silence.
    void EnterPin(std::string_view pin);
    /// The button of a page: opens it, or leaves it. Refused while something is measured or another page is
    /// open.
    Outcome PressPage(ServicePage page);

    /// A free command, as it was typed.
    Outcome Send(const std::string& text);

    [[nodiscard]] MemoryDesk& Memory() { return m_Memory; }
    [[nodiscard]] HardwareSetup& Hardware() { return m_Hardware; }

    // Of the program.
    /// The instrument is ready.
    void Initialised();
    void ContactIsLost();
    /// The program ends.
    void Leave();
    void BeforeSend();
    void Heard(std::string_view piece);

private:
    void ClosePage();
    void SwitchOff();

    Session& m_Session;
    const Platform& m_Platform;
    Channel& m_Channel;
    Measurement& m_Measurement;
    std::vector<ServiceActivity*> m_Activities;
    MemoryDesk m_Memory;
    HardwareSetup m_Hardware;
};

} // namespace qor
