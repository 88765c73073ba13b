#include "desk/guards.h"

#include "desk/session.h"
#include "platform/platform.h"
#include "platform/serial_control.h"
#include "results/page_series.h"

namespace qor {

Outcome RunIsOff(const Session& session) {
    return session.run.IsOn() ? Outcome::Refused("\nHalten Messung erst!") : Outcome::Done();
}

Outcome SeriesIsOff(const PageSeries& series) {
    return series.IsOn() ? Outcome::Refused("Die Berichte werden noch gespeichert.") : Outcome::Done();
}

Outcome PortIsOpen(const Platform& platform) {
    return platform.comm.GetPortOpen() ? Outcome::Done() : Outcome::Refused("Oeffnen port erst!");
}

Outcome MayChangeSetup(const Session& session) {
    const bool refused = !session.link.chain.HasAnswered() && session.curve.IsFromFile();
    return refused ? Outcome::Refused("Einbauen misserfolg") : Outcome::Done();
}

} // namespace qor
