#include "display/level_unit.h"

#include "bands/setup_store.h"
#include "bands/tenths.h"
#include "core/session.h"
#include "core/text_format.h"
#include "display/markers.h"
#include "platform/operator.h"
#include "platform/platform.h"

#include <cmath>

namespace qor {

namespace {

/// Shifts a level text of the panel; a text without a level stays.
void ShiftLevel(std::string& text, double by) {
    const double level = NumberIn(text);
    if (level < -0.1)
        text = Fixed(level + by, 1);
}

/// Moves the limit and what the panel shows of levels.
void ShiftShownLevels(double by, Session& session) {
    ShiftLevel(session.panel.m_WorstLevelText, by);
    ShiftLevel(session.panel.m_ReadingText, by);
    session.panel.m_AlarmText = Fixed(NumberIn(session.panel.m_AlarmText) + by, 1);
    session.curve.g_alarmLevel += static_cast<float>(by);
    RefreshMarkers(session.markers);
}

} // namespace

bool SetLevelUnit(bool dbc, Session& session, const Platform& platform, SetupStore& store) {
    CurveState& curve = session.curve;
    if (dbc == (curve.g_UnitDbc != 0))
        return true;
    if (dbc) {
        const BandInfo* band = FindBand(session.select.m_BandId);
        if (!band) {
            platform.user.Message("Auswaehlen Breite");
            return false;
        }
        const PowerSetting power = ReadPowerStore(store, band->prefix);
        const double tone1 = NumberIn(power.tone1) / 10.0;
        const double tone2 = NumberIn(power.tone2) / 10.0;
        if (std::abs(tone1 - tone2) >= 0.05) {
            platform.user.Message("The power of Tone 1 and Tone 2 is not the same, can not use dBc.");
            return false;
        }
        curve.g_CarrierDbm = static_cast<float>(tone1) - session.plan.g_powerOffset;
    }
    ConvertLevelUnit(dbc, session);
    store.Write("unit.ccz", dbc ? "1" : "0");
    return true;
}

void ConvertLevelUnit(bool dbc, Session& session) {
    CurveState& curve = session.curve;
    if (dbc == (curve.g_UnitDbc != 0))
        return;
    curve.g_UnitDbc = dbc ? 1 : 0;
    const double carrier = static_cast<double>(curve.g_CarrierDbm);
    ShiftShownLevels(dbc ? -carrier : carrier, session);
}

void SetCarrier(float carrier, Session& session) {
    CurveState& curve = session.curve;
    if (curve.g_UnitDbc)
        ShiftShownLevels(static_cast<double>(curve.g_CarrierDbm) - static_cast<double>(carrier), session);
    curve.g_CarrierDbm = carrier;
}

} // namespace qor
