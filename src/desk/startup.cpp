#include "desk/startup.h"

#include "bands/rx_loss.h"
#include "base/setup_store.h"
#include "base/tenths.h"
#include "base/text_format.h"
#include "curve/alarm.h"
#include "curve/plot_range.h"
#include "desk/session.h"

#include <algorithm>
#include <cmath>

namespace qor {

namespace {

constexpr std::size_t LongestPath = 200;

/// The digit of a store, 0 when it holds none.
int Digit(SetupStore& store, std::string_view name) {
    return static_cast<int>(store.ReadNumber(name, 1).value_or(0));
}

/// A store of seven characters as a whole number, brought into its range.
std::optional<int> Count(SetupStore& store, std::string_view name, int low, int high) {
    const auto number = store.ReadNumber(name, 7);
    return number ? std::optional(static_cast<int>(std::clamp(*number, 1.0 * low, 1.0 * high)))
                  : std::nullopt;
}

void LoadSelection(Session& session, SetupStore& store) {
    const int mode = Digit(store, "testmode.ccz");
    session.working.SelectMethod(mode >= ModeTwoTone && mode <= ModeSpectrum ? mode : ModeTwoTone);
    session.working.SelectPath(Digit(store, "reftrans.ccz") == 2 ? 2 : 1);
    session.curve.scale.SetUnit(Digit(store, "unit.ccz") == 1);
    session.curve.scale.ShowBar(Digit(store, "histogram.ccz") != 0);
}

/// Both ends at 0 mean the standard scale.
bool IsStandardRange(std::string_view text) {
    return text.find_first_not_of("-0.\r\n ") == std::string_view::npos;
}

void LoadScale(Curve& curve, SetupStore& store) {
    if (const auto text = store.Read("dbmset.ccz", 40)) {
        const std::size_t line = text->find('\n');
        const double bottom = NumberIn(*text);
        const double top = line == std::string::npos ? 0.0 : NumberIn(std::string_view(*text).substr(line));
        const bool sound = IsPlotRange({top, bottom});
        if (sound)
            curve.scale.SetRange(static_cast<float>(top), static_cast<float>(bottom));
        store.Found("dbmset.ccz", sound || text->empty() || IsStandardRange(*text));
    }
}

void LoadAlarm(Curve& curve, SetupStore& store) {
    curve.limit.SetAlarm(Digit(store, "tagWarningOn.ccz") == 0);
    curve.limit.SetStamp(Digit(store, "tagWarningStampOn.ccz") == 0);
    if (const auto limit = store.ReadNumber("AlarmUp.ccz", 7, LowestLimit)) {
        // The store is in dBm; a limit above 0 means 0.
        const int tenths = CutTenths(*limit);
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
    if (const auto seconds = Count(store, "2tone_time.ccz", 1, 2147483))
        curve.SetLength(*seconds * 1000);
    if (const auto runs = Count(store, "Sweeptime.ccz", 1, static_cast<int>(CurveRuns)))
        curve.SetRuns(*runs);
    if (const auto interval = Count(store, "SweepInter.ccz", 0, 9999999))
        session.runs.SetInterval(*interval);
    const auto loss = [&store](std::string_view name) {
        return static_cast<float>(std::trunc(store.ReadNumber(name, 4, 0, 99).value_or(0)) / 10.0);
    };
    session.working.SetPathLosses(loss("pathloss.ccz"),
                                  LacksSecondPort(store) ? 0.0f : loss("pathloss2.ccz"));
    if (const auto path = store.Read("LastLoadPath.ccz", LongestPath);
        path && path->find('"') == std::string::npos)
        session.results.list.RememberPath(*path);
    if (const auto path = store.Read("LastSavePath.ccz", LongestPath))
        session.results.saveFolder = std::filesystem::path(*path).parent_path();
    const std::string losses = store.Read("loss.conf", LongestRxLoss).value_or("");
    const RxLossFile table = ParseRxLoss(losses);
    session.working.SetRxLosses(table.losses);
    store.Found("loss.conf", losses.empty() || !table.IsDamaged());
    LoadAlarm(curve, store);
    session.alarm.Load(store);
    session.appearance = Appearance(store);
}

} // namespace qor
