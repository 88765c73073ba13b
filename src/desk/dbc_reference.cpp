#include "desk/dbc_reference.h"

#include "bands/catalogue.h"
#include "bands/records.h"
#include "base/setup_store.h"
#include "base/tenths.h"
#include "desk/level_unit.h"
#include "desk/session.h"
#include "platform/operator.h"
#include "platform/platform.h"

#include <cmath>

namespace qor {

void FollowBandPower(Session& session, const Platform& platform, SetupStore& store) {
    const BandInfo* band = FindBand(session.working.Band());
    if (!band || !session.curve.scale.InDbc())
        return;
    const PowerSetting power = ReadPowerStore(store, band->prefix);
    const double tone1 = NumberIn(power.tone1) / 10.0;
    const double tone2 = NumberIn(power.tone2) / 10.0;
    if (std::abs(tone1 - tone2) < 0.05) {
        SetCarrier(static_cast<float>(tone1) - session.working.PowerOffset(), session);
        return;
    }
    ConvertLevelUnit(false, session);
    store.Write("unit.ccz", "0");
    platform.user.Failure("The power of Tone 1 and Tone 2 is not the same, can not use dBc.");
}

} // namespace qor
