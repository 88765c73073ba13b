#include "core/guards.h"

#include "core/session.h"
#include "platform/operator.h"
#include "platform/platform.h"
#include "platform/serial_control.h"

namespace qor {

bool RunIsOff(const Session& session, const Platform& platform) {
    if (session.run.runOn)
        platform.user.Message("\nHalten Messung erst!");
    return !session.run.runOn;
}

bool PortIsOpen(const Platform& platform) {
    const bool open = platform.comm.GetPortOpen();
    if (!open)
        platform.user.Message("Oeffnen port erst!");
    return open;
}

bool MayChangeSetup(const Session& session, const Platform& platform) {
    const bool refused = session.panel.lamp == Lamp::NotReady && session.curve.g_fromFile != 0;
    if (refused)
        platform.user.Message("Einbauen misserfolg");
    return !refused;
}

} // namespace qor
