#include "desk/guards.h"

#include "desk/program.h"
#include "desk/session.h"
#include "platform/platform.h"
#include "platform/serial_control.h"

namespace qor {

Outcome NothingRuns(const Session& session) {
    const bool runs = session.run.IsOn() || session.factory.IsBusy();
    return runs ? Outcome::Refused("\nHalten Messung erst!") : Outcome::Done();
}

Outcome RunIsOff(const Session& session) {
    if (session.factory.IsOpen(ServicePage::Calibration))
        return Outcome::Refused("\nHalten Messung erst!");
    return NothingRuns(session);
}

void OrderCarriersOff(Session& session) {
    LinkState& link = session.link;
    session.factory.KeepCarriers(false);
    if (link.carriers.MayBeOn() && !link.chain.IsUnderWay())
        for (const std::string& off : link.carriers.OffCommands())
            link.queue.Append(off);
}

Outcome NothingIsSaved(const Program& program) {
    if (program.Series().IsOn())
        return Outcome::Refused("Die Berichte werden noch gespeichert.");
    if (program.Saver().IsBusy())
        return Outcome::Refused("Die Messung wird noch gespeichert.");
    return Outcome::Done();
}

Outcome PortIsOpen(const Platform& platform) {
    return platform.comm.GetPortOpen() ? Outcome::Done() : Outcome::Refused("Oeffnen port erst!");
}

Outcome MayChangeSetup(const Session& session) {
    const bool refused = !session.link.chain.HasAnswered() && session.curve.IsFromFile();
    return refused ? Outcome::Refused("Einbauen misserfolg") : Outcome::Done();
}

} // namespace qor
