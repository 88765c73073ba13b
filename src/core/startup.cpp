#include "core/startup.h"

#include "bands/rx_loss.h"
#include "bands/setup_store.h"
#include "bands/tenths.h"
#include "core/session.h"
#include "core/text_format.h"
#include "display/plot_range.h"

#include <algorithm>

namespace qor {

namespace {

constexpr std::size_t LongestPath = 200;

/// Whole number at the head of a store, or nothing when the store is not there.
std::optional<int> Number(const SetupStore& store, std::string_view name, std::size_t characters) {
    const auto text = store.Read(name, characters);
    return text ? std::optional(WholeNumberIn(*text)) : std::nullopt;
}

/// The first character as a number, 0 when the store is absent.
int Digit(const SetupStore& store, std::string_view name) {
    return Number(store, name, 1).value_or(0);
}

void LoadSelection(Session& session, const SetupStore& store) {
    const int mode = Digit(store, "testmode.ccz");
    session.run.g_TestMode = mode >= ModeTwoTone && mode <= ModeSpectrum ? mode : ModeTwoTone;
    static constexpr std::string_view Modes[] = {TwoToneText, SweepText, SpectrumText};
    session.panel.m_Mode_sel = Modes[session.run.g_TestMode - 1];
    session.select.m_PathMode = Digit(store, "reftrans.ccz") == 2 ? 2 : 1;
    session.panel.m_Path_sel = session.select.m_PathMode == 2 ? TransmissionText : ReflectionText;
    session.curve.g_UnitDbc = Digit(store, "unit.ccz") == 1 ? 1 : 0;
    session.curve.g_histogramOn = Digit(store, "histogram.ccz") == 0 ? 0 : 1;
}

void LoadScale(CurveState& curve, const SetupStore& store) {
    if (const auto text = store.Read("dbmset.ccz", 40)) {
        const std::size_t line = text->find('\n');
        const double bottom = NumberIn(*text);
        const double top = line == std::string::npos ? 0.0 : NumberIn(std::string_view(*text).substr(line));
        if (IsPlotRange({top, bottom})) { // a damaged store counts as none
            curve.g_plotBottom = static_cast<float>(bottom);
            curve.g_plotTop = static_cast<float>(top);
        }
    }
}

void LoadAlarm(CurveState& curve, Panel& panel, const SetupStore& store) {
    curve.g_alarmOff = Digit(store, "tagWarningOn.ccz") == 0 ? 0 : 1;
    curve.g_stampOff = Digit(store, "tagWarningStampOn.ccz") == 0 ? 0 : 1;
    if (const auto text = store.Read("AlarmUp.ccz", 7); text && !text->empty()) {
        // The store is in dBm; a limit above 0 means 0.
        const int tenths = CutTenths(NumberIn(*text));
        curve.g_alarmLevel = static_cast<float>(tenths >= 0 ? 0.0 : tenths / 10.0);
    }
    if (curve.g_UnitDbc)
        curve.g_alarmLevel -= curve.g_CarrierDbm;
    curve.g_alarmKept = curve.g_alarmLevel;
    panel.m_AlarmText = Fixed(curve.g_alarmLevel, 1);
}

} // namespace

void ForgetLastSession(SetupStore& store) {
    for (const std::string_view name :
         {"testmode.ccz", "reftrans.ccz", "unit.ccz", "histogram.ccz", "dbmset.ccz", "Sweeptime.ccz",
          "Resolution.ccz", "TagImageOnly.ccz", "skin.ccz"})
        store.Remove(name);
}

void LoadStores(Session& session, SetupStore& store) {
    CurveState& curve = session.curve;
    PlanState& plan = session.plan;
    LoadSelection(session, store);
    LoadScale(curve, store);
    if (const auto seconds = Number(store, "2tone_time.ccz", 7))
        curve.g_testTimeMs = std::clamp(*seconds, 1, 2147483) * 1000;
    if (const auto runs = Number(store, "Sweeptime.ccz", 7))
        curve.g_runCount = std::clamp(*runs, 1, static_cast<int>(CurveRuns));
    if (const auto interval = Number(store, "SweepInter.ccz", 7))
        session.run.g_SweepInterval = session.run.g_SweepIntervalLeft = std::max(*interval, 0);
    plan.g_powerOffset = static_cast<float>(Number(store, "pathloss.ccz", 4).value_or(0)) / 10.0f;
    plan.g_port2Loss = static_cast<float>(Number(store, "pathloss2.ccz", 4).value_or(0)) / 10.0f;
    if (LacksSecondPort(store))
        plan.g_port2Loss = 0;
    if (const auto path = store.Read("LastLoadPath.ccz", LongestPath);
        path && path->find('"') == std::string::npos)
        session.results.LastLoadPath = *path;
    plan.rxLoss = ParseRxLoss(store.Read("loss.conf", LongestPath).value_or(""));
    LoadAlarm(curve, session.panel, store);
    session.alarm = LoadAlarmTones(store);
    session.appearance = LoadAppearance(store);
}

} // namespace qor
