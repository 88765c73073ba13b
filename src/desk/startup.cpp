#include "desk/startup.h"

#include "bands/rx_loss.h"
#include "base/setup_store.h"
#include "base/tenths.h"
#include "base/text_format.h"
#include "curve/plot_range.h"
#include "desk/session.h"

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
    session.working.SelectMethod(mode >= ModeTwoTone && mode <= ModeSpectrum ? mode : ModeTwoTone);
    session.working.SelectPath(Digit(store, "reftrans.ccz") == 2 ? 2 : 1);
    session.curve.scale.SetUnit(Digit(store, "unit.ccz") == 1);
    session.curve.scale.ShowBar(Digit(store, "histogram.ccz") != 0);
}

void LoadScale(Curve& curve, const SetupStore& store) {
    if (const auto text = store.Read("dbmset.ccz", 40)) {
        const std::size_t line = text->find('\n');
        const double bottom = NumberIn(*text);
        const double top = line == std::string::npos ? 0.0 : NumberIn(std::string_view(*text).substr(line));
        if (IsPlotRange({top, bottom})) // a damaged store counts as none
            curve.scale.SetRange(static_cast<float>(top), static_cast<float>(bottom));
    }
}

void LoadAlarm(Curve& curve, const SetupStore& store) {
    curve.limit.SetAlarm(Digit(store, "tagWarningOn.ccz") == 0);
    curve.limit.SetStamp(Digit(store, "tagWarningStampOn.ccz") == 0);
    if (const auto text = store.Read("AlarmUp.ccz", 7); text && !text->empty()) {
        // The store is in dBm; a limit above 0 means 0.
        const int tenths = CutTenths(NumberIn(*text));
        curve.limit.Take(static_cast<float>(tenths >= 0 ? 0.0 : tenths / 10.0));
    }
    if (curve.scale.InDbc())
        curve.limit.Take(curve.limit.Level() - curve.scale.Carrier());
}

} // namespace

void ForgetLastSession(SetupStore& store) {
    for (const std::string_view name :
         {"testmode.ccz", "reftrans.ccz", "unit.ccz", "histogram.ccz", "dbmset.ccz", "Sweeptime.ccz",
          "Resolution.ccz", "TagImageOnly.ccz", "skin.ccz"})
        store.Remove(name);
}

void LoadStores(Session& session, SetupStore& store) {
    Curve& curve = session.curve;
    LoadSelection(session, store);
    LoadScale(curve, store);
    if (const auto seconds = Number(store, "2tone_time.ccz", 7))
        curve.SetLength(std::clamp(*seconds, 1, 2147483) * 1000);
    if (const auto runs = Number(store, "Sweeptime.ccz", 7))
        curve.SetRuns(std::clamp(*runs, 1, static_cast<int>(CurveRuns)));
    if (const auto interval = Number(store, "SweepInter.ccz", 7))
        session.runs.SetInterval(std::max(*interval, 0));
    const auto loss = [&store](std::string_view name) {
        return static_cast<float>(Number(store, name, 4).value_or(0)) / 10.0f;
    };
    session.working.SetPathLosses(loss("pathloss.ccz"),
                                  LacksSecondPort(store) ? 0.0f : loss("pathloss2.ccz"));
    if (const auto path = store.Read("LastLoadPath.ccz", LongestPath);
        path && path->find('"') == std::string::npos)
        session.results.list.RememberPath(*path);
    session.working.SetRxLosses(ParseRxLoss(store.Read("loss.conf", LongestPath).value_or("")));
    LoadAlarm(curve, store);
    session.alarm = LoadAlarmTones(store);
    session.appearance = LoadAppearance(store);
}

} // namespace qor
