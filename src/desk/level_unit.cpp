#include "desk/level_unit.h"

#include "bands/catalogue.h"
#include "bands/records.h"
#include "base/setup_store.h"
#include "base/tenths.h"
#include "base/text_format.h"
#include "curve/markers.h"
#include "desk/session.h"

#include <cmath>

namespace qor {

namespace {

/// Moves the limit and the worst level, which are kept in the unit shown.
void ShiftShownLevels(double by, Session& session) {
    session.curve.limit.Take(session.curve.limit.Level() + static_cast<float>(by));
    session.markers.Refresh();
}

} // namespace

Outcome SetLevelUnit(bool dbc, Session& session, SetupStore& store) {
    Curve& curve = session.curve;
    if (dbc == curve.scale.InDbc())
        return Outcome::Done();
    if (const ResultDocument* const file = ShownFile(session); dbc && file && file->hasHead) {
        if (std::abs(file->power1 - file->power2) >= 0.05f)
            return Outcome::Refused("The power of Tone 1 and Tone 2 is not the same, can not use dBc.");
        curve.scale.SetCarrier(file->carrier); // the levels are those at the device, and so is its power
    } else if (dbc) {
        const BandInfo* band = FindBand(session.working.Band());
        if (!band)
            return Outcome::Refused("Auswaehlen Breite");
        const PowerSetting power = ReadPowerStore(store, band->prefix);
        const double tone1 = NumberIn(power.tone1) / 10.0;
        const double tone2 = NumberIn(power.tone2) / 10.0;
        if (std::abs(tone1 - tone2) >= 0.05)
            return Outcome::Refused("The power of Tone 1 and Tone 2 is not the same, can not use dBc.");
        curve.scale.SetCarrier(static_cast<float>(tone1) - session.working.PowerOffset());
    }
    ConvertLevelUnit(dbc, session);
    store.Write("unit.ccz", dbc ? "1" : "0");
    return Outcome::Done();
}

void ConvertLevelUnit(bool dbc, Session& session) {
    Curve& curve = session.curve;
    if (dbc == curve.scale.InDbc())
        return;
    curve.scale.SetUnit(dbc);
    const double carrier = static_cast<double>(curve.scale.Carrier());
    ShiftShownLevels(dbc ? -carrier : carrier, session);
}

void SetCarrier(float carrier, Session& session) {
    Curve& curve = session.curve;
    const double by = static_cast<double>(curve.scale.Carrier()) - static_cast<double>(carrier);
    curve.scale.SetCarrier(carrier);
    if (curve.scale.InDbc())
        ShiftShownLevels(by, session);
}

} // namespace qor
